#pragma once

#include "platform/OrphanSource.h"
#include "platform/ProcessCounterSource.h"
#include "platform/ProcessFootprintSource.h"
#include "platform/ProcessLister.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// Keeps the calls until a test answers them.
class FakeProcessLister final : public ProcessLister {
public:
    void run(const std::vector<std::string>& arguments, int lines, Completion completion) override {
        calls.push_back({arguments, lines, std::move(completion)});
    }

    struct Call {
        std::vector<std::string> arguments;
        int lines = 0;
        Completion completion;
    };
    std::vector<Call> calls;
};

class FakeProcessFootprintSource final : public ProcessFootprintSource {
public:
    std::int32_t listAll(std::span<std::int32_t> buffer) override {
        if (buffer.empty()) return count.value_or(static_cast<std::int32_t>(pids.size()));
        ++walkCount;
        bufferSizes.push_back(buffer.size());
        std::copy_n(pids.begin(), std::min(pids.size(), buffer.size()), buffer.begin());
        return written.value_or(static_cast<std::int32_t>(std::min(pids.size(), buffer.size())));
    }
    std::optional<std::uint64_t> footprint(std::int32_t pid) override {
        if (onFootprint) onFootprint();
        const auto entry = footprints.find(pid);
        return entry == footprints.end() ? std::nullopt : std::optional(entry->second);
    }
    std::string name(std::int32_t pid) override { return names[pid]; }

    void add(std::int32_t pid, std::string name, std::uint64_t bytes) {
        pids.push_back(pid);
        names[pid] = std::move(name);
        footprints[pid] = bytes;
    }

    std::vector<std::int32_t> pids;
    std::map<std::int32_t, std::string> names;
    std::map<std::int32_t, std::uint64_t> footprints;
    std::optional<std::int32_t> count;    ///< What a call without a buffer answers instead.
    std::optional<std::int32_t> written;  ///< What one with a buffer answers instead.
    std::vector<std::size_t> bufferSizes;
    std::function<void()> onFootprint;
    int walkCount = 0;
};

class FakeProcessCounterSource final : public ProcessCounterSource {
public:
    std::int32_t listAll(std::span<std::int32_t> buffer) override {
        ++walkCount;
        bufferSize = buffer.size();
        std::size_t count = 0;
        for (const auto& [pid, counters] : processes) {
            if (count < buffer.size()) buffer[count++] = pid;
        }
        return answer.value_or(static_cast<std::int32_t>(4 * count));
    }
    std::optional<ProcessCounters> counters(std::int32_t pid) override { return processes[pid]; }
    std::string name(std::int32_t pid) override { return names[pid]; }
    std::optional<std::uint64_t> ownEnergy() override {
        ++energyQuestions;
        return energy;
    }

    /// Nothing for a process that is listed but cannot be read.
    std::map<std::int32_t, std::optional<ProcessCounters>> processes;
    std::map<std::int32_t, std::string> names;
    std::optional<std::int32_t> answer;
    std::optional<std::uint64_t> energy = 1;
    std::size_t bufferSize = 0;
    int walkCount = 0;
    int energyQuestions = 0;
};

class FakeOrphanSource final : public OrphanSource {
public:
    std::int32_t listAll(std::span<std::int32_t> buffer) override {
        bufferSize = buffer.size();
        std::size_t count = 0;
        for (const auto& [pid, process] : processes) {
            if (count < buffer.size()) buffer[count++] = pid;
        }
        return answer.value_or(static_cast<std::int32_t>(4 * count));
    }
    std::string name(std::int32_t pid) override { return processes[pid].name; }
    std::optional<ProcessParentage> parentage(std::int32_t pid) override { return processes[pid].parentage; }
    std::uint32_t userId() const override { return user; }
    void terminate(std::int32_t pid) override { terminated.push_back(pid); }

    struct Process {
        std::string name;
        std::optional<ProcessParentage> parentage;
    };
    std::map<std::int32_t, Process> processes;
    std::optional<std::int32_t> answer;
    std::uint32_t user = 1000;
    std::size_t bufferSize = 0;
    std::vector<std::int32_t> terminated;
};

}  // namespace velmora
