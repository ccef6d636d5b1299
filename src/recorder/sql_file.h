#pragma once

#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <functional>
#include <unordered_map>

namespace tambrix {

/// How an SQL statement ended.
enum class SqlResult {
    Done,
    Busy,    ///< somebody else holds the file; later it goes
    Full,    ///< no room on the disk, or it cannot be written
    Damaged, ///< the file is no database, or a part of it cannot be right
    Missing, ///< Qt has no driver for it
    Failed,
};

/// One connection to an SQLite file. Not to be shared between threads.
class SqlFile
{
public:
    SqlFile();
    ~SqlFile() { close(); }
    SqlFile(const SqlFile&) = delete;
    SqlFile& operator=(const SqlFile&) = delete;

    /// Opens the file; makes it where there is none, or gives `Failed` with `mustExist`.
    SqlResult open(const QString& path, bool mustExist = false);
    void close();
    bool isOpen() const { return m_open; }

    /// Runs one statement with `values` for its question marks.
    SqlResult run(const QString& sql, const QVariantList& values = {});

    /// Runs one statement and calls `row` for every row that it gives.
    SqlResult select(const QString& sql, const QVariantList& values,
                     const std::function<void(const QSqlQuery&)>& row);

    /// The one number that a statement gives; `otherwise` where it gives none.
    qint64 number(const QString& sql, const QVariantList& values = {}, qint64 otherwise = 0);

    /// Why the last statement failed, as the database says it.
    const QString& reason() const { return m_reason; }

    /// Called before every statement. Tests end the program there.
    std::function<void()> beforeStatement;

private:
    SqlResult failed(const QSqlError& error);
    SqlResult execute(QSqlQuery& query, const QVariantList& values);

    QString m_name;
    bool m_open = false;
    QString m_reason;
    std::unordered_map<QString, QSqlQuery> m_prepared;
};

} // namespace tambrix
