#include "maintenance/fault_page.h"

#include "controls/named_controls.h"
#include "data/board_codes.h"
#include "data/processor_registers.h"
#include "link/lenient_number.h"
#include "shell/link_poller.h"

#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tambrix {

namespace {

// Indices of the codes, and of their labels and text boxes.
constexpr std::size_t kCurrentFault = 0;
constexpr std::size_t kLastFault = 1;
constexpr std::size_t kSlot = 2;
constexpr std::size_t kAction = 3; // the last fault again: it selects the corrective action
constexpr std::size_t kCurrentError = 4;
constexpr std::size_t kLastError = 5;

constexpr std::array kRegisters = {
    reg::kFaultCode.address,     reg::kLastFaultCode.address, "B8175",
    reg::kLastFaultCode.address, reg::kNetworkError.address,  reg::kLastNetworkError.address};
constexpr std::array kCaptions = {"Current Fault:",     "Last Fault:",         "CO-CPU Slot:",
                                  "Corrective Action:", "Current Comm Error:", "Last Comm Error:"};
constexpr int kReadTries = 3;
constexpr std::array kTextLines = {2, 2, 0, 4, 2, 2};

const QString kCannotCommunicate = QStringLiteral("Cannot Communicate with Target Board.");

int hexValue(const QString& code)
{
    return leadingHex(code.toStdString());
}

QPlainTextEdit* makeTextBox(std::size_t index)
{
    auto* box = new QPlainTextEdit;
    box->setObjectName(arrayName("txtTargetBoard", static_cast<int>(index)));
    box->setAccessibleName(QLatin1String(kCaptions[index]));
    box->setReadOnly(true);
    box->setTabChangesFocus(true);
    box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the text wraps
    const int lines = QFontMetrics(box->font()).lineSpacing() * kTextLines[index];
    box->setFixedHeight(lines + 2 * box->frameWidth() + 10);
    return box;
}

} // namespace

FaultPage::FaultPage(ProgramState& state, const std::function<void()>& reset)
    : m_state(state),
      m_reset(makeButton(QStringLiteral("cmdResetFaults"), QStringLiteral("&Reset Faults")))
{
    connect(m_reset, &QPushButton::clicked, this, reset);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_reset);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeFaults());
    layout->addWidget(makeNetworkErrors());
    layout->addStretch();
    layout->addLayout(buttons);
}

QWidget* FaultPage::makeFaults()
{
    QGroupBox* group =
        makeFrame(QStringLiteral("fraInternalFault"), QStringLiteral("Internal Fault Code:"));
    auto* layout = new QVBoxLayout(group);
    for (const std::size_t index : {kCurrentFault, kLastFault, kSlot, kAction})
        addCode(*layout, index);
    return group;
}

QWidget* FaultPage::makeNetworkErrors()
{
    QGroupBox* group = makeFrame(QStringLiteral("fraCommError"),
                                 QStringLiteral("Communications Network Error Codes:"));
    auto* layout = new QVBoxLayout(group);
    for (const std::size_t index : {kCurrentError, kLastError})
        addCode(*layout, index);
    return group;
}

void FaultPage::addCode(QVBoxLayout& layout, std::size_t index)
{
    m_labels[index] = makeLabel(arrayName("lblTargetBoard", static_cast<int>(index)),
                                QLatin1String(kCaptions[index]));
    layout.addWidget(m_labels[index]);
    if (index == kSlot) // a number only
        return;
    m_boxes[index] = makeTextBox(index);
    layout.addWidget(m_boxes[index]);
}

void FaultPage::showSlot(bool shown)
{
    m_slotShown = shown;
    m_labels[kSlot]->setVisible(shown);
}

void FaultPage::enableReset(bool enabled)
{
    m_reset->setEnabled(enabled);
}

Task FaultPage::refresh(LinkPoller& poller)
{
    m_reset->setEnabled(false);
    for (std::size_t index = 0; index < m_codes.size(); ++index) {
        co_await poller.pendingEvents();
        m_codes[index] = readCode(index);
    }
    showCodes();
    showTexts({kCurrentFault, kLastFault}, "FaultErrCodes.txt");
    if (const auto slot = m_slotShown ? readRegister(kSlot) : std::nullopt)
        showSlotNumber(*slot);
    m_boxes[kAction]->setPlainText(correctiveAction(hexValue(m_codes[kAction])));
    showTexts({kCurrentError, kLastError}, "CommErrCodes.txt");
}

/// A read that a disturbance spoiled is no code 00: it is repeated, and stands for a broken link
/// where that does not help.
std::optional<int> FaultPage::readRegister(std::size_t index)
{
    for (int tries = 0; tries < kReadTries && m_state.canReachBoard(); ++tries) {
        const std::string value = m_state.gLink.RSRead(kRegisters[index]);
        if (m_state.gLink.readSucceeded())
            return std::stoi(value);
    }
    return std::nullopt;
}

/// The code as text.
/// kept: one that reads as a decimal number above 0 makes the reset available; a code that begins
/// with a letter, or with 0 and a letter, does not. So it has always been on this controller.
QString FaultPage::readCode(std::size_t index)
{
    const auto value = readRegister(index);
    const QString code = value ? codeText(*value) : kBrokenLinkCode;
    if (index != kSlot && leadingDecimal(code.toStdString()) > 0)
        m_reset->setEnabled(true);
    return code;
}

void FaultPage::showCodes()
{
    for (const std::size_t index : {kCurrentFault, kLastFault, kCurrentError, kLastError})
        m_labels[index]->setText(QLatin1String(kCaptions[index]) + " Code = " + m_codes[index] +
                                 u'H');
    showSlotNumber(hexValue(m_codes[kSlot]));
}

void FaultPage::showSlotNumber(int slot)
{
    m_labels[kSlot]->setText(QStringLiteral("CO-CPU Slot: %1").arg(slot));
}

void FaultPage::showTexts(std::initializer_list<std::size_t> boxes, const char* file)
{
    const QString path = m_state.programFolder.filePath(QStringLiteral("Support/") + file);
    for (const std::size_t index : boxes) {
        if (const auto text = lastTextOf(m_codes[index], path))
            m_boxes[index]->setPlainText(*text);
    }
}

void FaultPage::showMode(bool online)
{
    m_reset->setEnabled(false);
    for (QLabel* label : m_labels)
        label->setEnabled(online);
    if (!online)
        m_boxes[kCurrentFault]->setPlainText(kCannotCommunicate);
    else if (m_boxes[kCurrentFault]->toPlainText() == kCannotCommunicate)
        m_boxes[kCurrentFault]->clear();
}

} // namespace tambrix
