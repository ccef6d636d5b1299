#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>

namespace tambrix::bench {

/// Records the longest time for which the event loop left a 1 ms timer unserved: how long a key
/// or a click may have had to wait. Costs processor time itself; not for use beside a
/// measurement of that.
class EventLoopGap : public QObject
{
public:
    /// Starts afresh.
    void start();

    /// Ends the recording and returns the longest gap in milliseconds.
    double stop();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    QBasicTimer m_timer;
    QElapsedTimer m_sinceTick;
    qint64 m_longest = 0; // ns
};

} // namespace tambrix::bench
