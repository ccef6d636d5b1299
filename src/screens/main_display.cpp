#include "screens/main_display.h"

#include "controls/fonts.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace tambrix {

namespace {

const std::array<std::string, 1> kDisplayRegisters = {"W112"}; // machine speed, cans per minute

constexpr int kSmallestMessagePoints = 10;
constexpr int kLargestMessagePoints = 30;
constexpr int kSmallestSpeedPoints = 40;
constexpr int kLargestSpeedPoints = 220;
constexpr int kFramePoints = 14;
constexpr int kButtonPoints = 18;

/// The widest speed the register's four digits show; sizes the figure once, so that it does not
/// jump from one digit to the next.
const QString kWidestSpeed = QStringLiteral("0000");

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
      m_speed(new QLabel(QStringLiteral("-"))),
      m_reset(new QPushButton(QStringLiteral("&Reset Alarms")))
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Main Display"));

    m_messages->setObjectName(QStringLiteral("txtMessageDisplay"));
    m_messages->setAccessibleName(QStringLiteral("Messages"));
    m_messages->setReadOnly(true);
    m_messages->setTabChangesFocus(true);
    m_speed->setObjectName(QStringLiteral("lblDisplay"));
    m_speed->setAccessibleName(QStringLiteral("Machine CPM"));
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

    connect(m_reset, &QPushButton::clicked, this, &MainDisplay::resetAlarms);
}

void MainDisplay::applyOnlineView()
{
    enableControls(true);
}

void MainDisplay::applyOfflineView()
{
    enableControls(false);
    m_speed->setText(QStringLiteral("-"));
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
    return readRegisters(kDisplayRegisters, [this](std::size_t, const QString& speed) {
        m_speed->setText(speed.trimmed());
    });
}

void MainDisplay::resetAlarms()
{
    if (!state().gLink.CommError)
        state().gLink.RSWrite("F123", "1");
}

void MainDisplay::resizeEvent(QResizeEvent* event)
{
    Screen::resizeEvent(event);
    fitMessageFont();
    fitSpeedFont();
}

void MainDisplay::fitMessageFont()
{
    setPoints(*m_messages, fittingPointSize(m_messages->font(), m_messages->toPlainText(),
                                            m_messages->viewport()->size(), kSmallestMessagePoints,
                                            kLargestMessagePoints));
}

void MainDisplay::fitSpeedFont()
{
    setPoints(*m_speed, fittingPointSize(m_speed->font(), kWidestSpeed, m_speed->size(),
                                         kSmallestSpeedPoints, kLargestSpeedPoints));
}

} // namespace tambrix
