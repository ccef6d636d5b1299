#pragma once

#include "platform/cooperative_loop.h"
#include "shell/main_window.h"
#include "simulator/inprocess/built_in_controller.h"

#include <QDir>

#include <functional>

namespace tambrix {

/// What the unattended demonstration plays on: the main window, the simulated controller behind
/// it, and a folder for the pictures. Every step is printed and must show what a person would see.
class DemoStage
{
public:
    DemoStage(MainWindow& window, BuiltInController& controller, const QDir& pictures);

    MainWindow& window() { return m_window; }
    SimulatedBoard& board() { return m_controller.board(); }
    SimulatedLine& line() { return m_controller.line(); }
    const QDir& pictures() const { return m_pictures; }

    /// Runs the demonstration; then ends the application with 0, or with 1 after a step that did
    /// not show what it should.
    void run(Task chapters);

    /// Waits (8 s at most) until `shown` holds, prints the step, and pictures the front window as
    /// `picture`.png; an empty name takes none.
    Task step(QString what, QString picture, std::function<bool()> shown);

    /// Online Data or Offline Data, and what the background poll makes of it: mode, status line
    /// and messages belong together in every picture after it.
    Task goOnline();
    Task goOffline();

    /// Does something that opens a modal window or box, from an event of its own, so that the
    /// demonstration goes on while the window is open.
    void later(std::function<void()> action);

    /// Triggers a menu item by its control name, as `later()` does.
    void triggerMenu(const QString& name);

    /// Waits for a message box with this title, pictures it and presses `button` ("Yes", "OK").
    Task answerBox(QString title, QString button, QString picture);

    /// The control with this name, in the front window or in the main window; ends the program
    /// when there is none.
    template <typename Control> Control& control(const QString& name) const
    {
        auto* found = frontWindow().findChild<Control*>(name);
        if (found == nullptr)
            found = m_window.findChild<Control*>(name);
        if (found == nullptr)
            qFatal("the demonstration finds no control %s", qPrintable(name));
        return *found;
    }

    /// The modal window in front, or the main window.
    QWidget& frontWindow() const;

private:
    Task wholeRun();
    Task statusEndsWith(QString text);
    void take(const QString& picture);
    void report(bool ok, const QString& what, const QString& picture);

    MainWindow& m_window;
    BuiltInController& m_controller;
    QDir m_pictures;
    bool m_failed = false;
    Task m_chapters;
    CooperativeLoop m_loop;
};

} // namespace tambrix
