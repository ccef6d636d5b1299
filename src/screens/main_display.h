#pragma once

#include "shell/screen.h"

class QGroupBox;
class QLabel;
class QPlainTextEdit;

namespace tambrix {

/// The operator's overview: system and alarm messages, machine speed, and the alarm reset.
class MainDisplay : public Screen
{
    Q_OBJECT

public:
    explicit MainDisplay(ProgramState& state);

protected:
    void applyOnlineView() override;
    void applyOfflineView() override;
    void refreshAlways() override;
    Task onlinePass() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void resetAlarms();
    void enableControls(bool enabled);
    void fitMessageFont();
    void fitSpeedFont();

    QPlainTextEdit* m_messages;
    QGroupBox* m_speedFrame;
    QLabel* m_speed;
    QGroupBox* m_resetFrame;
    QPushButton* m_reset;
};

} // namespace tambrix
