#include "screens/setup_screen.h"

#include "controls/cycle_ring.h"
#include "controls/named_controls.h"
#include "controls/text_size.h"
#include "data/parameters.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tambrix {

namespace {

const std::array<std::string, 5> kRegisters = {
    reg::kSetupParameters[0].address, reg::kSetupParameters[1].address,
    reg::kSetupParameters[2].address, reg::kSetupParameters[3].address,
    reg::kFeedbackEnable.address};
constexpr std::size_t kCycleEntry = 0;
constexpr std::size_t kOnEntry = 1;
constexpr std::size_t kFeedbackEntry = 4;
constexpr int kAllDuctors = 255;

constexpr std::array kCaptions = {
    "Maximum &Cycle Duration (0.1 cans):", "M&aximum ON Duration (0.1 cans):",
    "&Response Time Compensation (msec):", "Color &Gain % (CG-100% per 2000CPM):"};

/// kept: a typed value has always been kept among the CYCLE durations of label 6, ductors 5 to 8,
/// and only a spinner step in the parameter's own slot. Data sets in use were made that way.
constexpr int kTypedSlot = labelBase(6) + kDuctors + 4;

QLabel* makeRangeHint(const Parameter& parameter)
{
    return makeDimLabel(QStringLiteral("%1 to %2").arg(parameter.minimum).arg(parameter.maximum));
}

} // namespace

SetupScreen::SetupScreen(ProgramState& state)
    : Screen(state),
      m_feedback("chkFeedback", QStringLiteral("&"), QStringLiteral("Feedback Enable, ductor"),
                 [this] { return setFeedback(m_feedback.bits()); }),
      m_parameterFrame(makeParameters()),
      m_feedbackFrame(makeFeedback())
{
    setObjectName(QStringLiteral("frmSetup"));
    setWindowTitle(QStringLiteral("Set-Up"));
    auto* left = new QVBoxLayout;
    left->addWidget(m_parameterFrame);
    left->addWidget(m_feedbackFrame, 1);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left, 3);
    layout->addWidget(makeCycle(), 2);
}

QGroupBox* SetupScreen::makeParameters()
{
    QGroupBox* frame = makeFrame(arrayName("fraSetup", 0), QStringLiteral("Cycling Parameters"));
    auto* grid = new QGridLayout(frame);
    for (std::size_t i = 0; i < kFields; ++i) {
        const int row = static_cast<int>(i);
        m_fields[i] = new NumericEntryField(state().prompts, *cmdDefault(), rulesOf(i));
        m_fields[i]->setNames(arrayName("txtSetup", row), arrayName("updSetup", row));
        setTextSize(*m_fields[i], TextSize::Value);
        grid->addWidget(
            m_fields[i]->makeCaption(arrayName("lblDescription", row), QLatin1String(kCaptions[i])),
            row, 0);
        grid->addWidget(m_fields[i], row, 1);
        grid->addWidget(makeRangeHint(reg::kSetupParameters[i]), row, 2);
    }
    grid->setColumnStretch(0, 1);
    return frame;
}

QGroupBox* SetupScreen::makeFeedback()
{
    QGroupBox* frame = makeFrame(arrayName("fraSetup", 1), QStringLiteral("Feedback Enable"));
    auto* enableAll =
        makeButton(QStringLiteral("cmdEnableFeedbackAll"), QStringLiteral("&Enable All"));
    connect(enableAll, &QPushButton::clicked, this, [this] { setFeedback(kAllDuctors); });
    auto* disableAll =
        makeButton(QStringLiteral("cmdDisableFeedbackAll"), QStringLiteral("D&isable All"));
    connect(disableAll, &QPushButton::clicked, this, [this] { setFeedback(0); });

    m_feedback.layOut(*frame, *enableAll, *disableAll);
    return frame;
}

/// The longest ON window within the longest cycle, as the two limits stand.
QGroupBox* SetupScreen::makeCycle()
{
    m_cycleFrame =
        makeFrame(QStringLiteral("fraCycle"), QStringLiteral("One cycle at these limits"));
    m_ring = new CycleRing(QStringLiteral("One cycle at these limits"));
    m_ring->setObjectName(QStringLiteral("picCycle"));
    auto* inside = new QVBoxLayout(m_cycleFrame);
    inside->addWidget(m_ring, 1);
    inside->addWidget(makeDimLabel(QStringLiteral("shortest cycle: ON + 6.0 cans")), 0,
                      Qt::AlignCenter);
    return m_cycleFrame;
}

EntryRules SetupScreen::rulesOf(std::size_t entry)
{
    const auto keep = [this, entry](int slot, const QString& text, std::int32_t value) {
        storeValue(slot + static_cast<int>(entry), value);
        writeRegister(kRegisters[entry], text);
    };
    EntryRules rules;
    rules.title = QStringLiteral("Set-up");
    rules.minimum = reg::kSetupParameters[entry].minimum;
    rules.maximum = reg::kSetupParameters[entry].maximum;
    rules.store = [keep](const QString& text, std::int32_t value) {
        keep(kTypedSlot, text, value);
    };
    rules.checkAgain = [this, entry] { // what the link has refused once shows no second box
        return !online() || linkTakes(kRegisters[entry], m_fields[entry]->text());
    };
    rules.entering = [this, entry] { learn(entry); };
    // kept: a step from the other mode's value would be a jump of the press.
    rules.mayStep = [this, entry] { return m_known[entry]; };
    rules.step = [keep](const QString& text, std::int32_t value) { keep(kSetupSlot, text, value); };
    return rules;
}

/// A field that is entered before the first pass of this mode would hold the other mode's value.
void SetupScreen::learn(std::size_t entry)
{
    if (m_known[entry] || !online())
        return;
    if (const auto value = readRegister(kRegisters[entry]))
        showEntry(entry, *value);
}

void SetupScreen::applyOnlineView()
{
    enableControls(true);
}

void SetupScreen::applyOfflineView()
{
    enableControls(state().gOfflineEditing);
}

void SetupScreen::enableControls(bool enabled)
{
    m_known.reset();
    m_parameterFrame->setEnabled(enabled);
    m_feedbackFrame->setEnabled(enabled);
    m_cycleFrame->setEnabled(enabled);
}

Task SetupScreen::onlinePass()
{
    return readRegisters(
        kRegisters, [this](std::size_t entry, const QString& value) { showEntry(entry, value); });
}

Task SetupScreen::offlinePass()
{
    for (std::size_t entry = 0; entry < kRegisters.size(); ++entry)
        showEntry(entry, QString::number(workingValue(kSetupSlot + static_cast<int>(entry))));
    co_return;
}

void SetupScreen::showEntry(std::size_t entry, const QString& value)
{
    if (entry == kFeedbackEntry)
        return m_feedback.show(value.toInt());
    m_fields[entry]->showValue(value);
    m_known.set(entry, m_known[entry] || !m_fields[entry]->beingEdited());
    if (entry == kCycleEntry)
        m_maximumCycle = value.toInt();
    else if (entry == kOnEntry)
        m_ring->show(value.toInt(), m_maximumCycle);
}

/// The buttons leave the boxes alone; the next pass shows what the controller made of it. False,
/// and nothing done, when an entry under way is refused.
bool SetupScreen::setFeedback(int bits)
{
    // kept: a refused entry stops buttons and boxes as well; its user looks at the box, not here.
    if (!entriesSettled())
        return false;
    storeValue(reg::kFeedbackEnable.slot, bits);
    writeRegister(kRegisters[kFeedbackEntry], QString::number(bits));
    return true;
}

} // namespace tambrix
