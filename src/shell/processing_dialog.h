#pragma once

#include "controls/progress_pace.h"
#include "data/bulk_transfer.h"
#include "platform/cooperative_loop.h"
#include "shell/program_state.h"

#include <QDialog>
#include <QElapsedTimer>

class QProgressBar;

namespace tambrix {

class ValueLabel;

/// Runs one bulk transfer behind a progress bar with a Cancel button, an entry a turn, so that
/// Cancel and the main window's poll have theirs. Closes itself when the transfer has ended.
class ProcessingDialog : public QDialog
{
    Q_OBJECT

public:
    ProcessingDialog(ProgramState& state, TransferPlan plan, QWidget* parent = nullptr);

    /// Cancel, Escape and the window's close button: the transfer stops before the next entry.
    void reject() override { m_cancelled = true; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void build();
    Task work();
    void warn(const std::string& text);
    bool mayRun() const;

    ProgramState& m_state;
    BulkTransfer m_transfer;
    void showProgress();

    QProgressBar* m_prgProcessing;
    ValueLabel* m_done; ///< what is done of what, and the time left
    ProgressPace m_pace{QStringLiteral("values")};
    QElapsedTimer m_running;
    bool m_cancelled = false;
    CooperativeLoop m_loop; // last: its frame is gone before anything that it uses
};

} // namespace tambrix
