#pragma once

#include "link/operator.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tambrix {

/// What the revision file says about a program.
struct ProgramIdentity
{
    std::string name = "Unknown";     ///< as in the file, one character a byte
    std::string revision = "Unknown"; ///< decimal, 0 to 255
    std::string checksum = "Unknown"; ///< decimal, 0 to 255
};

/// The three one-digit settings of the configuration file.
struct ProgramConfiguration
{
    int a = 3;
    int b = 0;
    int c = 3;
};

/// Splits a revision line: name, two digits of checksum, two digits of revision (MarkHEX). Other
/// text in their place reads as 0. Empty for a line of less than four characters.
std::optional<ProgramIdentity> parseRevisionLine(std::string_view line);

/// Takes the settings at columns 36, 39 and 40 (counted from 1). Empty when one is no digit.
std::optional<ProgramConfiguration> parseConfigurationLine(std::string_view line);

/// The first line of a file without its line end; empty for a file that is missing or empty.
std::optional<std::string> readFirstLine(const std::filesystem::path& file);

/// What a revision file says; empty when it is missing, empty or malformed.
std::optional<ProgramIdentity> readRevisionFile(const std::filesystem::path& file);

/// Text of the controller or of its files (one character a byte) as message text (UTF-8); what
/// cannot be printed shows as a blank.
std::string printable(std::string_view bytes);

/// The file set of a controller program: one base name with the extensions fnx, rev, hex, lcf.
class ProgramFiles
{
public:
    explicit ProgramFiles(Operator& person) : m_operator(person) {}

    /// Records the file set of `programFile` and checks it for a download; what is wrong is shown
    /// in a box. Afterwards `ValidProgram` tells whether a download may proceed. A file that does
    /// not exist changes nothing but that.
    void DownloadFile(const std::filesystem::path& programFile);

    /// Records the file set, the board type and its name, with no further checks.
    void UploadFile(const std::filesystem::path& programFile);

    bool ValidProgram() const { return m_valid; }

    /// Board type code of the program: the character code of its file's first character.
    std::int16_t boardType() const { return m_boardType; }
    const std::string& boardName() const { return m_boardName; }

    const ProgramIdentity& identity() const { return m_identity; }
    /// Whether the revision file could be read.
    bool identityKnown() const { return m_identityKnown; }
    const ProgramConfiguration& configuration() const { return m_configuration; }
    /// Whether boards of this type take the settings of the configuration file.
    bool hasConfiguration() const;

    const std::filesystem::path& programPath() const { return m_program; }
    const std::filesystem::path& imagePath() const { return m_image; }

private:
    void recordSet(const std::filesystem::path& programFile);
    void check();
    void readRevision();
    void readConfiguration();
    void refuse(const std::string& reason);
    std::string baseName() const;

    Operator& m_operator;
    std::filesystem::path m_program;
    std::filesystem::path m_revision;
    std::filesystem::path m_image;
    std::filesystem::path m_configurationFile;
    std::int16_t m_boardType = 0;
    std::string m_boardName;
    ProgramIdentity m_identity;
    ProgramConfiguration m_configuration;
    bool m_identityKnown = false;
    bool m_valid = false;
};

} // namespace tambrix
