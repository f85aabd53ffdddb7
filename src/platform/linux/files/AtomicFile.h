#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace velmora {

/// Replaces a file's contents whole: a reader, or a crash at any moment, sees the old contents or the new
/// ones. Missing folders are made. On failure the old file stays as it is and no other file is left behind.
std::error_code writeAtomically(const std::filesystem::path& file, std::string_view contents);

}  // namespace velmora
