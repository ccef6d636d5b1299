#include "link/bounded_file.h"

#include <algorithm>
#include <fstream>

namespace tambrix {

namespace fs = std::filesystem;

namespace {

/// Nothing where there is no plain file.
std::optional<std::uintmax_t> sizeOf(const fs::path& file)
{
    std::error_code error;
    if (!fs::is_regular_file(file, error))
        return std::nullopt;
    const std::uintmax_t size = fs::file_size(file, error);
    return error ? std::nullopt : std::optional(size);
}

} // namespace

std::optional<std::string> readBounded(const fs::path& file, std::uintmax_t longest)
{
    const auto size = sizeOf(file);
    if (!size || *size > longest)
        return std::nullopt;
    auto content = readStart(file, *size);
    return content && content->size() == *size ? std::move(content) : std::nullopt;
}

std::optional<std::string> readStart(const fs::path& file, std::uintmax_t most)
{
    const auto size = sizeOf(file);
    std::ifstream stream;
    if (size)
        stream.open(file, std::ios::binary);
    if (!stream.is_open())
        return std::nullopt;
    std::string content(static_cast<std::size_t>(std::min(*size, most)), '\0');
    stream.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(stream.gcount()));
    return content;
}

} // namespace tambrix
