#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace tambrix::fuzzing {

/// Ends the program, as a crash does, when what must hold does not.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// What the fuzzer gave, as text.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// A file of its own for this process, for readers that take a path. Removed at the end.
class InputFile
{
public:
    InputFile() { std::filesystem::create_directories(m_folder); }
    ~InputFile()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Writes `text` over it and returns its path.
    const std::filesystem::path& holding(std::string_view text)
    {
        std::ofstream(m_path, std::ios::binary | std::ios::trunc) << text;
        return m_path;
    }

private:
    std::filesystem::path m_folder = std::filesystem::temp_directory_path() /
                                     ("tambrix-fuzz-" + std::to_string(std::random_device{}()));
    std::filesystem::path m_path = m_folder / "input";
};

} // namespace tambrix::fuzzing
