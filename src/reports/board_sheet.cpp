#include "reports/board_sheet.h"

#include "data/link_text.h"
#include "data/press_name.h"
#include "data/processor_registers.h"
#include "data/program_file_name.h"
#include "link/board_registers.h"

#include <QLocale>

#include <algorithm>
#include <array>

namespace tambrix {

using namespace board_registers;

namespace {

constexpr int kReadTries = 3;
constexpr int kBoardH810 = 65; // has a second network address
constexpr std::array kSwitchBoards = {62, 67, 69};
const QString kNotRead = QStringLiteral("not read");

/// Reads what the sheet shows; what a disturbed line did not bring says so.
class BoardReader
{
public:
    explicit BoardReader(RSComm& link) : m_link(link) {}

    std::optional<int> number(const std::string& address)
    {
        for (int tries = 0; tries < kReadTries && !m_link.CommError; ++tries) {
            const std::string value = m_link.RSRead(address);
            if (m_link.readSucceeded())
                return std::stoi(value);
        }
        return std::nullopt;
    }

    QString text(const std::string& address)
    {
        const auto value = number(address);
        return value ? QString::number(*value) : kNotRead;
    }

    QString programName()
    {
        std::string name;
        for (std::size_t i = 0; i < kProgramNameLength; ++i)
            name += static_cast<char>(
                number(byteRegister(kProgramName + static_cast<int>(i))).value_or('?'));
        return fromLink(printable(name)).trimmed();
    }

    /// Some of the clock's registers, two digits each.
    QString clockPart(std::initializer_list<Register> parts, QChar between)
    {
        QStringList texts;
        for (const Register& part : parts)
            texts += text(part.address).rightJustified(2, u'0');
        return texts.join(between);
    }

private:
    RSComm& m_link;
};

ReportTable factTable(const QString& title)
{
    return {title,
            {{QStringLiteral("What"), 3, Qt::AlignLeft},
             {QStringLiteral("Register"), 1.5, Qt::AlignLeft},
             {QStringLiteral("Old Board"), 3, Qt::AlignLeft},
             {QStringLiteral("New Board"), 3, Qt::AlignLeft}},
            {}};
}

/// The last column is for the pen.
void addFact(ReportTable& table, const QString& what, const std::string& where,
             const QString& value)
{
    table.blocks.push_back({{{what, fromLink(where), value, QString()}}});
}

void addRegister(ReportTable& table, BoardReader& board, const Register& which)
{
    addFact(table, QLatin1String(which.name), which.address, board.text(which.address));
}

ReportTable identityTable(BoardReader& board)
{
    ReportTable table = factTable(QStringLiteral("Program in the Board"));
    addFact(table, QStringLiteral("Name"), byteRegister(kProgramName), board.programName());
    for (const auto& [what, address] :
         {std::pair("Revision", kProgramRevision), std::pair("Checksum", kProgramChecksum),
          std::pair("Firmware Revision", kFirmwareRev)})
        addFact(table, QLatin1String(what), byteRegister(address),
                board.text(byteRegister(address)));
    return table;
}

ReportTable settingsTable(BoardReader& board, int boardType)
{
    ReportTable table = factTable(QStringLiteral("Board Settings"));
    addRegister(table, board, reg::kStation);
    addRegister(table, board, reg::kNetworkAddress1);
    if (boardType == kBoardH810)
        addRegister(table, board, reg::kNetworkAddress2);
    addFact(table, QStringLiteral("Clock: Date"), reg::kClockYear.address,
            QStringLiteral("20") +
                board.clockPart({reg::kClockYear, reg::kClockMonth, reg::kClockDay}, u'-'));
    addFact(table, QStringLiteral("Clock: Time"), reg::kClockHour.address,
            board.clockPart({reg::kClockHour, reg::kClockMinute, reg::kClockSecond}, u':'));
    for (const Register& which : {reg::kResolverScale, reg::kResolverOffset})
        addFact(table, QStringLiteral("Resolver: ") + QLatin1String(which.name), which.address,
                board.text(which.address));
    return table;
}

ReportTable switchTable(RSComm& link)
{
    ReportTable table = factTable(QStringLiteral("Limit Switch"));
    addFact(table, QStringLiteral("Scale Factor"), {}, fromLink(link.PLSScaleFactor()));
    addFact(table, QStringLiteral("Offset"), {}, fromLink(link.PLSOffset()));
    QStringList entries;
    for (const std::int16_t entry : link.PLSConfigUpload())
        entries += QString::number(entry);
    constexpr qsizetype kInARow = 8;
    for (qsizetype first = 0; first < entries.size(); first += kInARow)
        addFact(table, QStringLiteral("Configuration from %1 on").arg(first + 1), {},
                entries.mid(first, kInARow).join(u' '));
    return table;
}

/// The board does not tell its type over the line: the chosen program's file does.
QStringList notesOf(const ProgramState& state, const QDateTime& now, const QString& board,
                    bool hasSwitch)
{
    QStringList notes = {QStringLiteral("Read from the controller on %1.")
                             .arg(QLocale().toString(now, QLocale::ShortFormat)),
                         state.gProgramFilePath.isEmpty()
                             ? QStringLiteral("No program file was chosen; taken for a ") + board +
                                   u'.'
                             : QStringLiteral("Type by the chosen program file: ") + board};
    if (state.simulated)
        notes += QStringLiteral("The controller is the built-in simulated one.");
    if (!hasSwitch)
        notes += QStringLiteral("Limit switch: none on this type of board.");
    return notes + QStringList{QStringLiteral("Set-up, labels and counts are in the backup; the "
                                              "passcode is not printed."),
                               QStringLiteral("The order of work stands in the help: Moving a "
                                              "press to another board.")};
}

} // namespace

std::optional<Report> boardSheet(ProgramState& state, const QDateTime& now)
{
    if (!state.canReachBoard() || state.gLink.isBusy())
        return std::nullopt;
    const int boardType = ProgramFileTypeChar(state.gProgramFilePath);
    const bool hasSwitch = std::ranges::find(kSwitchBoards, boardType) != kSwitchBoards.end();
    const QString press = pressName(state.dataRoot);
    const QString type =
        fromLink(state.gLink.TargetboardName(static_cast<std::int16_t>(boardType)));
    Report sheet;
    sheet.name = QStringLiteral("Board Sheet") + (press.isEmpty() ? press : u' ' + press);
    sheet.date = QLocale().toString(now.date(), QLocale::ShortFormat);
    sheet.notes = notesOf(state, now, type, hasSwitch);
    BoardReader board(state.gLink);
    sheet.tables = {identityTable(board), settingsTable(board, boardType)};
    if (hasSwitch)
        sheet.tables.push_back(switchTable(state.gLink));
    return state.gLink.CommError ? std::nullopt : std::optional(sheet);
}

} // namespace tambrix
