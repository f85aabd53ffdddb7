#include "platform/linux/store/JsonBundle.h"

#include "platform/linux/files/SystemFile.h"
#include "platform/linux/processes/ExecutableLink.h"
#include "platform/linux/store/StoredJson.h"

#include <nlohmann/json.hpp>

namespace velmora {

JsonBundle::JsonBundle(const std::filesystem::path& dictionary, std::optional<std::string> executable)
    : m_executable(std::move(executable)) {
    const auto contents = valueOfStoredJson(readSystemFile(dictionary.native()).value_or(""));
    if (!contents || !contents->is_object()) return;
    for (const auto& [key, value] : contents->items()) {
        if (value.is_string()) m_information.emplace(key, value.get<std::string>());
    }
}

JsonBundle JsonBundle::ofThisProcess() {
    const auto executable = runningExecutable();
    return {executable ? bundleDictionaryOf(*executable) : std::filesystem::path(), executable};
}

std::optional<std::string> JsonBundle::information(std::string_view key) const {
    const auto entry = m_information.find(key);
    if (entry == m_information.end() || entry->second.empty()) return std::nullopt;
    return entry->second;
}

std::filesystem::path bundleDictionaryOf(const std::filesystem::path& executable) {
    const std::filesystem::path folder = executable.parent_path();
    std::filesystem::path beside = folder / "bundle.json";
    std::error_code ignored;
    if (std::filesystem::exists(beside, ignored)) return beside;
    return folder.parent_path() / "share" / "velmora" / "bundle.json";
}

std::optional<std::string> runningExecutable() {
    return executableOfLink("/proc/self/exe");
}

}  // namespace velmora
