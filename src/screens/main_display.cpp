#include "screens/main_display.h"

#include "controls/alarm_banner.h"
#include "controls/calm_style.h"
#include "controls/fitted_label.h"
#include "controls/fonts.h"
#include "controls/lamp.h"
#include "controls/steady_place.h"
#include "controls/text_size.h"
#include "controls/trend.h"
#include "data/parameters.h"
#include "recorder/recent_speed.h"
#include "screens/first_steps.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTime>
#include <QVBoxLayout>

#include <utility>

namespace tambrix {

namespace {

const std::array<std::string, 1> kDisplayRegisters = {reg::kMachineSpeed.address};

constexpr int kSmallestMessagePoints = 7;
constexpr int kLampGrids = 4;
constexpr int kMessageMargin = 8; // around the text

} // namespace

MainDisplay::MainDisplay(ProgramState& state)
    : Screen(state),
      m_banner(new AlarmBanner),
      m_messages(new QPlainTextEdit),
      m_firstSteps(new FirstSteps),
      m_speed(new FittedLabel(QStringLiteral("lblDisplay"), QStringLiteral("Machine CPM"),
                              QStringLiteral("-"), QStringLiteral("0000"))),
      m_trend(new Trend(QStringLiteral("Machine CPM, trend"),
                        static_cast<double>(RecentSpeed::kSpan) / kSecond,
                        static_cast<double>(RecentSpeed::kBin) / kSecond)),
      m_reset(makeButton(QStringLiteral("cmdAlarmReset"), QStringLiteral("&Reset Alarms")))
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Main Display"));
    m_banner->setObjectName(QStringLiteral("picAlarm"));
    m_messages->setObjectName(QStringLiteral("txtMessageDisplay"));
    m_messages->setAccessibleName(QStringLiteral("Messages"));
    m_messages->setReadOnly(true);
    m_messages->setTabChangesFocus(true);
    m_messages->document()->setDocumentMargin(kMessageMargin);
    m_messages->viewport()->installEventFilter(this); // its size is known later than the screen's

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(makeMessages(), 3);
    layout->addLayout(makeSide(), 2);
}

QLayout* MainDisplay::makeMessages()
{
    QGroupBox* frame = makeFrame(QStringLiteral("fraMessageDisplay"), QStringLiteral("Messages"));
    auto* inside = new QVBoxLayout(frame);
    inside->addWidget(m_messages);
    auto* column = new QVBoxLayout;
    column->addWidget(m_banner);
    column->addWidget(frame, 1);
    column->addWidget(m_firstSteps);
    return column;
}

QLayout* MainDisplay::makeSide()
{
    auto* column = new QVBoxLayout;
    column->addWidget(makeSpeed(), 1);
    column->addWidget(makeDuctors());
    column->addWidget(makeReset());
    return column;
}

QGroupBox* MainDisplay::makeSpeed()
{
    m_speedFrame = makeFrame(QStringLiteral("fraDisplay(0)"), QStringLiteral("Machine CPM"));
    auto* inside = new QVBoxLayout(m_speedFrame);
    inside->addWidget(new SteadyPlace(m_speed), 1);
    inside->addWidget(makeDimLabel(QStringLiteral("cans per minute")), 0, Qt::AlignCenter);
    m_trend->setObjectName(QStringLiteral("picTrend"));
    inside->addWidget(m_trend);
    return m_speedFrame;
}

QGroupBox* MainDisplay::makeDuctors()
{
    QGroupBox* frame = makeFrame(QStringLiteral("fraDuctors"), QStringLiteral("Ductors"));
    auto* row = new QHBoxLayout(frame);
    for (int d = 0; d < kDuctors; ++d) {
        const QString number = QString::number(d + 1);
        auto* lamp = new Lamp("Ductor " + number, kLampGrids, number);
        lamp->setObjectName(arrayName("picDuctor", d));
        lamp->setWords(QStringLiteral("off"), QStringLiteral("no fault"),
                       QStringLiteral("no feedback"));
        row->addWidget(lamp, 1);
        m_ductors[static_cast<std::size_t>(d)] = lamp;
    }
    return frame;
}

