#pragma once

#include "shell/screen.h"

class QGroupBox;
class QPlainTextEdit;

namespace tambrix {

class ValueLabel;

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
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void resetAlarms();
    void enableControls(bool enabled);
    void showSpeed(const QString& speed);
    void fitMessageFont();
    void fitSpeedFont();

    QPlainTextEdit* m_messages;
    QGroupBox* m_speedFrame;
    ValueLabel* m_speed;
    QGroupBox* m_resetFrame;
    QPushButton* m_reset;
};

} // namespace tambrix
