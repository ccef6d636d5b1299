#include "controls/frame_limit.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>

namespace tambrix {

namespace {

constexpr qint64 kBetweenFrames = 33; // ms

} // namespace

void LineWaits::begin()
{
    for (FrameLimit* frames : m_frames)
        frames->paintInWait();
}

FrameLimit::FrameLimit(QWidget& window, LineWaits& waits)
    : QObject(&window), m_window(window), m_waits(waits)
{
    window.installEventFilter(this);
    waits.m_frames.push_back(this);
}

FrameLimit::~FrameLimit()
{
    std::erase(m_waits.m_frames, this);
}

/// What is to be painted is gathered until the window takes the request. A window asks once and
/// then waits, so one request later brings all of it.
bool FrameLimit::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_window || event->type() != QEvent::UpdateRequest)
        return false;
    if (m_painting)
        return false;
    const qint64 wait = lineInUse() ? kBetweenFrames : untilNextFrame();
    if (wait == 0) {
        m_next.stop();
        m_sincePainted.start();
        return false;
    }
    if (!m_next.isActive())
        m_next.start(static_cast<int>(wait), Qt::PreciseTimer, this);
    return true;
}

void FrameLimit::timerEvent(QTimerEvent* /*event*/)
{
    paint();
}

void FrameLimit::paintInWait()
{
    m_sinceWait.start();
    if (m_next.isActive() && untilNextFrame() == 0)
        paint();
}

bool FrameLimit::lineInUse() const
{
    return m_sinceWait.isValid() && m_sinceWait.elapsed() < kBetweenFrames;
}

/// In milliseconds.
qint64 FrameLimit::untilNextFrame() const
{
    const qint64 since = m_sincePainted.isValid() ? m_sincePainted.elapsed() : kBetweenFrames;
    return std::max<qint64>(kBetweenFrames - since, 0);
}

void FrameLimit::paint()
{
    const QScopedValueRollback painting(m_painting, true);
    m_next.stop();
    m_sincePainted.start();
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&m_window, &request);
}

} // namespace tambrix
