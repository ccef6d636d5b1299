#include "link/program_files.h"

#include "link/board_names.h"
#include "link/bounded_file.h"
#include "link/lenient_number.h"
#include "link/mark_hex.h"
#include "link/text.h"

#include <algorithm>

namespace tambrix {

namespace fs = std::filesystem;

namespace {

constexpr const char* kDownloadTitle = "Program Download";
constexpr std::size_t kIdentityDigits = 4; // checksum and revision, two digits each
constexpr std::size_t kLongestLine = 4096;

// Columns of the configuration line, counted from 0.
constexpr std::size_t kSettingA = 35;
constexpr std::size_t kSettingB = 38;
constexpr std::size_t kSettingC = 39;

enum class BoardKind { Controller, LimitSwitch, Other };

BoardKind kindOf(std::int16_t boardType)
{
    switch (boardType) {
    case 55:
    case 62:
    case 63:
    case 64:
    case 67:
    case 69:
        return BoardKind::LimitSwitch;
    case 57:
        return BoardKind::Other;
    default:
        return boardType >= 50 && boardType <= 68 ? BoardKind::Controller : BoardKind::Other;
    }
}

std::optional<int> settingAt(std::string_view line, std::size_t column)
{
    if (column >= line.size() || line[column] < '0' || line[column] > '9')
        return std::nullopt;
    return line[column] - '0';
}

/// The byte of two digits at `position`, in decimal; what is no digit ends the number.
std::string pairText(std::string_view line, std::size_t position)
{
    return std::to_string(leadingHex(MarkHex2HEX(line.substr(position, 2))));
}

/// The program path without its three-letter extension, with another one instead.
fs::path companion(const fs::path& program, std::string_view extension)
{
    fs::path::string_type base = program.native();
    base.resize(base.size() - std::min<std::size_t>(base.size(), 3));
    return fs::path(base) += extension;
}

} // namespace

std::optional<ProgramIdentity> parseRevisionLine(std::string_view line)
{
    if (line.size() < kIdentityDigits)
        return std::nullopt;
    const std::size_t digits = line.size() - kIdentityDigits;
    return ProgramIdentity{std::string(line.substr(0, digits)), pairText(line, digits + 2),
                           pairText(line, digits)};
}

std::optional<ProgramConfiguration> parseConfigurationLine(std::string_view line)
{
    const auto a = settingAt(line, kSettingA);
    const auto b = settingAt(line, kSettingB);
    const auto c = settingAt(line, kSettingC);
    if (!a || !b || !c)
        return std::nullopt;
    return ProgramConfiguration{*a, *b, *c};
}

std::optional<std::string> readFirstLine(const fs::path& file)
{
    const auto text = readStart(file, kLongestLine);
    if (!text || text->empty())
        return std::nullopt;
    return text->substr(0, text->find_first_of("\r\n"));
}

std::optional<ProgramIdentity> readRevisionFile(const fs::path& file)
{
    const auto line = readFirstLine(file);
    return line ? parseRevisionLine(*line) : std::nullopt;
}

std::string printable(std::string_view bytes)
{
    std::string text;
    for (const char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        const bool shows = code >= 0xA0 || (code >= 0x20 && code < 0x7F);
        text += shows ? utf8Character(code) : " ";
    }
    return text;
}

void ProgramFiles::DownloadFile(const fs::path& programFile)
{
    m_valid = false;
    std::error_code error;
    if (!fs::is_regular_file(programFile, error))
        return;
    recordSet(programFile);
    check();
}

void ProgramFiles::UploadFile(const fs::path& programFile)
{
    recordSet(programFile);
}

bool ProgramFiles::hasConfiguration() const
{
    return m_boardType >= 56 && m_boardType <= 65;
}

void ProgramFiles::recordSet(const fs::path& programFile)
{
    m_program = companion(programFile, "fnx");
    m_revision = companion(programFile, "rev");
    m_image = companion(programFile, "hex");
    m_configurationFile = companion(programFile, "lcf");
    const std::string line = readFirstLine(programFile).value_or(std::string());
    m_boardType = line.empty() ? std::int16_t{0} : static_cast<unsigned char>(line.front());
    m_boardName = TargetboardName(m_boardType);
}

void ProgramFiles::check()
{
    switch (kindOf(m_boardType)) {
    case BoardKind::Controller:
        readRevision();
        if (hasConfiguration())
            readConfiguration();
        break;
    case BoardKind::LimitSwitch:
        // kept: this text ends with a full stop, the others with an exclamation mark.
        m_operator.showMessage({BoxIcon::Information, BoxButtons::Ok, "PLS Program Download",
                                baseName() + " file is a PLS target board program.\r\n"
                                             "Open PLS program to download to target board.\r\n"
                                             "\r\n"
                                             "Program Downloaded Halted."});
        break;
    case BoardKind::Other:
        m_operator.showMessage({BoxIcon::Critical, BoxButtons::Ok, kDownloadTitle,
                                baseName() + " file is incompatible with target board.\r\n\r\n"
                                             "Program Downloaded Halted!"});
    }
}

// kept: the last reader that ran decides over the whole set.
void ProgramFiles::readRevision()
{
    const auto identity = readRevisionFile(m_revision);
    m_identity = identity.value_or(ProgramIdentity{});
    m_identityKnown = m_valid = identity.has_value();
    if (!m_valid)
        refuse(utf8Path(m_revision) + " Revision File is Not Valid");
}

void ProgramFiles::readConfiguration()
{
    const auto line = readFirstLine(m_configurationFile);
    const auto configuration = line ? parseConfigurationLine(*line) : std::nullopt;
    m_configuration = configuration.value_or(ProgramConfiguration{});
    m_valid = configuration.has_value();
    if (!m_valid)
        refuse(utf8Path(m_configurationFile) + " Configuration File is Not Valid");
}

void ProgramFiles::refuse(const std::string& reason)
{
    m_operator.showMessage({BoxIcon::Warning, BoxButtons::Ok, kDownloadTitle,
                            reason + "\r\n\r\nProgram Downloaded Halted!"});
}

std::string ProgramFiles::baseName() const
{
    return utf8Path(m_program.stem());
}

} // namespace tambrix
