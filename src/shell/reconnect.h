#pragma once

#include "platform/port_finder.h"
#include "shell/box_watch.h"
#include "shell/program_state.h"

#include <QBasicTimer>
#include <QObject>

#include <functional>

namespace tambrix {

/// Brings the program on line again after the board was lost, when the user has asked for it:
/// otherwise only he decides the mode. The link's box stands as always; unanswered for 60 s it is
/// answered with Cancel. Then it looks every 2 s, without a box and without a wait, whether the
/// port is there and one attention byte is answered within 0.2 s, until the user does anything
/// with the mode. Sends attention, and nothing else.
class Reconnect : public QObject
{
    Q_OBJECT

public:
    /// What going on line needs, and what the user sees.
    struct Hands
    {
        std::function<bool()> mayGoOnline; ///< false while that would write to the board
        std::function<void()> goOnline;    ///< as View > Online Data does
        std::function<void()> cancelBox;   ///< answers the link's box, which stands, with Cancel
    };

    /// `port` leads to the board as the link's does, and is used only while the link's is closed.
    Reconnect(ProgramState& state, SerialPort& port, Clock& clock, PortSearch& search, Hands hands);

    /// Off until it is switched on.
    void setEnabled(bool enabled);
    bool enabled() const { return m_enabled; }

    /// The link's box is about to be shown, and was answered.
    void boardLost();
    void boxAnswered(BoxAnswer answer);

    /// The user has chosen a mode: it is his again.
    void userActed() { giveUp(); }

    /// Does what is due now. Called every 50 ms while there is anything to do.
    void tick();

signals:
    /// One line for the user; empty: there is nothing to tell any more.
    void noted(const QString& line);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Step {
        Idle,
        BoxStands, ///< and nobody has answered it so far
        Dropping,  ///< the mode follows the answer
        Searching, ///< for the port, every 2 s
        Probing    ///< attention was sent
    };

    void go(Step step);
    void modeApplied(bool online);
    void search();
    void startProbe();
    void finishProbe();
    void boardAnswers();
    void giveUp();
    void note(const QString& text);

    ProgramState& m_state;
    SerialPort& m_port;
    Clock& m_clock;
    PortSearch& m_search;
    Hands m_hands;
    QBasicTimer m_timer;
    Step m_step = Step::Idle;
    Duration m_due{}; ///< when the step has something to do, or gives up
    bool m_enabled = false;
    bool m_wasOnline = false; ///< the loss of a board that never answered is no loss
    bool m_unanswered = false;
};

} // namespace tambrix
