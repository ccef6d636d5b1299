#pragma once

#include "shell/program_state.h"

#include <QString>

#include <functional>

class QTimer;
class QWidget;

namespace tambrix {

/// The two menu commands that start from a controller program file.
class ProgramCommands
{
public:
    /// `mainWindow` is what their windows stand above; `backgroundPoll` is stopped for a transfer.
    ProgramCommands(ProgramState& state, QWidget& mainWindow, QTimer& backgroundPoll);

    /// File > Download Program: on line, picks a program file, asks, and loads it into the board.
    void downloadProgram();

    /// View > Target Board Interface: picks the program file that the board is compared with.
    void showTargetBoard();

private:
    bool pickProgram();
    bool downloadConfirmed();
    QString startFolder() const;

    ProgramState& m_state;
    QWidget& m_mainWindow;
    QTimer& m_backgroundPoll;
};

} // namespace tambrix
