#include "shell/status_panels.h"

#include "controls/steady_place.h"
#include "controls/value_label.h"

#include <QDateTime>
#include <QLocale>
#include <QStatusBar>
#include <QToolButton>

namespace tambrix {

namespace {

constexpr int kClockInterval = 1000; // ms

ValueLabel* addLabel(QStatusBar& bar, const QString& key, const QString& toolTip, int stretch)
{
    auto* label = new ValueLabel(key, toolTip, {});
    label->setToolTip(toolTip);
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    label->setContentsMargins(6, 1, 6, 1);
    if (stretch > 0) // takes what there is
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar.addPermanentWidget(new SteadyPlace(label), stretch);
    return label;
}

} // namespace

StatusPanels::StatusPanels(QStatusBar& bar)
    : QObject(&bar),
      m_status(addLabel(bar, QStringLiteral("STATUS"),
                        QStringLiteral("System Status Display Messages"), 1)),
      m_mode(new QToolButton)
{
    m_mode->setObjectName(QStringLiteral("MODE"));
    m_mode->setToolTip(QStringLiteral("Communications Mode"));
    m_mode->setFocusPolicy(Qt::TabFocus);
    m_mode->setMinimumWidth(m_mode->fontMetrics().horizontalAdvance(QStringLiteral("OFFLINE")) +
                            24);
    bar.addPermanentWidget(m_mode);
    m_date = addLabel(bar, QStringLiteral("DATE"), QStringLiteral("Current Date"), 0);
    m_time = addLabel(bar, QStringLiteral("TIME"), QStringLiteral("Current Time"), 0);
    connect(m_mode, &QToolButton::clicked, this, &StatusPanels::modeClicked);

    showStatus(QStringLiteral("System Message:"));
    showMode(false);
    showDateAndTime();
    startTimer(kClockInterval);
}

void StatusPanels::showStatus(const QString& text)
{
    m_status->setValue(text);
}

void StatusPanels::showMode(bool online)
{
    m_mode->setText(online ? QStringLiteral("ONLINE") : QStringLiteral("OFFLINE"));
    m_mode->setAccessibleName(m_mode->toolTip() + ": " + m_mode->text());
}

void StatusPanels::timerEvent(QTimerEvent*)
{
    showDateAndTime();
}

void StatusPanels::showDateAndTime()
{
    const QDateTime now = QDateTime::currentDateTime();
    m_date->setValue(QLocale().toString(now.date(), QLocale::ShortFormat));
    m_time->setValue(QLocale().toString(now.time(), QLocale::ShortFormat));
}

} // namespace tambrix
