#include "platform/cooperative_loop.h"

#include <QTimerEvent>

#include <utility>

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
    m_giveWay = false;
    schedule(0ms);
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
        schedule(span);
}

/// A timer of 0 ms goes on by itself: starting it anew for every turn takes as long as the turn.
void CooperativeLoop::schedule(std::chrono::milliseconds span)
{
    const bool everyTurn = span == std::chrono::milliseconds::zero();
    if (!everyTurn || !m_everyTurn || !m_timer.isActive())
        m_timer.start(static_cast<int>(span.count()), this);
    m_everyTurn = everyTurn;
}

void CooperativeLoop::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return;
    m_gaveWay = std::exchange(m_giveWay, false) && m_everyTurn && !m_gaveWay;
    if (m_gaveWay)
        return;
    if (m_inTurn || !m_mayRun())
        schedule(kNextTry);
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
