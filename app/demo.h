#pragma once

#include "app/built_in_controller.h"
#include "shell/cooperative_loop.h"
#include "shell/main_window.h"

#include <QDir>

namespace tambrix {

/// The main job, unattended, on the simulated controller: goes on line, shows the main display,
/// has an alarm raised and reset, and goes off line again. Every step is printed and pictured, and
/// must show what a person would see.
class Demo
{
public:
    Demo(MainWindow& window, BuiltInController& controller, const QDir& pictures);

    /// Begins with the next event; ends the application with 0, or with 1 after a step that did
    /// not show what it should.
    void start();

private:
    Task run();
    Task mainDisplay();

    /// Waits until `shown` holds, prints the step and takes its picture.
    Task step(QString what, QString picture, std::function<bool()> shown);
    void take(const QString& picture);

    MainWindow& m_window;
    BuiltInController& m_controller;
    QDir m_pictures;
    bool m_failed = false;
    CooperativeLoop m_loop;
};

} // namespace tambrix
