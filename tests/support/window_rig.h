#pragma once

#include "screens/main_display.h"
#include "shell/main_window.h"
#include "tests/support/control_named.h"
#include "tests/support/press_rig.h"

#include <QAction>
#include <QLabel>
#include <QToolButton>

#include <memory>

namespace tambrix {

/// The main window over a press on the test bench, with a poll that ticks as fast as it can.
struct WindowRig : PressRig
{
    std::unique_ptr<MainWindow> window;

    explicit WindowRig(ScreenTable screens = defaultScreens(), MenuCommands commands = {})
        : window(std::make_unique<MainWindow>(state, std::move(screens), std::move(commands)))
    {
        window->backgroundPoll().setInterval(1);
        window->show();
    }

    static ScreenTable defaultScreens()
    {
        return {[](ProgramState& shared) { return std::make_unique<MainDisplay>(shared); },
                {},
                {},
                {},
                {}};
    }

    template <typename Control> Control& control(const char* name) const
    {
        return controlNamed<Control>(*window, name);
    }

    QAction& item(const char* name) const { return control<QAction>(name); }
    QString mode() const { return control<QToolButton>("MODE").text(); }
    QString status() const { return control<QLabel>("STATUS").text(); }
};

} // namespace tambrix
