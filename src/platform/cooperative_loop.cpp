#include "platform/cooperative_loop.h"

#include <QTimerEvent>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

/// How long a turn waits that may not run now: the link is busy or a modal window is in front.
constexpr auto kNextTry = 20ms;

} // namespace

CooperativeLoop::CooperativeLoop(std::function<bool()> mayRun) : m_mayRun(std::move(mayRun)) {}

CooperativeLoop::~CooperativeLoop()
{
    Q_ASSERT(!m_inTurn);
}

void CooperativeLoop::start(Task body)
{
    Q_ASSERT(!m_inTurn);
    m_body = std::move(body);
    m_running = true;
    m_waiting = {};
    tryAfter(0ms);
}

void CooperativeLoop::stop()
{
    m_running = false;
    m_timer.stop();
    if (m_inTurn) // its frame is on the stack; runTurn() drops it
        return;
    m_waiting = {};
    m_body = {};
}

void CooperativeLoop::wait(std::coroutine_handle<> task, std::chrono::milliseconds span)
{
    m_waiting = task;
    if (m_running)
        tryAfter(span);
}

/// Always started anew: a timer that goes on stays ahead of those that came due meanwhile, and they
/// would wait for another turn.
void CooperativeLoop::tryAfter(std::chrono::milliseconds span)
{
    m_timer.start(static_cast<int>(span.count()), this);
}

void CooperativeLoop::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return;
    if (m_inTurn || !m_mayRun())
        tryAfter(kNextTry);
    else
        runTurn();
}

void CooperativeLoop::runTurn()
{
    m_inTurn = true;
    if (m_waiting)
        std::exchange(m_waiting, {}).resume();
    else
        m_body.start();
    m_inTurn = false;
    if (!m_running || m_body.finished())
        stop();
}

} // namespace tambrix
