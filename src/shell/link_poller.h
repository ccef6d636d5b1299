#pragma once

#include "platform/cooperative_loop.h"

#include <QObject>

#include <functional>
#include <span>
#include <string>
#include <utility>

class QWidget;

namespace tambrix {

class ProgramState;

/// A window that follows the controller, as its LinkPoller calls it.
class PolledView
{
public:
    PolledView() = default;
    PolledView(const PolledView&) = delete;
    PolledView& operator=(const PolledView&) = delete;

    /// The look of a mode: what is enabled, what shows dashes. Sends no bytes, because a mode may
    /// change while another window has the link.
    virtual void showMode(bool online) = 0;

    /// At the top of every turn, whatever the mode. Nothing unless overridden.
    virtual void everyTurn() {}

    /// What is read and written once at the start of every on-line period.
    virtual Task enterOnline();

    /// One refresh from the controller, or from the data in memory.
    virtual Task onlinePass() = 0;
    virtual Task offlinePass();

protected:
    ~PolledView() = default;
};

/// The one refresh loop. It lets events run, drops the program off line after a communication
/// error, shows a mode once, and makes one pass after the other. It stands still while the link is
/// busy or another modal window is in front; a change of mode is shown at once all the same.
class LinkPoller : public QObject
{
    Q_OBJECT

public:
    /// Shows one value that a pass has read: `entry` counts the registers of that pass from 0.
    using ShowValue = std::function<void(std::size_t entry, const QString& value)>;

    /// `window` is the window in front of which no other modal window may be, or part of it.
    LinkPoller(ProgramState& state, const QWidget& window, PolledView& view);

    /// Shows the current mode and polls from the next turn of the event loop on.
    void start();

    /// Ends the loop where it stands.
    void stop();

    bool running() const { return m_loop.running(); }

    /// Whether it is in the view's enterOnline().
    bool entering() const { return m_entering; }

    /// Shows the look of the current mode anew with the next turn.
    void showAgain();

    /// Awaitable: lets pending events run. A pass awaits it before every register it reads. Before
    /// its first one it goes on at once: run() has just done it.
    auto pendingEvents() { return m_loop.pendingEvents(std::exchange(m_served, false)); }

    /// Reads `registers` in order, each after a turn of the event loop, and shows each value that
    /// was read. Stops when `goesOn` says no or the link reports an error.
    Task readRegisters(std::span<const std::string> registers, std::function<bool()> goesOn,
                       ShowValue show);

private:
    Task run();
    void followMode();
    bool mayRun() const;

    enum class Shown { Nothing, Offline, Online };

    ProgramState& m_state;
    const QWidget& m_window;
    PolledView& m_view;
    Shown m_shown = Shown::Nothing;
    bool m_entered = false; ///< this on-line period has begun: enterOnline() has been called
    bool m_entering = false;
    bool m_served = false;  ///< pending events have run, and nothing was sent since
    CooperativeLoop m_loop; // last: its frames are gone before anything that they use
};

} // namespace tambrix
