#include "tests/kills/savers.h"

#include "data/backups.h"
#include "data/label_names.h"
#include "data/own_file.h"
#include "data/press_name.h"
#include "data/setup_file.h"
#include "data/setup_file_source.h"
#include "data/trace_text.h"
#include "data/whole_file.h"
#include "link/settings_file.h"
#include "platform/connection.h"
#include "recorder/history_store.h"

#include <algorithm>

namespace tambrix {

namespace {

/// A data set whose every value is the version's number.
SetupDataRecord dataOf(int number)
{
    SetupDataRecord record = defaultSetupData("TAMBRIX_R1.0.0");
    std::ranges::fill(record.Value, number);
    return record;
}

std::optional<int> versionIn(const QString& path)
{
    const auto data = loadSetupData(path);
    const auto* record = std::get_if<SetupDataRecord>(&data);
    if (record == nullptr ||
        std::ranges::adjacent_find(record->Value, std::not_equal_to()) != record->Value.end())
        return std::nullopt;
    return record->Value.front();
}

Saver setupFile()
{
    const auto path = [](const QDir& folder) { return folder.filePath("press.sdt"); };
    return {"set-up file",
            [path](const QDir& folder, int number) {
                return writeWholeFile(path(folder),
                                      QByteArray::fromStdString(setupFileBytes(dataOf(number))));
            },
            [path](const QDir& folder) { return versionIn(path(folder)); }};
}

/// The latest of them is the version; none may be anything but whole.
std::optional<int> latestBackup(const QDir& folder)
{
    std::optional<int> latest;
    for (const BackupFile& file : Backups(folder).list()) {
        const auto version = versionIn(file.path);
        if (!version)
            return std::nullopt;
        latest = std::max(latest.value_or(0), *version);
    }
    return latest;
}

Saver backup()
{
    return {"backup",
            [](const QDir& folder, int number) -> std::optional<QString> {
                const QDateTime when(QDate(2026, 1, 1).addDays(number), QTime(6, 0));
                const auto saved = Backups(folder).save(dataOf(number), when, "press");
                const auto* refusal = std::get_if<Refusal>(&saved);
                return refusal == nullptr ? std::nullopt : std::optional(refusal->reason);
            },
            latestBackup};
}

std::filesystem::path settingsIn(const QDir& folder)
{
    return std::filesystem::path(folder.filePath("RSPort.cfg").toStdU16String());
}

Saver settings()
{
    return {"serial settings",
            [](const QDir& folder, int number) -> std::optional<QString> {
                std::error_code error;
                writeCommSettings(settingsIn(folder), {2 + number % 90, "19200"}, error);
                return error ? std::optional(QString::fromStdString(error.message()))
                             : std::nullopt;
            },
            [](const QDir& folder) -> std::optional<int> {
                const CommSettings found = readCommSettings(settingsIn(folder));
                return found.speed == "19200" ? std::optional(found.port - 2) : std::nullopt;
            },
            true};
}

/// The number of a text such as "press 12.", whose end is there.
std::optional<int> numberIn(const QString& text)
{
    const QString number = text.section(u' ', -1);
    return number.endsWith(u'.') ? std::optional(number.chopped(1).toInt()) : std::nullopt;
}

Saver press()
{
    return {"press name",
            [](const QDir& folder, int number) {
                return setPressName(folder, QStringLiteral("press %1.").arg(number));
            },
            [](const QDir& folder) { return numberIn(pressName(folder)); }};
}

Saver labelNames()
{
    const auto path = [](const QDir& folder) { return folder.filePath("press.sdt"); };
    return {"label names",
            [path](const QDir& folder, int number) {
                LabelNames names;
                for (int label = 0; label < kLabels; ++label)
                    names.set(label, QStringLiteral("can %1.").arg(number));
                return saveLabelNames(path(folder), names);
            },
            [path](const QDir& folder) -> std::optional<int> {
                const LabelNames names = loadLabelNames(path(folder)).names;
                for (int label = 1; label < kLabels; ++label) {
                    if (names.of(label) != names.of(0))
                        return std::nullopt;
                }
                return numberIn(names.of(0));
            }};
}

Saver connection()
{
    return {
        "connection",
        [](const QDir& folder, int number) {
            const QString device = QStringLiteral("line %1.").arg(number);
            return writeConnection(connectionFile(folder),
                                   {Connection::Kind::Device, device, {}, 0});
        },
        [](const QDir& folder) { return numberIn(readConnection(connectionFile(folder)).device); }};
}

/// Options, last backup, windows: what the program keeps through Qt.
Saver options()
{
    const auto path = [](const QDir& folder) { return folder.filePath("options.ini"); };
    return {"options",
            [path](const QDir& folder, int number) {
                return keepOwnSetting(path(folder), "number", number);
            },
            [path](const QDir& folder) -> std::optional<int> {
                return ownSetting(path(folder), "number").toInt();
            }};
}

constexpr int kExchanges = 200; // of a trace

/// Of files that are each all of one number, the highest.
std::optional<int> latestTrace(const QDir& folder)
{
    std::optional<int> latest;
    for (const QString& name : folder.entryList({"Trace *.txt"}, QDir::Files)) {
        LineTrace trace(kExchanges);
        if (!loadTrace(folder.filePath(name), trace).isEmpty() || trace.end() != kExchanges)
            return std::nullopt;
        const int number = static_cast<int>(trace.at(0).sent / std::chrono::seconds(1));
        latest = std::max(latest.value_or(0), number);
    }
    return latest;
}

Saver lineTrace()
{
    return {"line trace",
            [](const QDir& folder, int number) {
                LineTrace trace(kExchanges);
                for (int i = 0; i < kExchanges; ++i)
                    trace.add({std::chrono::seconds(number), {}, 0x12, 0x34});
                return keepTrace(trace, QDir(folder.filePath("Traces")),
                                 QDateTime(QDate(2026, 1, 1), QTime(6, 0)).addSecs(number));
            },
            [](const QDir& folder) { return latestTrace(QDir(folder.filePath("Traces"))); }};
}

/// Every batch has the same rows, each with the version's number.
Saver history()
{
    constexpr int kRows = 50; // counted below
    const auto path = [](const QDir& folder) { return folder.filePath("History.db"); };
    return {"history",
            [path](const QDir& folder, int number) -> std::optional<QString> {
                HistoryBatch batch;
                batch.begin = 1;
                batch.end = number;
                for (int address = 0; address < kRows; ++address)
                    batch.values.push_back({number, address, number});
                QString told;
                HistoryStore store(path(folder), [&told](const QString& text) { told = text; });
                const bool stored = store.append(batch) == HistoryStore::Outcome::Stored;
                return stored ? std::nullopt : std::optional(told);
            },
            [path](const QDir& folder) -> std::optional<int> {
                SqlFile file;
                const bool whole = file.open(path(folder), true) == SqlResult::Done &&
                                   file.number("SELECT count(*) FROM (SELECT t FROM value GROUP BY "
                                               "t HAVING count(*) <> 50)",
                                               {}, 1) == 0;
                const qint64 number = file.number("SELECT max(value) FROM value");
                return whole ? std::optional(static_cast<int>(number)) : std::nullopt;
            }};
}

} // namespace

const std::vector<Saver>& savers()
{
    static const std::vector<Saver> all = {setupFile(), backup(),     settings(),
                                           press(),     labelNames(), connection(),
                                           options(),   lineTrace(),  history()};
    return all;
}

} // namespace tambrix
