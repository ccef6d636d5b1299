#pragma once

#include "shell/link_poller.h"
#include "shell/program_state.h"

#include <QDateTime>
#include <QDialog>

#include <functional>

class QPushButton;
class QTabWidget;

namespace tambrix {

class BoardFields;
class FaultPage;
class IdentityPage;

/// The service engineer's view of the controller itself: network addresses, fault codes, program
/// identity, clock. Modal; a LinkPoller refreshes it as long as it is in front.
class TargetBoardWindow : public QDialog, private PolledView
{
    Q_OBJECT

public:
    /// `now` is the PC's date and time.
    explicit TargetBoardWindow(
        ProgramState& state, QWidget* parent = nullptr,
        std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); });
    ~TargetBoardWindow() override;

    /// Describes the program file on disk, and fits the tabs to the type of board it is for. To be
    /// called before the window is shown.
    void InitializeForm(const QString& programFile);

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildTabs();
    void buildButtons();
    void showMode(bool online) override;
    void everyTurn() override;
    Task enterOnline() override;
    Task onlinePass() override;
    void goOnline();
    void resetFaults();

    ProgramState& m_state;
    std::function<QDateTime()> m_now;
    QTabWidget* m_tabs;
    QPushButton* m_ok;
    QPushButton* m_goOnline;
    FaultPage* m_faults;
    IdentityPage* m_identity;
    BoardFields* m_fields;
    LinkPoller m_poller; // last: its frames are gone before anything that they use
};

} // namespace tambrix
