#pragma once

#include <QObject>
#include <QString>

class QStatusBar;
class QToolButton;

namespace tambrix {

class ValueLabel;

/// The status bar's four panels: system message, mode, date and time. The mode panel is a button:
/// a click asks for the other mode. Date and time keep themselves up to date.
class StatusPanels : public QObject
{
    Q_OBJECT

public:
    explicit StatusPanels(QStatusBar& bar);

    void showStatus(const QString& text);
    void showMode(bool online);

signals:
    void modeClicked();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void showDateAndTime();

    ValueLabel* m_status;
    QToolButton* m_mode;
    ValueLabel* m_date;
    ValueLabel* m_time;
};

} // namespace tambrix
