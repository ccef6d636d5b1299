#pragma once

#ifndef Q_MOC_RUN // Qt's meta-object compiler stumbles over this header
#include <coroutine>
#endif
#include <exception>
#include <utility>

namespace tambrix {

/// A cooperative procedure: runs when it is started or awaited, gives way at every
/// `co_await`, and is ended for good, wherever it stands, by the destruction of its Task.
class [[nodiscard]] Task
{
public:
    struct promise_type
    {
        std::coroutine_handle<> continuation = std::noop_coroutine();

        Task get_return_object()
        {
            return Task(std::coroutine_handle<promise_type>::from_promise(*this));
        }
        std::suspend_always initial_suspend() noexcept { return {}; }
        auto final_suspend() noexcept
        {
            struct ToCaller
            {
                bool await_ready() noexcept { return false; }
                std::coroutine_handle<>
                await_suspend(std::coroutine_handle<promise_type> done) noexcept
                {
                    return done.promise().continuation;
                }
                void await_resume() noexcept {}
            };
            return ToCaller{};
        }
        void return_void() {}
        [[noreturn]] void unhandled_exception() { std::terminate(); }
    };

    Task() = default;
    Task(Task&& other) noexcept : m_frame(std::exchange(other.m_frame, {})) {}
    Task& operator=(Task&& other) noexcept
    {
        std::swap(m_frame, other.m_frame);
        return *this;
    }
    ~Task()
    {
        if (m_frame)
            m_frame.destroy();
    }

    /// Runs the procedure up to its first pause.
    void start() { m_frame.resume(); }

    bool finished() const { return !m_frame || m_frame.done(); }

    /// Awaiting a Task runs it to its end before the caller goes on.
    auto operator co_await() noexcept
    {
        struct Run
        {
            std::coroutine_handle<promise_type> frame;
            bool await_ready() const noexcept { return !frame || frame.done(); }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<> caller) noexcept
            {
                frame.promise().continuation = caller;
                return frame;
            }
            void await_resume() const noexcept {}
        };
        return Run{m_frame};
    }

private:
    explicit Task(std::coroutine_handle<promise_type> frame) : m_frame(frame) {}

    std::coroutine_handle<promise_type> m_frame;
};

} // namespace tambrix
