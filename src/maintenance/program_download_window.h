#pragma once

#include "controls/progress_pace.h"
#include "shell/program_state.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

class QLabel;
class QProgressBar;

namespace tambrix {

/// The small window that loads the program into the board while it is shown, and says where the
/// transfer stands. It cannot be closed before; it ends by itself, whatever the outcome.
class ProgramDownloadWindow : public QDialog
{
    Q_OBJECT

public:
    explicit ProgramDownloadWindow(ProgramState& state, QWidget* parent = nullptr);

    /// What the window is shown for: 0 sends the program to the board, 1 reads it back. To be set
    /// before it is shown, and 0 again when it has ended.
    void SetTransferMode(int mode) { m_transferMode = mode; }

    /// Closing it during the transfer is refused.
    void reject() override {}

protected:
    void showEvent(QShowEvent* event) override;

private:
    static constexpr int kSend = 0;
    static constexpr int kReadBack = 1;

    void transfer();
    void showProgress();
    void showReading();

    ProgramState& m_state;
    void showRecords();

    int m_transferMode = kSend;
    QLabel* m_progress;
    QProgressBar* m_bar;
    QLabel* m_done; ///< what is done of what, and the time left
    ProgressPace m_pace{QStringLiteral("records")};
    QElapsedTimer m_running;
    QTimer m_timer;
};

} // namespace tambrix
