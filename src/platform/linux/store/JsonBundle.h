#pragma once

#include "platform/Bundle.h"

#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace velmora {

/// The information dictionary from a JSON file: one object of texts. A missing or broken file is an empty
/// one.
class JsonBundle final : public Bundle {
public:
    JsonBundle(const std::filesystem::path& dictionary, std::optional<std::string> executable);
    /// The bundle of the running program.
    static JsonBundle ofThisProcess();

    std::optional<std::string> information(std::string_view key) const override;
    std::optional<std::string> executablePath() const override { return m_executable; }

private:
    std::map<std::string, std::string, std::less<>> m_information;
    std::optional<std::string> m_executable;
};

/// Where an executable's dictionary lies: `bundle.json` beside it in a build tree, else
/// `../share/velmora/bundle.json` seen from its folder in an installed copy. The build tree comes first, so
/// that a development run never takes on the identity and the addresses of an installed program.
std::filesystem::path bundleDictionaryOf(const std::filesystem::path& executable);

/// Absolute path of the running executable, also when a package upgrade has replaced its file by now; nothing
/// if the kernel does not tell.
std::optional<std::string> runningExecutable();

}  // namespace velmora
