#pragma once

#include "recorder/history_recorder.h"
#include "shell/main_window.h"

namespace tambrix {

/// Records what the press does while the program is on line, and adds what shows it to the Tools
/// menu.
class HistoryTools : public QObject
{
    Q_OBJECT

public:
    HistoryTools(ProgramState& state, MainWindow& window, const Clock& clock);
    ~HistoryTools() override;

    HistoryRecorder& recorder() { return m_recorder; }

private:
    QString writer() const;

    ProgramState& m_state;
    MainWindow& m_window;
    HistoryRecorder m_recorder;
};

} // namespace tambrix
