#include "recorder/history_schema.h"

#include "recorder/history_batch.h"

namespace tambrix {

namespace {

QStringList firstTables()
{
    QStringList tables = {
        // One row for each time on line; what lies between two of them was off line.
        QStringLiteral("CREATE TABLE period(t0 INTEGER PRIMARY KEY, t1 INTEGER)"),
        QStringLiteral(
            "CREATE TABLE counts(t INTEGER PRIMARY KEY, d1, d2, d3, d4, d5, d6, d7, d8)"),
        QStringLiteral("CREATE TABLE reset(t INTEGER, ductor INTEGER, count INTEGER, "
                       "PRIMARY KEY(ductor, t)) WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE value(address INTEGER, t INTEGER, value INTEGER, "
                       "PRIMARY KEY(address, t)) WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE written(id INTEGER PRIMARY KEY, t INTEGER, address TEXT, "
                       "old TEXT, new TEXT, screen TEXT, label INTEGER, confirmed INTEGER)"),
        QStringLiteral("CREATE INDEX written_t ON written(t)"),
    };
    for (std::size_t bin = 0; bin < kSpeedBins.size(); ++bin)
        tables += QStringLiteral("CREATE TABLE %1(t INTEGER PRIMARY KEY, low, high, last)")
                      .arg(speedTable(bin));
    return tables;
}

} // namespace

QString speedTable(std::size_t bin)
{
    return QStringLiteral("speed_%1").arg(kSpeedBins.at(bin) / kSecond);
}

int historyVersion(SqlFile& file)
{
    return static_cast<int>(file.number(QStringLiteral("PRAGMA user_version")));
}

SqlResult makeHistoryTables(SqlFile& file)
{
    if (historyVersion(file) == kHistoryVersion)
        return SqlResult::Done;
    QStringList steps = {QStringLiteral("BEGIN IMMEDIATE")};
    steps += firstTables();
    steps += QStringLiteral("PRAGMA user_version=%1").arg(kHistoryVersion);
    steps += QStringLiteral("COMMIT");
    for (const QString& step : steps) {
        if (const SqlResult result = file.run(step); result != SqlResult::Done) {
            file.run(QStringLiteral("ROLLBACK"));
            return result;
        }
    }
    return SqlResult::Done;
}

} // namespace tambrix
