#pragma once

#include "data/line_recorder.h"
#include "shell/prompts.h"

#include <QBasicTimer>
#include <QDialog>

#include <memory>
#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace tambrix {

class LineMonitorModel;

/// Shows every exchange with the board as it happens, or those of a saved trace: what it means,
/// how long it took, what failed and why. Sends nothing itself.
class LineMonitor : public QDialog
{
    Q_OBJECT

public:
    /// `folder` is where traces are saved and looked for first.
    LineMonitor(LineRecorder& recorder, const Clock& clock, Prompts& prompts, QString folder,
                QWidget* parent = nullptr);
    ~LineMonitor() override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    QWidget* makeFilterRow();
    QWidget* makeTable();
    QWidget* makeButtonRow();
    void addButton(QWidget& row, const char* name, const char* caption, void (LineMonitor::*act)());
    void showTrace(const LineTrace& trace, std::optional<QDateTime> zero);
    void showLine();
    void refresh();
    void showFigures();
    void filter();
    void findNext();
    void copyRows();
    void save();
    void load();
    const LineTrace& trace() const;
    void say(const QString& title, const QString& text);

    LineRecorder& m_recorder;
    const Clock& m_clock;
    Prompts& m_prompts;
    QString m_folder;
    std::optional<LineTrace> m_loaded; ///< a saved trace in place of the line
    std::unique_ptr<LineMonitorModel> m_model;
    QTableView* m_table = nullptr;
    QLineEdit* m_register = nullptr;
    QCheckBox* m_errorsOnly = nullptr;
    QLineEdit* m_find = nullptr;
    QPushButton* m_pause = nullptr;
    QPushButton* m_live = nullptr;
    QLabel* m_source = nullptr;
    QLabel* m_figures = nullptr;
    QLabel* m_advice = nullptr;
    QBasicTimer m_timer;
};

} // namespace tambrix
