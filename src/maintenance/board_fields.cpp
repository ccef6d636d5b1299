#include "maintenance/board_fields.h"

#include "controls/value_label.h"
#include "data/link_text.h"
#include "data/processor_registers.h"
#include "shell/link_poller.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tambrix {

namespace {

struct Field
{
    const char* reg;
    const char* caption;
    std::int32_t minimum;
    std::int32_t maximum;
};

constexpr std::array<Field, BoardFields::kFields> kTable = {{
    {reg::kNetworkAddress1.address, "Current Network Address 1:", 1, 32},
    {reg::kNetworkAddress2.address, "Current Network Address 2:", 1, 32},
    {reg::kClockHour.address, "Hour", 0, 23},
    {reg::kClockMinute.address, "Min.", 0, 59},
    {reg::kClockSecond.address, "Sec.", 0, 59},
    {reg::kClockMonth.address, "Month", 1, 12},
    {reg::kClockDay.address, "Day", 1, 31},
    {reg::kClockYear.address, "Year", 0, 99},
}};
constexpr std::size_t kSecondAddress = 1;
constexpr std::size_t kTime = 2; // hour, minute, second
constexpr std::size_t kDate = 5; // month, day, year

constexpr int kBoardR140 = 54;
constexpr int kBoardH810 = 65;

QLabel* makeWrapped(const QString& name, const QString& text)
{
    QLabel* label = makeLabel(name, text);
    label->setWordWrap(true);
    return label;
}

QString twoDigits(const QString& value)
{
    return (QStringLiteral("00") + value).right(2);
}

} // namespace

BoardFields::BoardFields(ProgramState& state, QWidget& focusSink, std::function<QDateTime()> now)
    : m_state(state),
      m_now(std::move(now)),
      m_setTime(
          makeButton(QStringLiteral("cmdSetToCurrTime"), QStringLiteral("Set to Current &Time"))),
      m_setDate(
          makeButton(QStringLiteral("cmdSetToCurrDate"), QStringLiteral("Set to Current &Date"))),
      m_pcTime(new ValueLabel("lblCurrTime", "Current Time:", "XX : XX : XX")),
      m_pcDate(new ValueLabel("lblCurrDate", "Current Date:", "XX - XX - XX")),
      m_addressPage(makeAddressPage(focusSink)),
      m_clockPage(makeClockPage(focusSink))
{
    connect(m_setTime, &QPushButton::clicked, this, &BoardFields::setTime);
    connect(m_setDate, &QPushButton::clicked, this, &BoardFields::setDate);
}

QWidget* BoardFields::makeAddressPage(QWidget& focusSink)
{
    QGroupBox* frame = makeFrame(QStringLiteral("fraNetworkAddress"),
                                 QStringLiteral("Target Board Network Address:"));
    auto* grid = new QGridLayout(frame);
    grid->setVerticalSpacing(14);
    for (const std::size_t index : {std::size_t{0}, kSecondAddress})
        addField(*grid, index, static_cast<int>(index), 0, focusSink);
    grid->addWidget(
        makeWrapped(QStringLiteral("lblNetworkAddComment"),
                    QStringLiteral("Each R100 board connected to the R100 Network must be "
                                   "assigned a unique network address between 1 and 32.\r\n\r\n"
                                   "System function sfunc19(); configures the R560 serial "
                                   "communication for the Q900 processor.")),
        2, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(frame);
    layout->addStretch();
    return page;
}

QWidget* BoardFields::makeClockPage(QWidget& focusSink)
{
    m_clockFrames = {makeClockFrame(focusSink, kTime, m_setTime),
                     makeClockFrame(focusSink, kDate, m_setDate)};
    m_clockFrames[0]->setTitle(QStringLiteral("Target Board Time:"));
    m_clockFrames[1]->setTitle(QStringLiteral("Target Board Date:"));
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->addWidget(m_clockFrames[0], 0, 0, 1, 2);
    grid->addWidget(m_clockFrames[1], 1, 0, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("Current Time:")), 2, 0);
    grid->addWidget(m_pcTime, 2, 1);
    grid->addWidget(new QLabel(QStringLiteral("Current Date:")), 3, 0);
    grid->addWidget(m_pcDate, 3, 1);
    grid->addWidget(new QLabel(QStringLiteral("Note:")), 4, 0, Qt::AlignTop);
    grid->addWidget(makeWrapped(QStringLiteral("lblClockNote"),
                                QStringLiteral("Only the H810 Display Module and the R140 "
                                               "Communications CO-CPU board are equipped with "
                                               "real time clocks.")),
                    4, 1, Qt::AlignTop);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
    return page;
}

