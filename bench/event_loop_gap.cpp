#include "bench/event_loop_gap.h"

#include <algorithm>

namespace tambrix::bench {

void EventLoopGap::start()
{
    m_longest = 0;
    m_sinceTick.start();
    m_timer.start(1, Qt::PreciseTimer, this);
}

double EventLoopGap::stop()
{
    m_timer.stop();
    m_longest = std::max(m_longest, m_sinceTick.nsecsElapsed());
    return static_cast<double>(m_longest) / 1e6;
}

void EventLoopGap::timerEvent(QTimerEvent* /*event*/)
{
    m_longest = std::max(m_longest, m_sinceTick.nsecsElapsed());
    m_sinceTick.start();
}

} // namespace tambrix::bench
