#include "commands/board_commands.h"

#include "commands/interruption.h"
#include "commands/session.h"
#include "data/board_codes.h"
#include "data/link_text.h"
#include "data/processor_registers.h"
#include "link/board_registers.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

#include <array>

namespace tambrix {

namespace {

const QCommandLineOption kSet(QStringLiteral("set"),
                              QStringLiteral("Put this PC's time and date into the board."));
const QCommandLineOption kWhileRunning(QStringLiteral("while-running"),
                                       QStringLiteral("Also while the machine runs."));
const QCommandLineOption kYes(QStringLiteral("yes"),
                              QStringLiteral("Go on after the comparison of the identities."));

/// A stopped program or a jumping clock belongs to a machine that stands.
void refuseWhileRunning(Session& session, const CommandCall& call)
{
    const auto speed = session.read(reg::kMachineSpeed.address);
    if (speed > 0 && !call.parser.isSet(kWhileRunning))
        throw Failure{ExitCode::Refused,
                      QStringLiteral("the machine runs (%1 CPM); stop it, or give --while-running")
                          .arg(speed)};
}

/// One line "caption: text", or all of them as one JSON object.
class Facts
{
public:
    explicit Facts(Console& console) : m_console(console) {}

    void add(const QString& key, const QString& caption, const QString& text)
    {
        if (m_console.json())
            m_object.insert(key, text);
        else
            m_console.print(caption + QStringLiteral(": ") + text);
    }

