#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace tambrix {

/// Port numbers that the settings dialog's spinner offers and the settings file may name.
inline constexpr int kLowestPort = 1;
inline constexpr int kHighestPort = 99;

/// The serial settings: what the one line "1,9600" of RSPort.cfg says.
struct CommSettings
{
    int port = 1;               ///< 1 to 99
    std::string speed = "9600"; ///< "9600" or "19200", in bits a second
};

/// Reads the settings file's line. Ports outside 1 to 99 are moved to the nearer bound and a
/// speed other than 9600 and 19200 becomes 9600; the file is left as it is. A file that is
/// missing (with its folder) or empty is written with the defaults. `error` tells a file that
/// could not be read or written.
CommSettings readOrCreateCommSettings(const std::filesystem::path& file, std::error_code& error);

/// What the settings file says, without touching it: the defaults when it is missing or empty.
CommSettings readCommSettings(const std::filesystem::path& file);

/// Writes the file's one line, port, comma, speed, CR LF, creating its folder when missing. It
/// takes the old file's place when it is complete: a program that ends in between, or a full disk,
/// leaves the old settings.
void writeCommSettings(const std::filesystem::path& file, const CommSettings& settings,
                       std::error_code& error);

} // namespace tambrix
