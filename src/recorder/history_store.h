#pragma once

#include "recorder/history_batch.h"
#include "recorder/sql_file.h"

#include <QLockFile>

#include <functional>
#include <memory>

namespace tambrix {

/// Writes the history: one SQLite file, for which this is the only writer on the machine. What
/// the user should know is told once through `tell`.
class HistoryStore
{
public:
    /// Longer ago is forgotten.
    static constexpr UtcMs kRetention = 90 * kDay;

    /// Trouble is over when so many batches in a row could be stored: a disk that is full now and
    /// again is one trouble.
    static constexpr int kWellAgain = 10;

    /// `file` is made with its folder when the first batch comes.
    HistoryStore(QString file, std::function<void(const QString&)> tell);
    ~HistoryStore();
    HistoryStore(const HistoryStore&) = delete;
    HistoryStore& operator=(const HistoryStore&) = delete;

    enum class Outcome {
        Stored,
        Later, ///< somebody else holds the file: the same batch may be given again
        Lost,  ///< what comes next begins a new time on line
    };

    /// Stores the whole batch or nothing of it.
    Outcome append(const HistoryBatch& batch);

    /// Removes a few of the rows that are older than `kRetention` at `now`. To be called often.
    void prune(UtcMs now);

    /// Looks through the whole file and sets it aside where it is damaged. Takes its time.
    void check();

    /// Lets another writer record, until the next batch comes.
    void close();

    const QString& path() const { return m_path; }

    /// For maintenance and for tests.
    SqlFile& file() { return m_file; }

private:
    SqlResult open();
    SqlResult insert(const HistoryBatch& batch);
    SqlResult insertSpeed(const HistoryBatch& batch);
    SqlResult insertCounts(const HistoryBatch& batch);
    SqlResult insertOthers(const HistoryBatch& batch);
    SqlResult pruneValues(qint64 limit);
    Outcome failed(SqlResult result);
    void setAside();
    void tellOnce(const QString& trouble, const QString& reason = {});
    void wentWell();

    QString m_path;
    QString m_obstacle; ///< why nothing can be written to that path, if so
    std::function<void(const QString&)> m_tell;
    std::unique_ptr<QLockFile> m_lock;
    SqlFile m_file;
    qint64 m_prunedAddress = -1;
    QStringList m_told; ///< of the trouble that stands, without the database's words for it
    int m_wentWell = 0; ///< batches stored since it was last seen
};

} // namespace tambrix
