#pragma once

#include "platform/cooperative_loop.h"
#include "shell/main_window.h"
#include "simulator/simulated_board.h"
#include "simulator/simulated_line.h"

#include <QDir>
#include <QTimer>

#include <functional>

namespace tambrix {

/// What the unattended demonstration plays on: the main window, the simulated controller behind
/// it, and a folder for the pictures. Every step is printed and must show what a user would see;
/// the first that does not ends the demonstration.
class DemoStage
{
public:
    DemoStage(MainWindow& window, SimulatedBoard& board, SimulatedLine& line, const QDir& pictures);

    MainWindow& window() { return m_window; }
    SimulatedBoard& board() { return m_board; }
    SimulatedLine& line() { return m_line; }

    /// The size of the main window; the operator's screen unless set before run().
    void setSize(const QSize& size) { m_size = size; }

    const QDir& pictures() const { return m_pictures; }

    /// Runs the demonstration; then ends the application with 0, or with 1 at a step that did not
    /// show what it should within 8 s, or when a window that nobody expected stops everything.
    void run(Task chapters);

    /// Waits until `shown` holds, prints the step, and pictures the front window as `picture`.png.
    /// An empty text prints nothing; an empty name takes no picture.
    Task step(QString what, QString picture, std::function<bool()> shown);

    /// As `step()`: waits until the window with this control name is in front.
    Task waitForWindow(QString name, QString what, QString picture);

    /// Waits for a message box with this title, pictures it and presses `button` ("Yes", "OK").
    Task answerBox(QString title, QString button, QString picture);

    /// Waits for a file dialog, types `file` (with its folder), pictures it and accepts.
    Task answerFileDialog(QString file, QString what, QString picture);

    /// Presses a button of the window in front that closes it, and waits until it is gone.
    Task leaveBy(QString button);

    /// Online Data or Offline Data, and what the background poll makes of it: mode, status line
    /// and messages belong together in every picture after it.
    Task goOnline();
    Task goOffline();

    /// Does something that may open a modal window or box, from an event of its own, so that the
    /// demonstration goes on while the window is open.
    void later(std::function<void()> action);

    /// Presses a button by its control name, or triggers a menu item, as `later()` does.
    void press(const QString& button);
    void triggerMenu(const QString& name);

    /// The control with this name, in the front window or in the main window; ends the program
    /// when there is none.
    template <typename Control> Control& control(const QString& name) const
    {
        auto* found = frontWindow().findChild<Control*>(name);
        if (found == nullptr)
            found = m_window.findChild<Control*>(name);
        if (found == nullptr)
            endWithout(name);
        return *found;
    }

    /// The modal window in front; or else the window that is open beside the main window; or else
    /// the main window.
    QWidget& frontWindow() const;
    bool isInFront(const QString& name) const { return frontWindow().objectName() == name; }

private:
    Task wholeRun();
    Task statusEndsWith(QString text);
    bool take(const QString& picture) const;
    void fail(const QString& what, const QString& picture);
    [[noreturn]] static void endWithout(const QString& control);

    MainWindow& m_window;
    SimulatedBoard& m_board;
    SimulatedLine& m_line;
    QDir m_pictures;
    QTimer m_watchdog;
    QSize m_size{1366, 768};
    Task m_chapters;
    CooperativeLoop m_loop;
};

} // namespace tambrix
