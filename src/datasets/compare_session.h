#pragma once

#include "data/backups.h"
#include "data/comparison.h"
#include "datasets/dataset_source.h"
#include "platform/cooperative_loop.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace tambrix {

/// What Compare and Restore does, without its window: compares two sources, backs the controller
/// up and writes what is ticked, an entry a turn of the event loop.
class CompareSession : public QObject
{
    Q_OBJECT

public:
    /// `mayRun` is asked before every turn.
    CompareSession(ProgramState& state, std::function<bool()> mayRun);

    DatasetSource left{DatasetSource::Kind::WorkingData, {}};
    DatasetSource right{DatasetSource::Kind::Controller, {}};

    /// Compares `left` with `right`, and ticks what is ordinary.
    void compare();
    /// Compares the working data with the controller, and ticks what differs of these registers.
    void compareOnly(std::vector<std::string> addresses);
    /// Compares the backup of the last restore with the controller, and ticks what that wrote.
    void undoLastRestore();
    /// Backs the controller up, writes the ticked values and reads them back.
    void write();
    /// Takes up what the last write has left open.
    void retry();
    /// Ends what is running before its next entry.
    void cancel() { m_cancelled = true; }
    /// Takes the ticked values into the working data, as one step that can be undone.
    void takeIntoWorkingData();

    bool running() const { return m_loop.running(); }
    bool canWrite() const;
    bool canRetry() const;
    Backups backups() const { return Backups(m_state.dataRoot); }

    /// None before the first one.
    Comparison* comparison() { return m_comparison.get(); }
    /// How things stand, in a line.
    const QString& summary() const { return m_summary; }
    /// When the controller was read for the comparison, if it was.
    const QDateTime& readAt() const { return m_readAt; }

signals:
    /// There is another comparison.
    void compared();
    /// Of the reading or writing under way.
    void progressed(const QString& what, int done, int total);
    /// What was running has ended; the summary says how.
    void ended();

private:
    Task compareTask();
    Task writeTask();
    Task retryTask();
    Task restoreTask(std::vector<RestoreRow> rows);
    Task readController(QString what, const SetupDataRecord* expected);
    bool begin();
    void finish(const QString& summary);
    void showComparison(const SetupDataRecord& left, const SetupDataRecord& right);
    bool changedSince(const SetupDataRecord& now, const std::vector<RestoreRow>& rows);
    void noteFound();
    QString backUp(const SetupDataRecord& record, const std::vector<RestoreRow>& rows);
    QString verdict() const;
    QString restoreSummary() const;

    ProgramState& m_state;
    std::unique_ptr<Comparison> m_comparison;
    SetupDataRecord m_leftData;
    SetupDataRecord m_rightData;
    QDateTime m_readAt;
    std::optional<std::vector<std::string>> m_tickOnly; ///< none: what is ordinary
    std::unique_ptr<ControllerReading> m_reading;
    std::unique_ptr<Restore> m_restore;
    std::vector<RestoreRow> m_rows; ///< of the last write
    QString m_backup;               ///< that was made before it
    QString m_summary = QStringLiteral("Choose what to compare on the left and on the right.");
    bool m_cancelled = false;
    CooperativeLoop m_loop; // last: its frame is gone before anything that it uses
};

} // namespace tambrix
