#pragma once

#include "shell/program_state.h"
#include "simulator/inprocess/simulated_serial_port.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/virtual_clock.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace tambrix {

/// A press on a test bench: simulated controller, line, port and scripted person, on a virtual
/// clock, and a program folder of its own.
struct PressBench
{
    QTemporaryDir folder;
    VirtualClock clock;
    SimulatedBoard board;
    SimulatedLine line{board};
    SimulatedSerialPort port{line, clock};
    ScriptedPrompts person;
};

/// With the program state that belongs to it.
struct PressRig : PressBench
{
    ProgramState state{QDir(folder.path()), port, clock, person};

    PressRig() { state.InitSetupData(); }

    /// Opens the link the way View > Online Data does.
    void goOnline() { state.setOnline(true); }

    /// Lets the event loop run until `condition` holds; false when it does not within 5 s.
    static bool eventually(const std::function<bool()>& condition)
    {
        return QTest::qWaitFor(condition, 5000);
    }

    /// Gives every cooperative loop a number of turns.
    static void turns(int count)
    {
        for (int i = 0; i < count; ++i)
            QCoreApplication::processEvents();
    }
};

} // namespace tambrix
