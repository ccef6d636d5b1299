#pragma once

#include "datasets/labels_commands.h"

#include <QBasicTimer>
#include <QDialog>

#include <functional>

class QAbstractItemDelegate;
class QCheckBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;

namespace tambrix {

class LabelPane;

/// What the labels' window asks of others, each with the labels that are chosen.
struct LabelsHooks
{
    using Act = std::function<void(const std::vector<int>& labels)>;

    Act send;    ///< to the controller
    Act preview; ///< a page a label
    Act savePdf;
};

/// Tools > All Labels...: the labels of the working data in one table, to be looked over, found,
/// changed off line and sent.
class LabelsWindow : public QDialog
{
    Q_OBJECT

public:
    LabelsWindow(ProgramState& state, LabelsHooks hooks, QWidget* parent = nullptr);

    QTableView& view() { return *m_view; }
    LabelsModel& model() { return m_model; }

    void copy();
    void paste();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    // labels_window_layout.cpp
    void build();
    QHBoxLayout* buildTop();
    void buildShownSwitch(QHBoxLayout& row);
    void buildTable();
    void sizeTable(const QAbstractItemDelegate& delegate);
    QWidget* buildSide();
    QHBoxLayout* buildButtons();
    void addActions();
    void addAction(const char* name, const QString& text, const QKeySequence& keys,
                   std::function<void()> act);
    QPushButton* addButton(QHBoxLayout& row, const char* name, const QString& caption,
                           std::function<void()> act);

    void choose(LabelsModel::Shown shown);
    void showState();
    void showRows();
    void showProblems();
    void showSteps();
    void goTo(const LabelProblem& problem);
    void goDown();
    void tellRefused(const QModelIndex& index, const QString& reason);
    QModelIndexList cells() const;
    std::vector<int> labels() const;
    std::vector<int> shownRows() const;
    DuctorSet ductors() const;
    int currentLabel() const;
    std::size_t fingerprint() const;
    QString note() const;

    ProgramState& m_state;
    LabelsHooks m_hooks;
    LabelsModel m_model;
    LabelsCommands m_commands;
    std::size_t m_seen = 0; ///< fingerprint of what is shown
    QBasicTimer m_look;

    std::array<QPushButton*, 3> m_shown{}; ///< density, ON, CYCLE
    QLineEdit* m_txtFind = nullptr;
    QPushButton* m_cmdProblems = nullptr;
    QCheckBox* m_chkHideUnused = nullptr;
    QTableView* m_view = nullptr;
    LabelPane* m_pane = nullptr;
    QListWidget* m_lstProblems = nullptr;
    QLabel* m_lblNote = nullptr;
    QPushButton* m_cmdUndo = nullptr;
    QPushButton* m_cmdRedo = nullptr;
    std::vector<QWidget*> m_editing; ///< what needs a table that can be changed
};

} // namespace tambrix
