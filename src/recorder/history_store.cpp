#include "recorder/history_store.h"

#include "data/own_file.h"
#include "recorder/history_schema.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace tambrix {

namespace {

constexpr int kPruneStep = 500; // rows of a table at one go

const QString kCommit = QStringLiteral("COMMIT");
const QString kRollback = QStringLiteral("ROLLBACK");

template <typename Number> QVariant nullable(const std::optional<Number>& value)
{
    return value ? QVariant::fromValue(qint64{*value}) : QVariant();
}

/// "History damaged 2026-11-21 16-04-02.db" beside the file, never one that exists.
QString freePathBeside(const QFileInfo& file)
{
    const QString stamp =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
    const QString base = file.completeBaseName() + QStringLiteral(" damaged ") + stamp;
    const auto path = [&](const QString& title) {
        return file.dir().filePath(title + u'.' + file.suffix());
    };
    QString title = base;
    for (int i = 2; QFileInfo::exists(path(title)); ++i)
        title = base + QStringLiteral(" %1").arg(i);
    return path(title);
}

/// A table whose rows become old: the columns that name a row, and the one with its time.
struct Aging
{
    QString table;
    QString key;
    QString time;
};

std::vector<Aging> agingTables()
{
    const QString t = QStringLiteral("t");
    std::vector<Aging> all = {
        {QStringLiteral("counts"), t, t},
        {QStringLiteral("written"), QStringLiteral("id"), t},
        {QStringLiteral("reset"), QStringLiteral("ductor,t"), t},
        {QStringLiteral("period"), QStringLiteral("t0"), QStringLiteral("t1")}};
    for (std::size_t bin = 0; bin < kSpeedBins.size(); ++bin)
        all.push_back({speedTable(bin), t, t});
    return all;
}

/// Runs `insert` for every row, until one fails.
template <typename Rows, typename Insert> SqlResult forAll(const Rows& rows, Insert insert)
{
    for (const auto& row : rows) {
        if (const SqlResult result = insert(row); result != SqlResult::Done)
            return result;
    }
    return SqlResult::Done;
}

bool take(QLockFile& lock)
{
    return lock.tryLock(0) || (lock.error() == QLockFile::LockFailedError &&
                               removeNamelessLock(lock) && lock.tryLock(0));
}

} // namespace

HistoryStore::HistoryStore(QString file, std::function<void(const QString&)> tell)
    : m_path(std::move(file)), m_tell(std::move(tell))
{
}

HistoryStore::~HistoryStore()
{
    close();
}

void HistoryStore::close()
{
    m_file.close(); // before the lock goes
    m_lock.reset();
}

SqlResult HistoryStore::open()
{
    if (m_file.isOpen())
        return SqlResult::Done;
    m_obstacle = makeOwnFolder(QFileInfo(m_path).dir()).value_or(QString());
    if (m_obstacle.isEmpty() && isLink(m_path))
        m_obstacle = QStringLiteral("%1 is a link.").arg(QDir::toNativeSeparators(m_path));
    if (!m_obstacle.isEmpty())
        return SqlResult::Full;
    if (!m_lock) {
        m_lock = std::make_unique<QLockFile>(m_path + QStringLiteral(".lock"));
        m_lock->setStaleLockTime(0); // a run may last for months
    }
    if (!m_lock->isLocked() && !take(*m_lock))
        return m_lock->error() == QLockFile::LockFailedError ? SqlResult::Busy : SqlResult::Full;
    SqlResult result = m_file.open(m_path);
    if (result == SqlResult::Done)
        result = m_file.run(QStringLiteral("PRAGMA journal_mode=WAL"));
    if (result == SqlResult::Done)
        result = m_file.run(QStringLiteral("PRAGMA synchronous=NORMAL"));
    if (result == SqlResult::Done) // KiB; it only appends, and the program runs for months
        result = m_file.run(QStringLiteral("PRAGMA cache_size=-128"));
    if (result == SqlResult::Done && historyVersion(m_file) <= kHistoryVersion)
        result = makeHistoryTables(m_file);
    if (result != SqlResult::Done)
        m_file.close(); // half opened: the next time from the beginning
    return result;
}