QGroupBox* MainDisplay::makeReset()
{
    m_resetFrame = makeFrame(QStringLiteral("fraDisplay(1)"), QStringLiteral("Alarm Reset"));
    auto* inside = new QVBoxLayout(m_resetFrame);
    inside->addWidget(m_reset);
    setTextSize(*m_reset, TextSize::Value);
    connect(m_reset, &QPushButton::clicked, this, &MainDisplay::resetAlarms);
    return m_resetFrame;
}

void MainDisplay::applyOnlineView()
{
    enableControls(true);
}

void MainDisplay::applyOfflineView()
{
    enableControls(false);
    m_speed->setValue(QStringLiteral("-"));
}

void MainDisplay::enableControls(bool enabled)
{
    m_reset->setEnabled(enabled);
    m_speed->setEnabled(enabled);
    m_speedFrame->setEnabled(enabled);
    m_resetFrame->setEnabled(enabled);
    cmdDefault()->setFocus();
}

void MainDisplay::refreshAlways()
{
    showAlarms();
    showTrend();
    m_firstSteps->setVisible(!online() && !state().everConnected);
    if (m_messageShown == state().gSystemMessage)
        return;
    m_messageShown = state().gSystemMessage;
    m_messages->setPlainText(QString(m_messageShown).remove(u'\r'));
    fitMessageFont();
}

/// The speeds of the last minutes that were recorded, whatever screen was in front.
void MainDisplay::showTrend()
{
    const RecentSpeed* recent = state().recentSpeed;
    m_trend->setVisible(recent != nullptr);
    if (!online()) { // it would end long before now
        if (std::exchange(m_trendShown, -1) != -1)
            m_trend->show({});
        return;
    }
    if (recent == nullptr || recent->generation() == m_trendShown)
        return;
    m_trendShown = recent->generation();
    std::vector<Trend::Point> points;
    for (const SpeedRow& bin : recent->bins()) {
        const UtcMs ago = recent->bins().back().begin - bin.begin;
        points.push_back(
            {static_cast<double>(ago) / kSecond, bin.range->low, bin.range->high, bin.range->last});
    }
    m_trend->show(std::move(points));
}

/// By the alarm word that the main window's poll reads anyway; unknown, nothing is green.
void MainDisplay::showAlarms()
{
    const AlarmsShown now{online(), state().gLink.CommError, state().alarmWord};
    if (now == m_alarmsShown)
        return;
    m_alarmsShown = now;
    const std::optional<int> word = online() ? state().alarmWord : std::nullopt;
    const int faults = std::max(word.value_or(0), 0);
    if (word)
        m_banner->showAlarms(static_cast<std::uint8_t>(faults), QTime::currentTime());
    else if (online())
        m_banner->showUnknown(QStringLiteral("Not read yet"));
    else
        m_banner->showUnknown(state().gLink.CommError ? QStringLiteral("No communication")
                                                      : QStringLiteral("Off line"));
    for (std::size_t d = 0; d < m_ductors.size(); ++d)
        m_ductors[d]->show(!word                      ? LampState::Unknown
                           : (faults & (1 << d)) != 0 ? LampState::Alarm
                                                      : LampState::On);
    setPrimary(*m_reset, m_banner->alarmed());
}

Task MainDisplay::onlinePass()
{
    return readRegisters(kDisplayRegisters, [this](std::size_t, const QString& speed) {
        m_speed->setValue(speed.trimmed());
    });
}

void MainDisplay::resetAlarms()
{
    if (!state().gLink.CommError)
        state().gLink.RSWrite(reg::kAlarmReset.address, "1");
}

bool MainDisplay::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        fitMessageFont();
    return Screen::eventFilter(watched, event);
}

/// As large as a value, and smaller where all messages would not be seen at once.
void MainDisplay::fitMessageFont()
{
    const int largest = std::max(font().pointSize() * 5 / 4, kSmallestMessagePoints);
    setPoints(*m_messages, fittingPointSize(m_messages->font(), m_messages->toPlainText(),
                                            m_messages->viewport()->size() -
                                                QSize(kMessageMargin, kMessageMargin),
                                            kSmallestMessagePoints, largest));
}

} // namespace tambrix
