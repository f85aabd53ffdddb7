#pragma once

#include <string>
#include <string_view>

// The kernel keeps at most 15 bytes of a process's name, and programs rename their children at will, so what
// a user knows a program by comes from several places.

namespace velmora::ProcessNames {

/// The last component of a path; the text itself without a slash.
std::string_view lastComponent(std::string_view path);

/// A name as it can be shown and sent in lines: valid UTF-8, "?" for each control character, at most 255
/// bytes.
std::string shown(std::string_view name);

/// The name that the kernel keeps, or, if that was cut, the whole one: the file name of the executable or of
/// the first argument, whichever continues it.
std::string_view uncut(std::string_view comm, std::string_view executable, std::string_view firstArgument);
/// Whether the kernel may have cut the name.
bool mayBeCut(std::string_view comm);

/// What runs other people's programs: the name of the executable says nothing about them.
bool isInterpreter(std::string_view executable);

/// The name that all processes of one program share: the file name of the executable, unless that is unknown,
/// no file or an interpreter, in which case it is empty.
std::string_view ofProgram(std::string_view executable);

}  // namespace velmora::ProcessNames
