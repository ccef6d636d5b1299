#include "recorder/sql_file.h"

#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>

#include <atomic>

namespace tambrix {

namespace {

const QString kDriver = QStringLiteral("QSQLITE");
/// How long a statement waits for another program, ms. The board waits as long.
const QString kOptions = QStringLiteral("QSQLITE_BUSY_TIMEOUT=100");

QString freshName()
{
    static std::atomic<int> count = 0;
    return QStringLiteral("tambrix-history-%1").arg(++count);
}

/// SQLite's own numbers; a part of them comes with more bits above the lowest eight.
SqlResult resultOf(int code)
{
    switch (code & 0xFF) {
    case 5: // busy
    case 6: // locked
        return SqlResult::Busy;
    case 8:  // read-only
    case 10: // input or output failed
    case 13: // full
    case 14: // cannot be opened
        return SqlResult::Full;
    case 11: // corrupt
    case 26: // no database
        return SqlResult::Damaged;
    default:
        return SqlResult::Failed;
    }
}

} // namespace

SqlFile::SqlFile() : m_name(freshName()) {}

SqlResult SqlFile::open(const QString& path, bool mustExist)
{
    close();
    if (!QSqlDatabase::isDriverAvailable(kDriver)) {
        m_reason = QStringLiteral("Qt's driver for SQLite is missing.");
        return SqlResult::Missing;
    }
    if (mustExist && !QFileInfo::exists(path))
        return SqlResult::Failed;
    QSqlDatabase database = QSqlDatabase::addDatabase(kDriver, m_name);
    database.setDatabaseName(path);
    database.setConnectOptions(kOptions);
    m_open = database.open();
    return m_open ? SqlResult::Done : failed(database.lastError());
}

void SqlFile::close()
{
    m_prepared.clear();
    m_open = false;
    if (QSqlDatabase::contains(m_name)) {
        QSqlDatabase::database(m_name, false).close();
        QSqlDatabase::removeDatabase(m_name);
    }
}

SqlResult SqlFile::failed(const QSqlError& error)
{
    m_reason = error.text();
    return resultOf(error.nativeErrorCode().toInt());
}

SqlResult SqlFile::execute(QSqlQuery& query, const QVariantList& values)
{
    if (beforeStatement)
        beforeStatement();
    for (int i = 0; i < values.size(); ++i)
        query.bindValue(i, values[i]);
    return query.exec() ? SqlResult::Done : failed(query.lastError());
}

SqlResult SqlFile::run(const QString& sql, const QVariantList& values)
{
    return select(sql, values, [](const QSqlQuery&) {});
}

SqlResult SqlFile::select(const QString& sql, const QVariantList& values,
                          const std::function<void(const QSqlQuery&)>& row)
{
    auto found = m_prepared.find(sql);
    if (found == m_prepared.end()) {
        QSqlQuery fresh(QSqlDatabase::database(m_name, false));
        fresh.setForwardOnly(true);
        if (!fresh.prepare(sql))
            return failed(fresh.lastError());
        found = m_prepared.emplace(sql, std::move(fresh)).first;
    }
    QSqlQuery& query = found->second;
    const SqlResult result = execute(query, values);
    while (result == SqlResult::Done && query.next())
        row(query);
    const QSqlError end = query.lastError();
    query.finish();
    return result == SqlResult::Done && end.isValid() ? failed(end) : result;
}

qint64 SqlFile::number(const QString& sql, const QVariantList& values, qint64 otherwise)
{
    qint64 found = otherwise;
    select(sql, values, [&](const QSqlQuery& row) {
        if (!row.isNull(0))
            found = row.value(0).toLongLong();
    });
    return found;
}

} // namespace tambrix
