#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tambrix {

/// The file's whole content. Nothing when it is longer than `longest` bytes, in which case none of
/// it is read, when it cannot be read, or is no plain file: a device or a pipe might never end.
std::optional<std::string> readBounded(const std::filesystem::path& file, std::uintmax_t longest);

/// The first bytes of a plain file, at most `most` of them. Nothing when it cannot be read.
std::optional<std::string> readStart(const std::filesystem::path& file, std::uintmax_t most);

} // namespace tambrix
