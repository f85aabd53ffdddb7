#pragma once

#include "base/Signal.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The user's stored settings and the engine's stored state: a key-value store of texts, Booleans, numbers,
/// and arrays and dictionaries of these (stands for `NSUserDefaults`).
///
/// A write is visible to the next read at once and survives a killed process. Nothing here fails: what cannot
/// be stored is kept for the run, what cannot be read is absent. Main thread only.
class Defaults {
public:
    virtual ~Defaults() = default;

    /// How soon a write must be on the disk.
    enum class Urgency {
        now,      ///< Before `write` returns.
        relaxed,  ///< Within ten seconds, for what is written at the sample rate.
    };

    /// Another process stored or removed something; the next read sees it.
    Signal<> changedOutside;

    /// The stored value; nothing if there is none or it cannot be parsed.
    virtual std::optional<nlohmann::json> read(std::string_view key) const = 0;
    virtual void write(std::string_view key, const nlohmann::json& value, Urgency urgency) = 0;
    virtual void remove(std::string_view key) = 0;
    /// Puts the relaxed writes on the disk before it returns; for the end of the program.
    virtual void synchronize() {}

    // Typed reads: absent for a value of another type. In the collections only entries of another type are
    // left out, so one foreign entry does not cost the others.
    std::optional<std::string> text(std::string_view key) const;
    std::optional<bool> boolean(std::string_view key) const;
    std::optional<double> number(std::string_view key) const;
    std::optional<std::uint64_t> unsignedInteger(std::string_view key) const;
    std::optional<std::vector<std::string>> textArray(std::string_view key) const;
    std::optional<std::vector<double>> numberArray(std::string_view key) const;
    std::optional<std::map<std::string, std::string>> textMap(std::string_view key) const;
    std::optional<std::map<std::string, double>> numberMap(std::string_view key) const;
    std::optional<std::map<std::string, std::vector<std::string>>> textArrayMap(std::string_view key) const;

    // Typed writes. A number that JSON cannot hold (not finite) removes the key.
    void setText(std::string_view key, std::string_view value);
    void setBoolean(std::string_view key, bool value);
    void setNumber(std::string_view key, double value, Urgency urgency = Urgency::now);
    void setUnsignedInteger(std::string_view key, std::uint64_t value);
    void setTextArray(std::string_view key, const std::vector<std::string>& values);
    void setNumberArray(std::string_view key, const std::vector<double>& values);
    void setTextMap(std::string_view key, const std::map<std::string, std::string>& values);
    void setNumberMap(std::string_view key, const std::map<std::string, double>& values);
    void setTextArrayMap(std::string_view key, const std::map<std::string, std::vector<std::string>>& values);
};

}  // namespace velmora
