#pragma once

#include "platform/ControllerConnection.h"
#include "platform/FanSource.h"
#include "platform/ThermalSensorSource.h"

#include <cstdint>
#include <cstring>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

class FakeThermalSensorSource final : public ThermalSensorSource {
public:
    const std::vector<ThermalSensor>* sensors(Scope scope) override {
        scopes.push_back(scope);
        return fails ? nullptr : &list;
    }

    bool fails = false;
    std::vector<ThermalSensor> list;
    std::vector<Scope> scopes;  ///< Of every question.
};

class FakeFanSource final : public FanSource {
public:
    void read(std::vector<std::optional<double>>& into) override { into = speeds; }

    std::vector<std::optional<double>> speeds;
};

/// A system management controller with settable keys. It answers only records of the right form, in the
/// machine's byte order, as the real one does.
class FakeControllerConnection final : public ControllerConnection {
public:
    struct Key {
        std::string type;  ///< Four characters.
        std::uint32_t size = 0;
        std::vector<std::uint8_t> bytes;  ///< Of the value.
    };

    std::uint32_t connection() const override { return opened; }
    bool call(std::uint32_t selector, const ControllerRecord& input, ControllerRecord& output) override {
        ++calls;
        requests.push_back(input);
        if (callFails || selector != 2) return false;
        const std::string name = nameOf(word(input, 0));
        const auto command = std::to_integer<int>(input[39]);
        const auto found = keys.find(name);
        const bool isRead = command == 5;
        if (found == keys.end() || (command != 9 && !isRead) || (isRead && unreadable.contains(name))) {
            output[37] = std::byte{0x84};
            return true;
        }
        const Key& key = found->second;
        putWord(output, 28, key.size);
        putWord(output, 32, codeOf(key.type));
        output[36] = std::byte{0xC0};
        if (isRead) {
            // A read must carry what the first command told.
            if (word(input, 28) != key.size || word(input, 32) != codeOf(key.type) ||
                input[36] != std::byte{0xC0}) {
                output[37] = std::byte{0x89};
                return true;
            }
            if (!key.bytes.empty()) std::memcpy(&output[44], key.bytes.data(), key.bytes.size());
        }
        return true;
    }

    std::uint32_t opened = 0x1507;
    bool callFails = false;
    std::map<std::string, Key> keys;
    std::set<std::string> unreadable;  ///< Keys that tell their kind, but refuse their value.
    int calls = 0;
    std::vector<ControllerRecord> requests;

private:
    static std::uint32_t word(const ControllerRecord& record, std::size_t offset) {
        std::uint32_t value = 0;
        std::memcpy(&value, &record[offset], sizeof value);
        return value;
    }
    static void putWord(ControllerRecord& record, std::size_t offset, std::uint32_t value) {
        std::memcpy(&record[offset], &value, sizeof value);
    }
    static std::string nameOf(std::uint32_t code) {
        std::string name;
        for (int shift = 24; shift >= 0; shift -= 8) name.push_back(static_cast<char>(code >> shift & 0xFF));
        return name;
    }
    static std::uint32_t codeOf(const std::string& name) {
        std::uint32_t code = 0;
        for (const char letter : name) code = code << 8 | static_cast<unsigned char>(letter);
        return code;
    }
};

}  // namespace velmora
