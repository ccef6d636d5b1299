#include "shell/link_poller.h"

#include "data/link_text.h"
#include "shell/program_state.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QWidget>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

/// Off line nothing changes but by the user's hand; on line the link paces the passes.
constexpr auto kOfflinePassInterval = 100ms;

} // namespace

Task PolledView::enterOnline()
{
    co_return;
}

Task PolledView::offlinePass()
{
    co_return;
}

LinkPoller::LinkPoller(ProgramState& state, const QWidget& window, PolledView& view)
    : m_state(state), m_window(window), m_view(view), m_loop([this] { return mayRun(); })
{
    connect(&state, &ProgramState::onlineModeApplied, this, [this] {
        if (m_loop.running())
            followMode();
    });
}

void LinkPoller::start()
{
    m_shown = Shown::Nothing;
    followMode();
    m_view.everyTurn();
    m_loop.start(run());
}

void LinkPoller::stop()
{
    m_loop.stop();
}

void LinkPoller::showAgain()
{
    m_shown = Shown::Nothing;
}

Task LinkPoller::run()
{
    for (;;) {
        co_await m_loop.pendingEvents();
        m_served = true;
        if (m_state.gLink.CommError)
            m_state.dropOffline();
        m_view.everyTurn();
        followMode();
        if (m_shown == Shown::Offline) {
            co_await m_view.offlinePass();
            co_await m_loop.pause(kOfflinePassInterval);
            continue;
        }
        if (!std::exchange(m_entered, true)) {
            const QScopedValueRollback entering(m_entering, true);
            co_await m_view.enterOnline();
            m_served = false;
        }
        if (m_state.canReachBoard())
            co_await m_view.onlinePass();
    }
}

/// Each on-line look begins an on-line period of its own, also if the other look was never painted.
void LinkPoller::followMode()
{
    const Shown mode = m_state.canReachBoard() ? Shown::Online : Shown::Offline;
    if (m_shown == mode)
        return;
    m_shown = mode;
    m_entered = false;
    m_view.showMode(mode == Shown::Online);
}

Task LinkPoller::readRegisters(std::span<const std::string> registers, std::function<bool()> goesOn,
                               ShowValue show)
{
    RSComm& link = m_state.gLink;
    for (std::size_t entry = 0; entry < registers.size(); ++entry) {
        co_await pendingEvents();
        if (!goesOn())
            co_return;
        const std::string value = link.RSRead(registers[entry]);
        if (link.CommError)
            co_return;
        // kept: a read that failed gives "0"; that is no value of the press, the last one stays.
        if (link.readSucceeded())
            show(entry, fromLink(value));
    }
}

bool LinkPoller::mayRun() const
{
    const QWidget* modal = QApplication::activeModalWidget();
    return !m_state.gLink.isBusy() && (modal == nullptr || modal == m_window.window());
}

} // namespace tambrix
