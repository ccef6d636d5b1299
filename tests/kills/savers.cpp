#include "tests/kills/savers.h"

#include "data/backups.h"
#include "data/press_name.h"
#include "data/setup_file.h"
#include "data/setup_file_source.h"
#include "data/whole_file.h"
#include "link/settings_file.h"

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
            }};
}

Saver press()
{
    return {"press name",
            [](const QDir& folder, int number) {
                return setPressName(folder, QStringLiteral("press %1.").arg(number));
            },
            [](const QDir& folder) -> std::optional<int> {
                const QString name = pressName(folder);
                return name.endsWith('.') ? std::optional(name.mid(6).chopped(1).toInt())
                                          : std::nullopt;
            }};
}

} // namespace

const std::vector<Saver>& savers()
{
    static const std::vector<Saver> all = {setupFile(), backup(), settings(), press()};
    return all;
}

} // namespace tambrix