QGroupBox* BoardFields::makeClockFrame(QWidget& focusSink, std::size_t first, QPushButton* button)
{
    QGroupBox* frame =
        makeFrame(first == kTime ? QStringLiteral("fraTime") : QStringLiteral("fraDate"), {});
    auto* grid = new QGridLayout(frame);
    for (std::size_t i = 0; i < 3; ++i)
        addField(*grid, first + i, 0, 2 * static_cast<int>(i), focusSink);
    grid->setColumnStretch(6, 1);
    grid->addWidget(button, 0, 7);
    return frame;
}

void BoardFields::addField(QGridLayout& grid, std::size_t index, int row, int column,
                           QWidget& focusSink)
{
    const Field& field = kTable[index];
    const QString caption = QLatin1String(field.caption);
    const auto send = [this, index](const QString& text, std::int32_t) { write(index, text); };
    EntryRules rules;
    // kept: no blank between the two; users know these boxes by their titles.
    rules.title = QStringLiteral("Set-up") + caption;
    rules.minimum = field.minimum;
    rules.maximum = field.maximum;
    rules.store = send;
    rules.step = send;
    const int number = static_cast<int>(index);
    m_fields[index] = new NumericEntryField(m_state.prompts, focusSink, std::move(rules));
    m_fields[index]->setNames(arrayName("txtSetup", number), arrayName("updSetup", number));
    m_labels[index] = m_fields[index]->makeCaption(arrayName("lblSetup", number), caption);
    grid.addWidget(m_labels[index], row, column);
    grid.addWidget(m_fields[index], row, column + 1);
}

void BoardFields::prepare(int boardType)
{
    m_hasClock = boardType == kBoardR140 || boardType == kBoardH810;
    m_hasSecondAddress = boardType == kBoardH810;
    m_labels[kSecondAddress]->setVisible(m_hasSecondAddress);
    m_fields[kSecondAddress]->setVisible(m_hasSecondAddress);
    for (std::size_t index = kTime; index < kFields; ++index)
        m_fields[index]->setText(QStringLiteral("-"));
    enableClock(m_hasClock);
}

void BoardFields::showMode(bool online)
{
    enableField(0, online);
    enableField(kSecondAddress, online && m_hasSecondAddress);
    enableClock(online && m_hasClock);
}

void BoardFields::enableField(std::size_t index, bool enabled)
{
    m_labels[index]->setEnabled(enabled);
    if (!enabled)
        m_fields[index]->endEditing();
    m_fields[index]->setEnabled(enabled);
}

void BoardFields::enableClock(bool enabled)
{
    for (std::size_t index = kTime; index < kFields; ++index)
        enableField(index, enabled);
    for (QGroupBox* frame : m_clockFrames)
        frame->setEnabled(enabled);
    m_setTime->setEnabled(enabled);
    m_setDate->setEnabled(enabled);
}

Task BoardFields::refresh(LinkPoller& poller)
{
    static const auto kRegisters = [] {
        std::array<std::string, kFields> registers;
        std::ranges::transform(kTable, registers.begin(), &Field::reg);
        return registers;
    }();
    return poller.readRegisters(
        kRegisters, [this] { return m_state.canReachBoard(); },
        [this](std::size_t index, const QString& value) {
            if (m_fields[index]->isEnabled())
                m_fields[index]->showValue(twoDigits(value));
        });
}

void BoardFields::showPcClock(const QDateTime& now)
{
    m_pcTime->setValue(now.toString(QStringLiteral("HH : mm : ss")));
    m_pcDate->setValue(now.toString(QStringLiteral("MM - dd - yyyy")));
}

void BoardFields::write(std::size_t index, const QString& text)
{
    writeIfPossible(kTable[index].reg, text);
}

void BoardFields::writeIfPossible(const char* reg, const QString& value)
{
    if (m_state.canReachBoard() && !m_state.gLink.isBusy())
        m_state.gLink.RSWrite(reg, value.toStdString());
}

void BoardFields::setTime()
{
    const QTime time = m_now().time();
    writeIfPossible(kTable[kTime].reg, QString::number(time.hour()));
    writeIfPossible(kTable[kTime + 1].reg, QString::number(time.minute()));
    writeIfPossible(kTable[kTime + 2].reg, QString::number(time.second()));
}

void BoardFields::setDate()
{
    const QDate date = m_now().date();
    writeIfPossible(kTable[kDate].reg, QString::number(date.month()));
    writeIfPossible(kTable[kDate + 1].reg, QString::number(date.day()));
    // kept: the year goes as its last two characters, "05" for 2005.
    writeIfPossible(kTable[kDate + 2].reg, QString::number(date.year()).right(2));
}

} // namespace tambrix
