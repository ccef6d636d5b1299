#pragma once

#include "platform/task.h"

#include <QBasicTimer>
#include <QObject>

#include <chrono>
#include <functional>

namespace tambrix {

/// Runs one Task in turns with Qt's event loop, instead of a nested event loop. The Task gives
/// way with `co_await loop.pendingEvents()`; it is resumed by a timer event once everything that
/// was pending has been served and `mayRun` allows it, and tries again a little later where it
/// does not.
class CooperativeLoop : public QObject
{
public:
    explicit CooperativeLoop(std::function<bool()> mayRun);
    ~CooperativeLoop() override;

    /// Replaces whatever ran before and runs `body` from the next turn on.
    void start(Task body);

    /// Ends the Task where it stands. Called from inside the Task, it ends at its next pause.
    void stop();

    bool running() const { return m_running; }

    /// Awaitable: lets pending events run, unless they are known to be `served` already.
    auto pendingEvents(bool served = false)
    {
        return Turn{*this, std::chrono::milliseconds::zero(), served};
    }

    /// Awaitable: lets events run for at least `span`, at no processor time.
    auto pause(std::chrono::milliseconds span) { return Turn{*this, span}; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Turn
    {
        CooperativeLoop& loop;
        std::chrono::milliseconds span;
        bool over = false;
        bool await_ready() const noexcept { return over; }
        void await_suspend(std::coroutine_handle<> task) { loop.wait(task, span); }
        void await_resume() const noexcept {}
    };

    void wait(std::coroutine_handle<> task, std::chrono::milliseconds span);
    void tryAfter(std::chrono::milliseconds span);
    void runTurn();

    std::function<bool()> m_mayRun;
    Task m_body;
    std::coroutine_handle<> m_waiting; ///< where the Task stands; none before its first turn
    QBasicTimer m_timer;
    bool m_running = false;
    bool m_inTurn = false;
};

} // namespace tambrix
