#pragma once

#include "shell/program_state.h"

#include <QDialog>
#include <QTimer>

class QLabel;

namespace tambrix {

/// The small window that loads the program into the board while it is shown, and says where the
/// transfer stands. It cannot be closed before; it ends by itself, whatever the outcome.
class ProgramDownloadWindow : public QDialog
{
    Q_OBJECT

public:
    explicit ProgramDownloadWindow(ProgramState& state, QWidget* parent = nullptr);

    /// Closing it during the transfer is refused.
    void reject() override {}

protected:
    void showEvent(QShowEvent* event) override;

private:
    void transfer();
    void showProgress();

    ProgramState& m_state;
    QLabel* m_progress;
    QTimer m_timer;
};

} // namespace tambrix
