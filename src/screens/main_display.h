#pragma once

#include "data/setup_data.h"
#include "shell/screen.h"

#include <array>
#include <optional>

class QGroupBox;
class QLayout;
class QPlainTextEdit;

namespace tambrix {

class AlarmBanner;
class FirstSteps;
class FittedLabel;
class Lamp;
class Trend;

/// The operator's overview: system and alarm messages, machine speed, and the alarm reset. Beside
/// them the same as pictures, for whoever stands at the press: a banner, and a lamp per ductor.
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
    QLayout* makeMessages();
    QLayout* makeSide();
    QGroupBox* makeSpeed();
    void showTrend();
    QGroupBox* makeDuctors();
    QGroupBox* makeReset();
    void resetAlarms();
    void enableControls(bool enabled);
    void showAlarms();
    void fitMessageFont();

    /// What the pictures of the alarms show follows from this alone.
    struct AlarmsShown
    {
        bool online = false;
        bool commError = false;
        std::optional<int> word;
        bool operator==(const AlarmsShown&) const = default;
    };

    AlarmBanner* m_banner;
    std::optional<AlarmsShown> m_alarmsShown;
    QPlainTextEdit* m_messages;
    QString m_messageShown;
    FirstSteps* m_firstSteps;
    QGroupBox* m_speedFrame;
    FittedLabel* m_speed;
    Trend* m_trend;
    int m_trendShown = -1; ///< generation of what it shows
    std::array<Lamp*, kDuctors> m_ductors{};
    QGroupBox* m_resetFrame;
    QPushButton* m_reset;
};

} // namespace tambrix
