#pragma once

#include "shell/program_state.h"

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QGroupBox;

namespace tambrix {

/// What the set-up dialog's buttons do besides keeping the settings.
struct ReportActions
{
    std::function<void()> preview;
    std::function<void()> savePdf;
    std::function<void()> print;
};

/// Report Setup: which parts the report holds, and which labels. Preview, Save as PDF and Print
/// work with what the dialog shows and keep it; OK only keeps it.
class ReportSetup : public QDialog
{
    Q_OBJECT

public:
    ReportSetup(ProgramState& state, const ReportActions& actions, QWidget* parent = nullptr);

    void accept() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGroupBox* makeParts();
    QGroupBox* makeRange();
    QWidget* makeButtons(const ReportActions& actions);
    QLineEdit* makeBound(const char* name, int value);
    void showWhatIsPossible();
    bool keepSettings();

    ProgramState& m_state;
    QCheckBox* m_setupData = nullptr;
    QCheckBox* m_shiftData = nullptr;
    QCheckBox* m_labelData = nullptr;
    QGroupBox* m_range = nullptr;
    QRadioButton* m_allLabels = nullptr;
    QRadioButton* m_someLabels = nullptr;
    QLineEdit* m_first = nullptr;
    QLineEdit* m_last = nullptr;
    std::vector<QPushButton*> m_needParts; ///< greyed while no part is chosen
};

} // namespace tambrix