    void finish()
    {
        if (m_console.json())
            m_console.print(m_object);
    }

private:
    Console& m_console;
    QJsonObject m_object;
};

struct Code
{
    const char* key;
    Register where;
    const char* texts; ///< file below Support
};

constexpr std::array kCodes = {
    Code{"currentFault", reg::kFaultCode, "FaultErrCodes.txt"},
    Code{"lastFault", reg::kLastFaultCode, "FaultErrCodes.txt"},
    Code{"currentCommError", reg::kNetworkError, "CommErrCodes.txt"},
    Code{"lastCommError", reg::kLastNetworkError, "CommErrCodes.txt"},
};

ExitCode showFaults(const CommandCall& call)
{
    catchInterruptions();
    Session session(call.common);
    session.goOnline();
    Facts facts(call.console);
    const QDir support = session.supportFolder();
    int lastFault = 0;
    for (const Code& code : kCodes) {
        stopIfInterrupted();
        const int value = static_cast<int>(session.read(code.where.address));
        const auto text = lastTextOf(codeText(value), support.filePath(QLatin1String(code.texts)));
        facts.add(QLatin1String(code.key), QLatin1String(code.where.name),
                  (codeText(value) + QStringLiteral("H ") + text.value_or(QString())).trimmed());
        if (code.where.address == std::string_view(reg::kLastFaultCode.address))
            lastFault = value;
    }
    facts.add(QStringLiteral("correctiveAction"), QStringLiteral("Corrective Action"),
              correctiveAction(lastFault));
    facts.finish();
    return ExitCode::Done;
}

ExitCode showIdentity(const CommandCall& call)
{
    using namespace board_registers;
    catchInterruptions();
    Session session(call.common);
    session.goOnline();
    std::string name;
    for (std::size_t i = 0; i < kProgramNameLength; ++i) {
        stopIfInterrupted();
        name += static_cast<char>(session.read(byteRegister(kProgramName + static_cast<int>(i))));
    }
    const auto number = [&session](const std::string& address) {
        return QString::number(session.read(address));
    };
    Facts facts(call.console);
    facts.add(QStringLiteral("name"), QStringLiteral("Name"), fromLink(printable(name)));
    facts.add(QStringLiteral("revision"), QStringLiteral("Revision"),
              number(byteRegister(kProgramRevision)));
    facts.add(QStringLiteral("checksum"), QStringLiteral("Checksum"),
              number(byteRegister(kProgramChecksum)));
    facts.add(QStringLiteral("firmware"), QStringLiteral("Firmware revision"),
              number(byteRegister(kFirmwareRev)));
    facts.add(QStringLiteral("networkAddress"), QStringLiteral("Network address 1"),
              number(reg::kNetworkAddress1.address));
    facts.finish();
    return ExitCode::Done;
}

QString boardTime(Session& session)
{
    const auto part = [&session](const Register& which) { return session.read(which.address); };
    const auto year = part(reg::kClockYear);
    const auto month = part(reg::kClockMonth);
    const auto day = part(reg::kClockDay);
    const auto hour = part(reg::kClockHour);
    const auto minute = part(reg::kClockMinute);
    const auto second = part(reg::kClockSecond);
    return QString::asprintf("20%02d-%02d-%02d %02d:%02d:%02d", static_cast<int>(year),
                             static_cast<int>(month), static_cast<int>(day), static_cast<int>(hour),
                             static_cast<int>(minute), static_cast<int>(second));
}

/// The seconds go last, so that the clock is right when it is done.
void setBoardTime(Session& session, const QDateTime& now)
{
    const std::array<std::pair<Register, int>, 6> parts = {
        {{reg::kClockYear, now.date().year() % 100},
         {reg::kClockMonth, now.date().month()},
         {reg::kClockDay, now.date().day()},
         {reg::kClockHour, now.time().hour()},
         {reg::kClockMinute, now.time().minute()},
         {reg::kClockSecond, now.time().second()}}};
    for (const auto& [which, value] : parts) {
        stopIfInterrupted();
        session.link().RSWrite(which.address, std::to_string(value));
        session.requireLink();
    }
    constexpr std::size_t kSteady = 4; // minute and second may have gone on
    for (std::size_t i = 0; i < kSteady; ++i) {
        if (session.read(parts[i].first.address) != parts[i].second)
            throw Failure{ExitCode::NotVerified,
                          QStringLiteral("the board did not take the time; it may have no clock")};
    }
}

ExitCode runClock(const CommandCall& call)
{
    catchInterruptions();
    Session session(call.common);
    session.goOnline();
    if (call.parser.isSet(kSet)) {
        refuseWhileRunning(session, call);
        setBoardTime(session, QDateTime::currentDateTime());
    }
    Facts facts(call.console);
    facts.add(QStringLiteral("time"), QStringLiteral("Board time"), boardTime(session));
    facts.finish();
    return ExitCode::Done;
}

/// Shows the comparison of disk and board, and answers it as the command was told.
bool identitiesAccepted(const CommandCall& call, const OperatorBox& box)
{
    for (const QString& line : fromLink(box.text).split(u'\n')) {
        if (!line.trimmed().isEmpty())
            call.console.note(line);
    }
    return call.parser.isSet(kYes);
}

/// What the link said at the end of a download, as exit code and line.
ExitCode downloadEnded(Session& session, const CommandCall& call)
{
    const bool lost = session.link().CommError;
    const QStringList lines = session.person().takeLines();
    const QString last =
        lines.isEmpty() ? QStringLiteral("the download did not begin") : lines.back();
    if (session.link().programLoaded()) {
        call.console.note(last);
        return ExitCode::Done;
    }
    if (!call.parser.isSet(kYes) && !lost)
        throw Failure{ExitCode::Refused,
                      QStringLiteral("nothing was sent; give --yes to load this program")};
    throw Failure{lost ? ExitCode::NoCommunication : ExitCode::NotVerified, last};
}

ExitCode loadProgram(const CommandCall& call)
{
    catchInterruptions();
    Session session(call.common);
    RSComm& link = session.link();
    link.DownloadFile(QFileInfo(call.arguments[0]).filesystemAbsoluteFilePath());
    if (!link.ValidProgram()) {
        const QStringList lines = session.person().takeLines();
        throw Failure{ExitCode::File,
                      lines.isEmpty()
                          ? QStringLiteral("there is no program file '%1'").arg(call.arguments[0])
                          : lines.back()};
    }
    session.goOnline();
    refuseWhileRunning(session, call);
    stopIfInterrupted(); // from here on the board would be left with half a program
    session.person().answer = [&call](const OperatorBox& box) {
        return identitiesAccepted(call, box);
    };
    link.DumpProgram([&] {
        if (link.InProgramMode())
            call.console.status(QStringLiteral("Writing to Program Address: ") +
                                fromLink(link.CurrentProgramAdd()));
    });
    return downloadEnded(session, call);
}

} // namespace

Command faultsCommand()
{
    Command command;
    command.name = QStringLiteral("faults");
    command.summary =
        QStringLiteral("Show the fault and network error codes with what to do about them.");
    command.example = QStringLiteral("tambrix-cli faults --json");
    command.run = showFaults;
    return command;
}

Command identifyCommand()
{
    Command command;
    command.name = QStringLiteral("identify");
    command.summary = QStringLiteral(
        "Show name, revision and checksum of the controller's program, and its address.");
    command.example = QStringLiteral("tambrix-cli identify --serial-device tcp://press3:4001");
    command.run = showIdentity;
    return command;
}

Command clockCommand()
{
    Command command;
    command.name = QStringLiteral("clock");
    command.summary = QStringLiteral("Show the board's clock, or set it to this PC's time.");
    command.example = QStringLiteral("tambrix-cli clock --set");
    command.options = {kSet, kWhileRunning};
    command.run = runClock;
    return command;
}

Command programCommand()
{
    Command command;
    command.name = QStringLiteral("program");
    command.arguments = QStringLiteral("FILE.fnx");
    command.fewest = command.most = 1;
    command.summary = QStringLiteral(
        "Load a controller program into the board. Without --yes the identities on disk and in the "
        "board are shown and nothing is sent. Once begun it is not interrupted.");
    command.example = QStringLiteral("tambrix-cli program --yes inkcontrol.fnx");
    command.options = {kYes, kWhileRunning};
    command.run = loadProgram;
    return command;
}

} // namespace tambrix
