#pragma once

#include "platform/linux/desktop/DesktopEntries.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Which application a program is, by the file names in the entries' commands and by the class of their
/// windows, which mostly is the program's name too. Of several applications that start one program, the one
/// that is in the menus and starts it without arguments has it.
class ProgramIndex {
public:
    ProgramIndex() = default;
    explicit ProgramIndex(const std::vector<DesktopEntries::Found>& entries);

    /// By the file name of the executable. Null for one that no application starts, and for an interpreter,
    /// which says nothing of what it runs.
    DesktopEntries::Found find(std::string_view program) const;

    /// The file name of the program that a command is for: what `env` and the like start. Empty if a further
    /// program decides what runs.
    static std::string_view programOf(const std::vector<std::string>& command);

private:
    /// The smaller, the likelier.
    using Rank = std::size_t;
    struct Candidate {
        Rank rank;
        DesktopEntries::Found entry;
    };
    using Candidates = std::map<std::string, Candidate, std::less<>>;

    static void add(std::string_view name, Rank rank, const DesktopEntries::Found& entry,
                    Candidates& candidates);

    Candidates m_programs;
    Candidates m_windowClasses;  ///< In lower case.
};

}  // namespace velmora
