#pragma once

#include "recorder/unseen_reader.h"
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
    QString settings() const;
    bool mayRead() const;
    QWidget* makeWindow(QWidget& parent);

    ProgramState& m_state;
    MainWindow& m_window;
    HistoryRecorder m_recorder;
    UnseenReader m_unseen;
};

} // namespace tambrix
