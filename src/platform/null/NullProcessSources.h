#pragma once

#include "platform/OrphanSource.h"
#include "platform/ProcessCounterSource.h"
#include "platform/ProcessFootprintSource.h"
#include "platform/ProcessLister.h"
#include "platform/RunLoop.h"
#include "platform/ToolLauncher.h"

#include <utility>

// A machine that tells nothing of its processes and runs none for us.

namespace velmora {

class NullProcessLister final : public ProcessLister {
public:
    explicit NullProcessLister(RunLoop& runLoop) : m_runLoop(runLoop) {}
    void run(const std::vector<std::string>&, int, Completion completion) override {
        m_runLoop.post([completion = std::move(completion)] { completion(std::nullopt); });
    }

private:
    RunLoop& m_runLoop;
};

class NullProcessFootprintSource final : public ProcessFootprintSource {
public:
    std::int32_t listAll(std::span<std::int32_t>) override { return 0; }
    std::optional<std::uint64_t> footprint(std::int32_t) override { return std::nullopt; }
    std::string name(std::int32_t) override { return {}; }
};

class NullProcessCounterSource final : public ProcessCounterSource {
public:
    std::int32_t listAll(std::span<std::int32_t>) override { return 0; }
    std::optional<ProcessCounters> counters(std::int32_t) override { return std::nullopt; }
    std::string name(std::int32_t) override { return {}; }
    std::optional<std::uint64_t> ownEnergy() override { return std::nullopt; }
};

class NullOrphanSource final : public OrphanSource {
public:
    std::int32_t listAll(std::span<std::int32_t>) override { return 0; }
    std::string name(std::int32_t) override { return {}; }
    std::optional<ProcessParentage> parentage(std::int32_t) override { return std::nullopt; }
    std::uint32_t userId() const override { return 0; }
    void terminate(std::int32_t) override {}
};

class NullToolLauncher final : public ToolLauncher {
public:
    bool fileExists(const std::string&) const override { return false; }
    std::optional<LaunchedTool> launchOnTerminal(const std::string&,
                                                 const std::vector<std::string>&) override {
        return std::nullopt;
    }
};

}  // namespace velmora
