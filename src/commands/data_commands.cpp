#include "commands/data_commands.h"

#include "commands/choice.h"
#include "commands/data_access.h"
#include "commands/interruption.h"
#include "data/backups.h"
#include "data/comparison.h"
#include "data/link_text.h"
#include "data/press_name.h"
#include "data/version.h"

#include <QFileInfo>
#include <QJsonObject>

namespace tambrix {

namespace {

const QString kUsual = QStringLiteral("setup+labels");
const QCommandLineOption kBackup(QStringLiteral("backup"),
                                 QStringLiteral("Save what the controller held before as <FILE> "
                                                "(default: a new file in Backups)."),
                                 QStringLiteral("FILE"));
const QCommandLineOption kNoBackup(QStringLiteral("no-backup"), QStringLiteral("Save no backup."));
const QCommandLineOption kDryRun(QStringLiteral("dry-run"),
                                 QStringLiteral("Show what would be written; write nothing."));
const QCommandLineOption kForce(QStringLiteral("force"),
                                QStringLiteral("Also values outside a screen's range."));
const QCommandLineOption
    kAcceptVersion(QStringLiteral("accept-version"),
                   QStringLiteral("Also a file that another version of the program has saved."));

QString nameAt(int index)
{
    return index <= gDataUpperBound ? fromLink(nameOf(entryAt(index)))
                                    : QStringLiteral("unknown entry");
}

QJsonValue jsonValue(const std::optional<std::int32_t>& value)
{
    return value ? QJsonValue(*value) : QJsonValue();
}

QString valueText(const std::optional<std::int32_t>& value)
{
    return value ? QString::number(*value) : QStringLiteral("-");
}

/// One entry with both values; `counts` tells whether it is part of the verdict.
void printDifference(Console& console, const ComparedEntry& entry, int index, bool counts)
{
    const QString address = fromLink(entry.address);
    if (console.json()) {
        console.print(QJsonObject{{QStringLiteral("register"), address},
                                  {QStringLiteral("name"), nameAt(index)},
                                  {QStringLiteral("left"), jsonValue(entry.left)},
                                  {QStringLiteral("right"), jsonValue(entry.right)},
                                  {QStringLiteral("counts"), counts}});
        return;
    }
    console.print(
        QStringLiteral("%1 %2 -> %3  %4%5")
            .arg(address, -6)
            .arg(valueText(entry.left), 6)
            .arg(valueText(entry.right), -6)
            .arg(nameAt(index), counts ? QString() : QStringLiteral("  (not in the verdict)")));
}

void requireVersion(const SetupDataRecord& record, const CommandCall& call)
{
    if (record.Version != kFileVersion && !call.parser.isSet(kAcceptVersion))
        throw Failure{
            ExitCode::Refused,
            QStringLiteral("the file was saved by version '%1'; --accept-version takes it")
                .arg(QString::fromLatin1(record.Version.c_str()))};
}

ExitCode upload(const CommandCall& call)
{
    const QString& path = call.arguments[0];
    const Choice choice = readChoice(call.parser, QStringLiteral("all"));
    SetupDataRecord record = defaultSetupData(kFileVersion);
    if (!choice.everything() && QFileInfo::exists(path))
        record = loadedFile(path);
    catchInterruptions();
    Session session(call.common);
    session.goOnline();
    const SetupDataRecord read = readController(session, call.console);
    for (int slot = 0; slot <= gDataUpperBound; ++slot) {
        const auto i = static_cast<std::size_t>(slot);
        if (choice.contains(slot)) {
            record.Address[i] = read.Address[i];
            record.Value[i] = read.Value[i];
        }
    }
    record.Version = kFileVersion;
    saveFile(path, record);
    call.console.note(QStringLiteral("saved %1").arg(path));
    return ExitCode::Done;
}

ExitCode compare(const CommandCall& call)
{
    const QString right = call.arguments.value(1, QStringLiteral("-"));
    const Choice choice = readChoice(call.parser, kUsual);
    const SetupDataRecord leftData = loadedFile(call.arguments[0]);
    SetupDataRecord rightData;
    if (right == QLatin1String("-")) {
        catchInterruptions();
        Session session(call.common);
        session.goOnline();
        rightData = readController(session, call.console);
    } else {
        rightData = loadedFile(right);
    }
    const Comparison comparison(leftData, rightData);
    int differences = 0;
    for (int index = 0; index < static_cast<int>(comparison.entries().size()); ++index) {
        const ComparedEntry& entry = comparison.entries()[static_cast<std::size_t>(index)];
        const bool counts = Comparison::countsForVerdict(index);
        const bool chosen = index > gDataUpperBound || !counts || choice.contains(index);
        if (!entry.differs() || !chosen)
            continue;
        differences += counts ? 1 : 0;
        printDifference(call.console, entry, index, counts);
    }
    call.console.note(differences == 0 ? QStringLiteral("No differences.")
                                       : QStringLiteral("%1 values differ.").arg(differences));
    return differences == 0 ? ExitCode::Done : ExitCode::Differs;
}

/// Ticks what is to be written. Throws Failure (exit code 2) after naming every value that must
/// not be written.
void tickChosen(Comparison& comparison, const Choice& choice, const CommandCall& call)
{
    std::vector<int> chosen;
    bool refused = false;
    for (int slot = 0; slot <= gDataUpperBound; ++slot) {
        const ComparedEntry& entry = comparison.entries()[static_cast<std::size_t>(slot)];
        if (choice.contains(slot) && slot != kCurrentLabelSlot && entry.differs())
            chosen.push_back(slot);
    }
    comparison.tick(chosen, true);
    for (const int slot : chosen) {
        const ComparedEntry& entry = comparison.entries()[static_cast<std::size_t>(slot)];
        if (!entry.concern.refused() && (!entry.concern.unusual() || call.parser.isSet(kForce)))
            continue;
        refused = true;
        call.console.complain(QStringLiteral("%1 = %2 (%3): %4")
                                  .arg(fromLink(entry.address), valueText(entry.left), nameAt(slot),
                                       concernText(entry.concern)));
    }
    if (refused)
        throw Failure{ExitCode::Usage, QStringLiteral("nothing was written")};
}

void backUp(const SetupDataRecord& before, const CommandCall& call, const QDir& dataRoot)
{
    if (call.parser.isSet(kNoBackup) || call.parser.isSet(kDryRun))
        return;
    if (call.parser.isSet(kBackup)) {
        saveFile(call.parser.value(kBackup), before);
        call.console.note(QStringLiteral("backup: %1").arg(call.parser.value(kBackup)));
        return;
    }
    const auto saved =
        Backups(dataRoot).save(before, QDateTime::currentDateTime(), pressName(dataRoot));
    if (const auto* refusal = std::get_if<Refusal>(&saved))
        throw Failure{ExitCode::File, refusal->reason + QStringLiteral("; nothing was written")};
    call.console.note(QStringLiteral("backup: %1").arg(std::get<QString>(saved)));
}

/// Names what does not stand on the controller as wanted, and how many values do.
void printOutcome(Console& console, const std::vector<RestoreRow>& rows)
{
    for (const RestoreRow& row : rows) {
        const QString address = fromLink(row.address);
        if (row.state == WriteState::Different)
            console.complain(QStringLiteral("%1: wanted %2, found %3")
                                 .arg(address)
                                 .arg(row.value)
                                 .arg(row.found));
        else if (row.state == WriteState::Unknown || row.state == WriteState::Written)
            console.complain(QStringLiteral("%1: wanted %2, unknown whether it was written")
                                 .arg(address)
                                 .arg(row.value));
    }
    console.note(QStringLiteral("%1 of %2 values written and verified")
                     .arg(countOf(rows, WriteState::Verified))
                     .arg(rows.size()));
}

ExitCode writeRows(Session& session, std::vector<RestoreRow> rows, Console& console)
{
    Restore restore(session.link(), std::move(rows));
    while (!restore.ended() && !interrupted()) {
        restore.step();
        console.progress(QStringLiteral("Writing"), restore.progress(), restore.total());
    }
    console.endProgress();
    const std::vector<RestoreRow> done = restore.rows();
    printOutcome(console, done);
    if (session.link().CommError)
        throw session.lost(QStringLiteral("the controller was lost"));
    if (countOf(done, WriteState::Verified) == static_cast<int>(done.size()))
        return ExitCode::Done;
    return interrupted() ? ExitCode::Interrupted : ExitCode::NotVerified;
}

ExitCode download(const CommandCall& call)
{
    const Choice choice = readChoice(call.parser, kUsual);
    const SetupDataRecord wanted = loadedFile(call.arguments[0]);
    requireVersion(wanted, call);
    catchInterruptions();
    Session session(call.common);
    session.goOnline();
    const SetupDataRecord before = readController(session, call.console);
    Comparison comparison(wanted, before);
    tickChosen(comparison, choice, call);
    const std::vector<RestoreRow> rows = comparison.tickedRows();
    if (call.parser.isSet(kDryRun)) {
        for (int slot = 0; slot <= gDataUpperBound; ++slot) {
            const ComparedEntry& entry = comparison.entries()[static_cast<std::size_t>(slot)];
            if (entry.ticked)
                printDifference(call.console, entry, slot, true);
        }
        return rows.empty() ? ExitCode::Done : ExitCode::Differs;
    }
    if (rows.empty()) {
        call.console.note(QStringLiteral("No differences; nothing was written."));
        return ExitCode::Done;
    }
    backUp(before, call, session.dataRoot());
    stopIfInterrupted("nothing was written");
    return writeRows(session, rows, call.console);
}

} // namespace

Command uploadCommand()
{
    Command command;
    command.name = QStringLiteral("upload");
    command.arguments = QStringLiteral("OUT.sdt");
    command.fewest = command.most = 1;
    command.summary = QStringLiteral("Read the controller's data set into a set-up file. With "
                                     "--group the rest of the file stays "
                                     "as it is; in a new file it is what New starts from.");
    command.example = QStringLiteral("tambrix-cli upload press3.sdt --serial-device /dev/ttyUSB0");
    command.options = choiceOptions();
    command.run = upload;
    return command;
}

Command downloadCommand()
{
    Command command;
    command.name = QStringLiteral("download");
    command.arguments = QStringLiteral("IN.sdt");
    command.fewest = command.most = 1;
    command.summary = QStringLiteral(
        "Write what differs from a set-up file into the controller: set-up and labels, or --group. "
        "The controller's data set is backed up before and read back after. The label number is "
        "never written.");
    command.example = QStringLiteral("tambrix-cli download press3.sdt --labels 10-19 --dry-run");
    command.options = choiceOptions() + QList<QCommandLineOption>{kBackup, kNoBackup, kDryRun,
                                                                  kForce, kAcceptVersion};
    command.run = download;
    return command;
}

Command compareCommand()
{
    Command command;
    command.name = QStringLiteral("compare");
    command.arguments = QStringLiteral("A [B]");
    command.fewest = 1;
    command.most = 2;
    command.summary = QStringLiteral(
        "Compare set-up file A with set-up file B, or with the controller where B is missing or "
        "'-'. "
        "Shift counts and the label number are shown, but are not part of the verdict.");
    command.example =
        QStringLiteral("tambrix-cli compare press3.sdt || mail -s 'press 3 differs' me");
    command.options = choiceOptions();
    command.run = compare;
    return command;
}

} // namespace tambrix
