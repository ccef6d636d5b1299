#pragma once

#include "data/controller_reading.h"
#include "data/refusal.h"
#include "platform/cooperative_loop.h"
#include "shell/program_state.h"

#include <QDialog>

#include <variant>

class QProgressBar;

namespace tambrix {

/// Saves what was read from the controller as a backup below the data root, under the press's
/// name. Returns its path.
std::variant<QString, Refusal> saveBackup(const ProgramState& state, const SetupDataRecord& read);

/// Reads the whole controller behind a progress bar with a Cancel button, and saves it as a
/// backup. The program is on line.
class BackupDialog : public QDialog
{
    Q_OBJECT

public:
    explicit BackupDialog(ProgramState& state, QWidget* parent = nullptr);

    /// The backup has been made.
    bool made() const { return m_made; }
    /// Why not; empty after Cancel.
    const QString& reason() const { return m_reason; }

    /// Cancel, Escape and the window's close button: the reading stops before its next entry.
    void reject() override { m_cancelled = true; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void build();
    Task work();
    void save();

    ProgramState& m_state;
    ControllerReading m_reading;
    QProgressBar* m_progress;
    QString m_reason;
    bool m_made = false;
    bool m_cancelled = false;
    CooperativeLoop m_loop; // last: its frame is gone before anything that it uses
};

/// Makes a backup before a download, and says why when it could not. False: the download must not
/// begin.
bool backUpBeforeDownload(ProgramState& state, QWidget* window);

} // namespace tambrix
