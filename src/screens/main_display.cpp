#include "screens/main_display.h"

#include "controls/fonts.h"
#include "controls/value_label.h"
#include "data/parameters.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tambrix {

namespace {

const std::array<std::string, 1> kDisplayRegisters = {reg::kMachineSpeed.address};

constexpr int kSmallestMessagePoints = 10;
constexpr int kLargestMessagePoints = 30;
constexpr int kSmallestSpeedPoints = 10;
constexpr int kLargestSpeedPoints = 220;
constexpr int kFramePoints = 14;
constexpr int kButtonPoints = 18;

/// The widest usual speed; sizes the figure once, so that it does not jump from one digit to the
/// next. A speed of five digits gets a size of its own.
const QString kUsualSpeed = QStringLiteral("0000");

QGroupBox* makeFrame(const QString& name, const QString& caption, QWidget* content)
{
    auto* frame = new QGroupBox(caption);
    frame->setObjectName(name);
    setPoints(*frame, kFramePoints);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(content);
    return frame;
}

} // namespace

MainDisplay::MainDisplay(ProgramState& state)
    : Screen(state),
      m_messages(new QPlainTextEdit),
      m_speed(new ValueLabel(QStringLiteral("lblDisplay"), QStringLiteral("Machine CPM"),
                             QStringLiteral("-"))),
      m_reset(new QPushButton(QStringLiteral("&Reset Alarms")))
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Main Display"));

    m_messages->setObjectName(QStringLiteral("txtMessageDisplay"));
    m_messages->setAccessibleName(QStringLiteral("Messages"));
    m_messages->setReadOnly(true);
    m_messages->setTabChangesFocus(true);
    m_speed->setAlignment(Qt::AlignCenter);
    m_speed->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_reset->setObjectName(QStringLiteral("cmdAlarmReset"));
    m_reset->setMinimumHeight(72);

    QGroupBox* messageFrame =
        makeFrame(QStringLiteral("fraMessageDisplay"), QStringLiteral("Messages"), m_messages);
    m_speedFrame =
        makeFrame(QStringLiteral("fraDisplay(0)"), QStringLiteral("Machine CPM"), m_speed);
    m_resetFrame =
        makeFrame(QStringLiteral("fraDisplay(1)"), QStringLiteral("Alarm Reset"), m_reset);
    setPoints(*m_reset, kButtonPoints);

    auto* side = new QVBoxLayout;
    side->addWidget(m_speedFrame, 1);
    side->addWidget(m_resetFrame);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(messageFrame, 3);
    layout->addLayout(side, 2);

    // Their own sizes count: on a second showing they come later than the screen's.
    m_speed->installEventFilter(this);
    m_messages->viewport()->installEventFilter(this);
    connect(m_reset, &QPushButton::clicked, this, &MainDisplay::resetAlarms);
}

void MainDisplay::applyOnlineView()
{
    enableControls(true);
}

void MainDisplay::applyOfflineView()
{
    enableControls(false);
    showSpeed(QStringLiteral("-"));
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
    QString message = state().gSystemMessage;
    message.remove(u'\r');
    if (m_messages->toPlainText() == message)
        return;
    m_messages->setPlainText(message);
    fitMessageFont();
}

Task MainDisplay::onlinePass()
{
    return readRegisters(kDisplayRegisters,
                         [this](std::size_t, const QString& speed) { showSpeed(speed.trimmed()); });
}

void MainDisplay::resetAlarms()
{
    if (!state().gLink.CommError)
        state().gLink.RSWrite(reg::kAlarmReset.address, "1");
}

void MainDisplay::showSpeed(const QString& speed)
{
    if (speed == m_speed->text())
        return;
    m_speed->setValue(speed);
    fitSpeedFont();
}

bool MainDisplay::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == m_speed)
        fitSpeedFont();
    else if (event->type() == QEvent::Resize)
        fitMessageFont();
    return Screen::eventFilter(watched, event);
}

void MainDisplay::fitMessageFont()
{
    setPoints(*m_messages, fittingPointSize(m_messages->font(), m_messages->toPlainText(),
                                            m_messages->viewport()->size(), kSmallestMessagePoints,
                                            kLargestMessagePoints));
}

void MainDisplay::fitSpeedFont()
{
    const QString widest = std::max(kUsualSpeed, m_speed->text(), [](auto& left, auto& right) {
        return left.size() < right.size();
    });
    setPoints(*m_speed, fittingPointSize(m_speed->font(), widest, m_speed->size(),
                                         kSmallestSpeedPoints, kLargestSpeedPoints));
}

} // namespace tambrix
