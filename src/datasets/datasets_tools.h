#pragma once

#include "datasets/daily_backup.h"
#include "shell/main_window.h"

namespace tambrix {

/// The commands of this room in the Tools menu.
class DatasetsTools : public QObject
{
    Q_OBJECT

public:
    DatasetsTools(ProgramState& state, MainWindow& window);

    DailyBackup& dailyBackup() { return m_daily; }

private:
    void addUndo();
    void compare();
    void askPressName();
    void askDailyBackup();

    ProgramState& m_state;
    MainWindow& m_window;
    DailyBackup m_daily;
};

} // namespace tambrix
