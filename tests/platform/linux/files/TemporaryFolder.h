#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A folder of a test's own that goes with the test.
class TemporaryFolder {
public:
    TemporaryFolder() : TemporaryFolder(std::filesystem::temp_directory_path()) {}
    explicit TemporaryFolder(const std::filesystem::path& parent) {
        std::string name = (parent / "velmora-test-XXXXXX").native();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        m_path = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

    /// Writes a file below the folder, making the folders above it.
    std::filesystem::path write(const std::string& name, std::string_view contents) const {
        const std::filesystem::path file = m_path / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary)
            .write(contents.data(), static_cast<std::streamsize>(contents.size()));
        return file;
    }
    /// Names of what lies directly in the folder, or in one below it, sorted.
    std::vector<std::string> names(const std::string& below = "") const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path / below)) {
            names.push_back(entry.path().filename().native());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    static std::string contentsOf(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path m_path;
};

}  // namespace velmora
