#pragma once

#include "base/ParseNumber.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace velmora {

/// A folder that stands for a machine: a test writes its `proc` and `sys` files, or shows a captured machine
/// in it. It is gone at the end.
class SystemTree {
public:
    SystemRoot root() const { return SystemRoot(m_folder.path().native()); }
    std::string path(std::string_view relative) const { return m_folder.path() / relative; }

    /// Overwrites in place, so who has the file open reads the new text.
    void write(std::string_view relative, std::string_view text) const {
        m_folder.write(std::string(relative), text);
    }
    void link(std::string_view relative, std::string_view target) const {
        const auto file = m_folder.path() / relative;
        std::filesystem::create_directories(file.parent_path());
        std::filesystem::remove(file);
        std::filesystem::create_symlink(target, file);
    }
    void remove(std::string_view relative) const { std::filesystem::remove_all(m_folder.path() / relative); }

    /// Shows a captured machine, such as "bare", or one moment of it, such as "microvm/frame-1", over what is
    /// there. Its symbolic links are the lines "path -> target" of `links.txt`: not every way in which
    /// sources travel keeps real ones.
    void show(std::string_view captured) const {
        const std::filesystem::path from = std::filesystem::path(VELMORA_FIXTURES) / captured;
        ASSERT_TRUE(std::filesystem::exists(from)) << from;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(from)) {
            const std::string relative = std::filesystem::relative(entry.path(), from);
            if (!entry.is_regular_file()) continue;
            const std::string text = TemporaryFolder::contentsOf(entry.path());
            if (relative == "links.txt") {
                linkAll(text);
            } else {
                write(relative, text);
            }
        }
    }

private:
    void linkAll(std::string_view lines) const {
        constexpr std::string_view kArrow = " -> ";
        while (!lines.empty()) {
            const std::string_view line = nextLine(lines);
            const auto arrow = line.find(kArrow);
            ASSERT_NE(arrow, std::string_view::npos) << line;
            link(line.substr(0, arrow), line.substr(arrow + kArrow.size()));
        }
    }

    TemporaryFolder m_folder;
};

}  // namespace velmora
