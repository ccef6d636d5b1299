#pragma once

#include "datasets/daily_backup.h"
#include "datasets/labels_window.h"
#include "shell/main_window.h"

namespace tambrix {

/// The commands of this room in the Tools menu.
class DatasetsTools : public QObject
{
    Q_OBJECT

public:
    DatasetsTools(ProgramState& state, MainWindow& window);

    /// What shows and writes a report page for each of some labels.
    void setLabelReports(LabelsHooks::Act preview, LabelsHooks::Act savePdf);

    DailyBackup& dailyBackup() { return m_daily; }

private:
    void addUndo();
    void compare();
    QWidget* makeLabels(QWidget& parent);
    void send(const std::vector<int>& labels);
    void askPressName();
    void askDailyBackup();

    ProgramState& m_state;
    MainWindow& m_window;
    DailyBackup m_daily;
    LabelsHooks::Act m_previewLabels;
    LabelsHooks::Act m_savePdf;
};

} // namespace tambrix
