#include "controls/frame_limit.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace tambrix {

namespace {

constexpr qint64 kBetweenFrames = 33; // ms

} // namespace

FrameLimit::FrameLimit(QWidget& window) : QObject(&window), m_window(window)
{
    window.installEventFilter(this);
}

/// What is to be painted is gathered until the window takes the request. A window asks once and
/// then waits, so one request later brings all of it.
bool FrameLimit::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_window || event->type() != QEvent::UpdateRequest)
        return false;
    const qint64 since = m_sincePainted.isValid() ? m_sincePainted.elapsed() : kBetweenFrames;
    if (since < kBetweenFrames) {
        if (!m_next.isActive())
            m_next.start(static_cast<int>(kBetweenFrames - since), Qt::PreciseTimer, this);
        return true;
    }
    m_next.stop();
    m_sincePainted.start();
    return false;
}

void FrameLimit::timerEvent(QTimerEvent* /*event*/)
{
    m_next.stop();
    m_sincePainted.invalidate();
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&m_window, &request);
}

} // namespace tambrix
