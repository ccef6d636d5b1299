#include "recorder/recording_clock.h"

#include <QDateTime>

#include <algorithm>
#include <cstdlib>

namespace tambrix {

namespace {

constexpr UtcMs kSmallCorrection = 5 * kSecond;

UtcMs milliseconds(Duration span)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(span).count();
}

} // namespace

RecordingClock::RecordingClock(const Clock& steady, std::function<UtcMs()> wall)
    : m_steady(steady),
      m_wall(wall ? std::move(wall) : std::function<UtcMs()>(QDateTime::currentMSecsSinceEpoch)),
      m_last(m_wall()),
      m_lastSteady(m_steady.now())
{
}

RecordingClock::Reading RecordingClock::read()
{
    const UtcMs wall = m_wall();
    const Duration steady = m_steady.now();
    const UtcMs expected = m_last + milliseconds(steady - m_lastSteady);
    const bool jumped = std::abs(wall - expected) > kSmallCorrection;
    m_last = jumped ? wall : std::max(wall, m_last);
    m_lastSteady = steady;
    return {m_last, jumped};
}

} // namespace tambrix
