#include "shell/reconnect.h"

#include "link/settings_file.h"

#include <QApplication>
#include <QTime>
#include <QTimerEvent>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

constexpr int kTick = 50; // ms
constexpr Duration kBoxPatience = 60s;
constexpr Duration kSearchInterval = 2s;
constexpr Duration kProbeWait = 200ms;

} // namespace

Reconnect::Reconnect(ProgramState& state, SerialPort& port, Clock& clock, PortSearch& search,
                     Hands hands)
    : m_state(state), m_port(port), m_clock(clock), m_search(search), m_hands(std::move(hands))
{
    connect(&m_state, &ProgramState::onlineModeApplied, this, &Reconnect::modeApplied);
}

void Reconnect::setEnabled(bool enabled)
{
    m_enabled = enabled;
    if (!enabled)
        giveUp();
}

void Reconnect::giveUp()
{
    if (m_step == Step::Probing && !m_state.gLink.OnlineMode) // else the link has the port by now
        m_port.close();
    go(Step::Idle);
    emit noted({});
}

void Reconnect::go(Step step)
{
    m_step = step;
    if (step == Step::Idle)
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start(kTick, this);
}

void Reconnect::boardLost()
{
    if (!m_enabled || !m_wasOnline)
        return;
    m_unanswered = false;
    m_due = m_clock.now() + kBoxPatience;
    go(Step::BoxStands);
}

void Reconnect::boxAnswered(BoxAnswer answer)
{
    if (m_step != Step::BoxStands)
        return;
    if (answer == BoxAnswer::Retry) {
        go(Step::Idle);
        return;
    }
    go(Step::Dropping);
    note(m_unanswered ? tr("The board was lost; its box was answered with Cancel after 60 s. "
                           "Looking for the board every 2 s.")
                      : tr("The board was lost. Looking for it every 2 s."));
}

/// After a loss the mode drops by itself, and the screens may say so more than once.
void Reconnect::modeApplied(bool online)
{
    if (online && !m_state.gLink.CommError) {
        m_wasOnline = true;
        m_search.remember();
        if (m_step != Step::Idle)
            giveUp();
        return;
    }
    m_wasOnline = false;
    if (m_step == Step::Dropping) {
        m_due = m_clock.now() + kSearchInterval;
        go(Step::Searching);
    }
}

void Reconnect::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_timer.timerId())
        tick();
}

void Reconnect::tick()
{
    const bool due = m_clock.now() >= m_due;
    if (m_step == Step::BoxStands && due) {
        m_unanswered = true;
        m_hands.cancelBox();
    } else if (m_step == Step::Searching && due) {
        search();
    } else if (m_step == Step::Probing && (due || m_port.bytesWaiting() > 0)) {
        finishProbe();
    }
}

/// A dialog in front may be about the port or the mode: it is left alone.
void Reconnect::search()
{
    if (m_state.gLink.isBusy() || QApplication::activeModalWidget() != nullptr)
        return;
    m_due = m_clock.now() + kSearchInterval;
    if (m_search.present())
        startProbe();
}

void Reconnect::startProbe()
{
    std::error_code error;
    const auto settings = readOrCreateCommSettings(m_state.gLink.CommSettingsFile(), error);
    if (error || m_port.configure(settings.port, settings.speed + ",n,8,1") || m_port.open())
        return;
    m_port.discardInput();
    m_port.writeByte(kAttention);
    m_due = m_clock.now() + kProbeWait;
    go(Step::Probing);
}

void Reconnect::finishProbe()
{
    const bool answers = m_port.bytesWaiting() > 0 && m_port.readByte() == kAcknowledge;
    m_port.close();
    m_due = m_clock.now() + kSearchInterval;
    go(Step::Searching);
    if (answers)
        boardAnswers();
}

void Reconnect::boardAnswers()
{
    if (!m_hands.mayGoOnline()) {
        note(tr("The board answers again. Going on line would write its station number: choose "
                "View > Online Data, or another screen."));
        return;
    }
    go(Step::Idle);
    m_wasOnline = true; // a board that goes again in this moment is a loss like the first one
    m_hands.goOnline();
    if (m_state.canReachBoard())
        note(tr("On line again."));
}

void Reconnect::note(const QString& text)
{
    emit noted(QTime::currentTime().toString(QStringLiteral("HH:mm:ss  ")) + text);
}

} // namespace tambrix
