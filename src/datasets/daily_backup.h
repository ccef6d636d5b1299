#pragma once

#include "data/controller_reading.h"
#include "platform/cooperative_loop.h"
#include "shell/program_state.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

namespace tambrix {

/// Whether a backup that is wanted every day at `at` is due `now`, the last one having been made
/// (or the wish having come up) at `last`. A missed one stays due.
bool dailyBackupDue(const QDateTime& now, const QTime& at, const QDateTime& last);

/// Makes a backup every day at a time, while the program is on line: an entry a turn, between the
/// screens' passes, not while the user does anything. Shows no box; what came of it is told in a
/// line.
class DailyBackup : public QObject
{
    Q_OBJECT

public:
    explicit DailyBackup(ProgramState& state);

    /// The time of day; none: no daily backup.
    std::optional<QTime> time() const;
    void setTime(const std::optional<QTime>& time);

    /// Looks whether one is due; called by a timer.
    void look();

    bool running() const { return m_loop.running(); }

signals:
    /// What came of a backup, or why there is none, in a line.
    void told(const QString& line);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Task work();
    void tell();
    bool mayRun() const;
    QString settingsFile() const;

    ProgramState& m_state;
    QTimer m_timer;
    QElapsedTimer m_lastAction; ///< of the user
    QDateTime m_notBefore;      ///< after a failure: not at once again
    std::unique_ptr<ControllerReading> m_reading;
    CooperativeLoop m_loop; // last: its frame is gone before anything that it uses
};

} // namespace tambrix
