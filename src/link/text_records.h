#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tambrix {

/// One record of a code text file: a code in hexadecimal and its description.
struct TextRecord
{
    std::string code;
    std::string text;
};

/// Reads a file of records, one a line: code, comma, description, each plain or in double quotes
/// (a quote inside is doubled, and a line break inside is kept). Returns nothing when there is
/// no such file, it cannot be read, or is longer than 1 MiB.
std::optional<std::vector<TextRecord>> readTextRecords(const std::filesystem::path& file);

} // namespace tambrix