HistoryStore::Outcome HistoryStore::append(const HistoryBatch& batch)
{
    SqlResult result = open();
    if (result == SqlResult::Busy && m_lock && !m_lock->isLocked()) {
        tellOnce(QStringLiteral("Another TAMBRIX on this folder records the history. This one "
                                "shows it and records nothing meanwhile."));
        return Outcome::Lost;
    }
    if (result == SqlResult::Done && historyVersion(m_file) > kHistoryVersion) {
        tellOnce(QStringLiteral("The history was written by a newer version of this program. "
                                "Nothing is recorded; the file stays as it is."));
        close(); // a program that can write it may
        return Outcome::Lost;
    }
    if (result == SqlResult::Done)
        result = m_file.run(QStringLiteral("BEGIN IMMEDIATE"));
    if (result == SqlResult::Done)
        result = insert(batch);
    if (result == SqlResult::Done)
        result = m_file.run(kCommit);
    if (result != SqlResult::Done)
        return failed(result);
    wentWell();
    return Outcome::Stored;
}

void HistoryStore::wentWell()
{
    if (m_told.isEmpty() || ++m_wentWell < kWellAgain)
        return;
    m_told.clear();
    m_tell(QStringLiteral("The history is recorded again."));
}

HistoryStore::Outcome HistoryStore::failed(SqlResult result)
{
    const QString reason = m_obstacle.isEmpty() ? m_file.reason() : m_obstacle;
    if (m_file.isOpen())
        m_file.run(kRollback);
    switch (result) {
    case SqlResult::Busy:
        return Outcome::Later;
    case SqlResult::Damaged:
        setAside();
        break;
    case SqlResult::Missing:
        tellOnce(QStringLiteral("No history is recorded:"), reason);
        break;
    default:
        m_file.close();
        tellOnce(QStringLiteral("The history cannot be written; recording goes on when it can "
                                "again."),
                 reason);
    }
    return Outcome::Lost;
}

SqlResult HistoryStore::insert(const HistoryBatch& batch)
{
    const SqlResult result =
        m_file.run(QStringLiteral("INSERT INTO period VALUES(?,?) ON CONFLICT(t0) DO UPDATE SET "
                                  "t1=excluded.t1"),
                   {qint64{batch.begin}, qint64{batch.end}});
    if (result != SqlResult::Done)
        return result;
    const SqlResult speed = insertSpeed(batch);
    if (speed != SqlResult::Done)
        return speed;
    const SqlResult counts = insertCounts(batch);
    return counts == SqlResult::Done ? insertOthers(batch) : counts;
}

/// A bin that is stored once more has grown meanwhile.
SqlResult HistoryStore::insertSpeed(const HistoryBatch& batch)
{
    for (std::size_t bin = 0; bin < kSpeedBins.size(); ++bin) {
        const QString sql =
            QStringLiteral("INSERT INTO %1 VALUES(?,?,?,?) ON CONFLICT(t) DO UPDATE SET "
                           "low=ifnull(min(low,excluded.low),excluded.low), "
                           "high=ifnull(max(high,excluded.high),excluded.high), "
                           "last=excluded.last")
                .arg(speedTable(bin));
        const SqlResult result = forAll(batch.speed[bin], [&](const SpeedRow& row) {
            QVariantList values = {qint64{row.begin}, QVariant(), QVariant(), QVariant()};
            if (row.range)
                values = {qint64{row.begin}, row.range->low, row.range->high, row.range->last};
            return m_file.run(sql, values);
        });
        if (result != SqlResult::Done)
            return result;
    }
    return SqlResult::Done;
}

SqlResult HistoryStore::insertCounts(const HistoryBatch& batch)
{
    const SqlResult result = forAll(batch.counts, [this](const CountsRow& row) {
        QVariantList values = {qint64{row.time}};
        for (const auto& count : row.counts)
            values += nullable(count);
        return m_file.run(QStringLiteral("INSERT OR REPLACE INTO counts VALUES(?,?,?,?,?,?,?,?,?)"),
                          values);
    });
    if (result != SqlResult::Done)
        return result;
    return forAll(batch.resets, [this](const CountReset& row) {
        return m_file.run(
            QStringLiteral("INSERT OR REPLACE INTO reset(t,ductor,count) VALUES(?,?,?)"),
            {qint64{row.time}, row.ductor, qint64{row.before}});
    });
}

