#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tambrix {

/// A controller program for trying things out. It does nothing on a real board.
struct SampleProgram
{
    char boardType = 'D'; ///< type character of the board it is for; 'D' is the Q900
    std::string name = "DUCTCTR2";
    std::uint8_t revision = 4;
    int settingA = 3; ///< 0 to 9, for boards that take a configuration file
    int settingB = 0;
    int settingC = 3;
    std::uint16_t address = 0;  ///< where it is loaded
    std::size_t size = 2000;    ///< bytes
    std::size_t perRecord = 16; ///< bytes in a record, 1 to 254

    /// The program's bytes: every value occurs, and no two records are alike.
    std::vector<std::uint8_t> bytes() const;
    /// Low byte of their sum.
    std::uint8_t checksum() const;
    /// The image file's text, with digits in the controller's own form.
    std::string imageText() const;
};

/// Writes the four files of the set (fnx, rev, hex, lcf), base name `baseName`, into `folder` and
/// returns the path of the program file. Throws std::ios_base::failure when it cannot.
std::filesystem::path writeSampleProgram(const SampleProgram& program,
                                         const std::filesystem::path& folder,
                                         const std::string& baseName);

} // namespace tambrix
