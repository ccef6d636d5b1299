#pragma once

#include "controls/progress_pace.h"
#include "datasets/compare_session.h"
#include "datasets/compare_tree.h"

#include <QDialog>
#include <QElapsedTimer>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace tambrix {

/// Tools > Compare and Restore...: two data sets side by side, and what is ticked of the left one
/// written into the controller or taken into the working data.
class CompareWindow : public QDialog
{
    Q_OBJECT

public:
    explicit CompareWindow(ProgramState& state, QWidget* parent = nullptr);

    CompareSession& session() { return m_session; }
    CompareTree& tree() { return m_tree; }

    /// Escape, Close, the window's own button: while something runs they only cancel it.
    void reject() override;

private:
    // compare_window_layout.cpp
    void build();
    QHBoxLayout* buildSources();
    void buildTree();
    QHBoxLayout* buildProgress();
    QHBoxLayout* buildButtons();
    QPushButton* addButton(QHBoxLayout& row, const char* name, const QString& caption,
                           std::function<void()> action);

    void fillSources();
    void fillSource(QComboBox& box, const DatasetSource& chosen);
    void chooseSource(QComboBox& box, DatasetSource& side);
    void showComparison();
    void showFirstTicked();
    void showProgress(const QString& what, int done, int total);
    void showEnd();
    void showState();
    void copy();
    void saveCsv();
    void print();
    std::vector<QStringList> table();
    void say(const QString& text);

    ProgramState& m_state;
    CompareSession m_session;
    CompareTree m_tree;
    QString m_shownWork; ///< what the progress bar shows; empty: nothing runs
    QElapsedTimer m_clock;
    ProgressPace m_pace{QStringLiteral("values")};

    QComboBox* m_cboLeft = nullptr;
    QComboBox* m_cboRight = nullptr;
    QPushButton* m_cmdCompare = nullptr;
    QLineEdit* m_txtFilter = nullptr;
    QCheckBox* m_chkShowEqual = nullptr;
    QTreeView* m_view = nullptr;
    QLabel* m_lblRunning = nullptr; ///< what to know about the running label
    QLabel* m_lblSummary = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_cmdCancel = nullptr;
    QPushButton* m_cmdCopy = nullptr;
    QPushButton* m_cmdSaveCsv = nullptr;
    QPushButton* m_cmdPrint = nullptr;
    QPushButton* m_cmdUndoLast = nullptr;
    QPushButton* m_cmdRetry = nullptr;
    QPushButton* m_cmdTake = nullptr;
    QPushButton* m_cmdWrite = nullptr;
    QPushButton* m_cmdClose = nullptr;
};

} // namespace tambrix