SqlResult HistoryStore::insertOthers(const HistoryBatch& batch)
{
    const SqlResult result = forAll(batch.values, [this](const ValueRow& row) {
        return m_file.run(
            QStringLiteral("INSERT OR REPLACE INTO value(t,address,value) VALUES(?,?,?)"),
            {qint64{row.time}, row.address, nullable(row.value)});
    });
    if (result != SqlResult::Done)
        return result;
    return forAll(batch.writes, [this](const WriteRow& row) {
        return m_file.run(
            QStringLiteral("INSERT INTO written(t,address,old,new,screen,label,confirmed) "
                           "VALUES(?,?,?,?,?,?,?)"),
            {qint64{row.time}, row.address, row.before, row.after, row.screen, nullable(row.label),
             row.confirmed});
    });
}

void HistoryStore::prune(UtcMs now)
{
    if (!m_file.isOpen() || historyVersion(m_file) != kHistoryVersion)
        return;
    const qint64 limit = now - kRetention;
    for (const Aging& old : agingTables()) {
        const SqlResult result = m_file.run(
            QStringLiteral("DELETE FROM %1 WHERE (%2) IN (SELECT %2 FROM %1 WHERE %3<? ORDER BY %3 "
                           "LIMIT %4)")
                .arg(old.table, old.key, old.time)
                .arg(kPruneStep),
            {limit});
        if (result != SqlResult::Done) {
            failed(result);
            return;
        }
    }
    if (const SqlResult result = pruneValues(limit); result != SqlResult::Done)
        failed(result);
}

/// One register after the other. The last value before the limit stays: it holds until the next.
SqlResult HistoryStore::pruneValues(qint64 limit)
{
    const SqlResult result = m_file.run(
        QStringLiteral("DELETE FROM value WHERE address=? AND t IN (SELECT t FROM value WHERE "
                       "address=? AND t<(SELECT max(t) FROM value WHERE address=? AND t<?) "
                       "ORDER BY t LIMIT %1)")
            .arg(kPruneStep),
        {m_prunedAddress, m_prunedAddress, m_prunedAddress, limit});
    if (result == SqlResult::Done && m_file.number(QStringLiteral("SELECT changes()")) < kPruneStep)
        m_prunedAddress =
            m_file.number(QStringLiteral("SELECT min(address) FROM value WHERE address>?"),
                          {m_prunedAddress}, -1);
    return result;
}

void HistoryStore::check()
{
    const SqlResult opened = open();
    if (opened == SqlResult::Damaged)
        return setAside();
    if (opened != SqlResult::Done)
        return;
    bool sound = false;
    const SqlResult result =
        m_file.select(QStringLiteral("PRAGMA quick_check(1)"), {}, [&](const QSqlQuery& row) {
            sound = row.value(0).toString() == QStringLiteral("ok");
        });
    if (result == SqlResult::Damaged || (result == SqlResult::Done && !sound))
        setAside();
}

/// Nothing of it is lost: somebody may still read the rest of it.
void HistoryStore::setAside()
{
    m_file.close();
    const QString aside = freePathBeside(QFileInfo(m_path));
    const bool moved = QFile::rename(m_path, aside);
    for (const char* part : {"-wal", "-shm"}) {
        if (moved) // else the database would lose its log
            QFile::rename(m_path + QLatin1String(part), aside + QLatin1String(part));
    }
    if (moved)
        m_tell(QStringLiteral("The history file was damaged. It is kept as \"%1\"; recording goes "
                              "on in a new one.")
                   .arg(QFileInfo(aside).fileName()));
    else
        tellOnce(QStringLiteral("The history file is damaged and cannot be set aside: %1")
                     .arg(QDir::toNativeSeparators(m_path)));
}

/// The reason alone is no news: a full disk is told as one thing now, as another the next time.
void HistoryStore::tellOnce(const QString& trouble, const QString& reason)
{
    m_wentWell = 0;
    if (m_told.contains(trouble))
        return;
    m_told += trouble;
    m_tell((trouble + u' ' + reason).trimmed());
}

} // namespace tambrix
