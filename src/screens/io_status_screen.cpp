#include "screens/io_status_screen.h"

#include "controls/lamp.h"
#include "controls/named_controls.h"
#include "controls/rule.h"
#include "controls/steady_place.h"
#include "controls/text_size.h"
#include "controls/value_label.h"
#include "data/processor_registers.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

#include <functional>
#include <span>

namespace tambrix {

namespace {

// kept: the row "Resolver RPM" shows the machine speed, and W170 is read for nothing.
const std::array<std::string, 15> kRegisters = {"F80",
                                                "F81",
                                                reg::kAnalogInput0.address,
                                                reg::kAnalogInput1.address,
                                                "B166",
                                                "B167",
                                                reg::kResolverPosition.address,
                                                reg::kMachineSpeed.address,
                                                reg::kResolverPeriod.address,
                                                reg::kResolverScale.address,
                                                reg::kResolverOffset.address,
                                                reg::kUnusedWord.address,
                                                reg::kInputs.address,
                                                "B131",
                                                reg::kOutputs.address};
constexpr std::size_t kLastLamp = 1;    // entries 0 and 1 are the module's digital inputs
constexpr std::size_t kUnshown = 11;    // W170 is read and not shown
constexpr std::size_t kInputByte = 12;  // B100
constexpr std::size_t kSensorByte = 13; // B131

constexpr std::array kModuleCaptions = {"IN0:",
                                        "IN1:",
                                        "Analog Input 0:",
                                        "Analog Input 1:",
                                        "Analog Output 0:",
                                        "Analog Output 1:",
                                        "Resolver POS:",
                                        "Resolver RPM:",
                                        "Resolver Period:",
                                        "Scale Factor:",
                                        "Offset:"};

constexpr std::array kInputNames = {"Ductor Control - Auto",
                                    "Ductor Control - Manual",
                                    "Ductors Auto ON (from PLC)",
                                    "Set Passcode (from PLC)",
                                    "Alarm Reset",
                                    "Set-up Enable",
                                    "Spare",
                                    "Spare"};

const QColor kOnColor(0, 0, 255);
const QColor kOffColor(192, 0, 0);

constexpr int kRowsOfByte = 8;
constexpr int kTightest = 1; // between rows; the rest of the height is shared out
const QString kWidestState = QStringLiteral("OFF");

/// "(B100.3)    3:" and, counted in octal, "(B131.3)  13:".
QString terminal(int row, int lowRegister, int highRegister)
{
    const int bit = row % 8;
    if (row < 8)
        return QStringLiteral("(B%1.%2)    %2:").arg(lowRegister).arg(bit);
    return QStringLiteral("(B%1.%2)  1%2:").arg(highRegister).arg(bit);
}

QString numbered(const char* name, int row)
{
    return QStringLiteral("%1 #%2").arg(QLatin1String(name)).arg(row % 8 + 1);
}

void setColor(QLabel& label, const QColor& color)
{
    QPalette palette = label.palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::WindowText, color);
    label.setPalette(palette);
}

/// Each pass shows 32 states; what has not changed costs no new palette.
void showState(ValueLabel& label, bool on)
{
    const QString text = on ? QStringLiteral("ON") : QStringLiteral("off");
    if (label.text() == text)
        return;
    label.setValue(text);
    setColor(label, on ? kOnColor : kOffColor);
}

/// `lit` is what the lamp of a set bit shows.
void showStates(std::span<ValueLabel* const> labels, std::span<Lamp* const> lamps, int bits,
                LampState lit)
{
    for (std::size_t b = 0; b < labels.size(); ++b) {
        const bool on = (bits & (1 << b)) != 0;
        showState(*labels[b], on);
        lamps[b]->show(on ? lit : LampState::Off);
    }
}

struct SlotFrame
{
    const char* caption;
    const char* name;      ///< of the caption labels
    const char* stateName; ///< of the state labels
    const char* lampName;  ///< of the lamps
    int lowRegister;       ///< rows 0 to 7
    int highRegister;      ///< rows 8 to 15
    std::function<QString(int row)> rowName;
};

ValueLabel* makeState(const QString& name, const QString& text, const QString& what)
{
    ValueLabel* state = makeValueLabel(name, text, what);
    QPalette palette = state->palette();
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::darkGray);
    state->setPalette(palette);
    state->setOnPlate();
    return state;
}

/// The lamp, terminal, name and state text of one point.
void addPoint(QGridLayout& grid, const SlotFrame& slot, int row, ValueLabel*& state, Lamp*& lamp)
{
    const QString name = slot.rowName(row);
    const int place = row < kRowsOfByte ? row : row + 1; // the rule stands between the bytes
    lamp = new Lamp(name);
    lamp->setObjectName(arrayName(slot.lampName, row));
    QLabel* caption =
        makeLabel(arrayName(slot.name, row), terminal(row, slot.lowRegister, slot.highRegister));
    caption->setForegroundRole(QPalette::PlaceholderText);
    state = makeState(arrayName(slot.stateName, row), QStringLiteral("OFF"), name);
    setTextSize(*state, TextSize::Text, true);
    state->setWidest(kWidestState);
    grid.addWidget(lamp, place, 0);
    grid.addWidget(caption, place, 1);
    grid.addWidget(new QLabel(name), place, 2);
    grid.addWidget(new SteadyPlace(state), place, 3);
    grid.setRowStretch(place, 1);
}

QGroupBox* makeSlot(const SlotFrame& slot, int frameIndex, std::span<ValueLabel*> states,
                    std::span<Lamp*> lamps)
{
    QGroupBox* frame = makeFrame(arrayName("fraBMIO", frameIndex), QLatin1String(slot.caption));
    auto* grid = new QGridLayout(frame);
    grid->setVerticalSpacing(kTightest);
    grid->setColumnStretch(2, 1);
    grid->addWidget(new Rule, kRowsOfByte, 0, 1, 4);
    for (std::size_t row = 0; row < states.size(); ++row)
        addPoint(*grid, slot, static_cast<int>(row), states[row], lamps[row]);
    return frame;
}

} // namespace

IoStatusScreen::IoStatusScreen(ProgramState& state)
    : Screen(state), m_frames{makeModule(), makeInputs(), makeOutputs()}
{
    setObjectName(QStringLiteral("frmDisplayIO"));
    setWindowTitle(QStringLiteral("I/O Status"));
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_frames[0], 3);
    layout->addWidget(m_frames[1], 5);
    layout->addWidget(m_frames[2], 5);
}

QGroupBox* IoStatusScreen::makeModule()
{
    QGroupBox* frame = makeFrame(arrayName("fraBMIO", 0), QStringLiteral("Q900"));
    auto* grid = new QGridLayout(frame);
    grid->setVerticalSpacing(kTightest);
    grid->setColumnStretch(0, 1);
    for (int row = 0; row < static_cast<int>(kModuleRows); ++row) {
        const auto entry = static_cast<std::size_t>(row);
        const QString caption = QLatin1String(kModuleCaptions[entry]);
        m_module[entry] = makeState(arrayName("lblq910State", row), QStringLiteral("0"), caption);
        setTextSize(*m_module[entry], TextSize::Text, true);
        grid->addWidget(makeLabel(arrayName("lblq910", row), caption), 2 * row, 0);
        grid->addWidget(new SteadyPlace(m_module[entry]), 2 * row, 1);
        grid->addWidget(new Rule, 2 * row + 1, 0, 1, 2);
        grid->setRowStretch(2 * row, 1);
    }
    return frame;
}

QGroupBox* IoStatusScreen::makeInputs()
{
    const auto rowName = [](int row) {
        return row < 8 ? QString(QLatin1String(kInputNames[static_cast<std::size_t>(row)]))
                       : numbered("Ductor Feedback Sensor", row);
    };
    return makeSlot({"Slot0-0", "lblSlot00", "lblSlot00State", "picSlot00", 100, 131, rowName}, 1,
                    m_inputs, m_inputLamps);
}

QGroupBox* IoStatusScreen::makeOutputs()
{
    const auto rowName = [](int row) {
        return numbered(row < 8 ? "Ductor Solenoid" : "Ductor Feedback Fault", row);
    };
    return makeSlot({"Slot0-1", "lblSlot01", "lblSlot01State", "picSlot01", 110, 111, rowName}, 2,
                    m_outputs, m_outputLamps);
}

void IoStatusScreen::applyOnlineView()
{
    showDashes(true);
}

void IoStatusScreen::applyOfflineView()
{
    showDashes(false);
}

void IoStatusScreen::showDashes(bool enabled)
{
    for (QGroupBox* frame : m_frames)
        frame->setEnabled(enabled);
    const auto dash = [](std::span<ValueLabel* const> labels) {
        for (ValueLabel* label : labels) {
            label->setValue(QStringLiteral("-"));
            setColor(*label, kOnColor);
        }
    };
    dash(m_module);
    dash(m_inputs);
    dash(m_outputs);
    for (const SlotLamps* lamps : {&m_inputLamps, &m_outputLamps}) {
        for (Lamp* lamp : *lamps)
            lamp->show(LampState::Unknown);
    }
}

Task IoStatusScreen::onlinePass()
{
    return readRegisters(
        kRegisters, [this](std::size_t entry, const QString& value) { showEntry(entry, value); });
}

/// kept: IN0 and IN1 show "off" whatever they are; it has always been so, and nobody reads them.
void IoStatusScreen::showEntry(std::size_t entry, const QString& value)
{
    if (entry <= kLastLamp)
        showState(*m_module[entry], false);
    else if (entry < kUnshown)
        m_module[entry]->setValue(value);
    else if (entry == kUnshown)
        return;
    else if (entry == kInputByte)
        showStates(std::span(m_inputs).first<8>(), std::span(m_inputLamps).first<8>(),
                   value.toInt(), LampState::On);
    else if (entry == kSensorByte)
        showStates(std::span(m_inputs).last<8>(), std::span(m_inputLamps).last<8>(), value.toInt(),
                   LampState::On);
    else
        showOutputs(value.toInt());
}

/// A feedback fault is an alarm.
void IoStatusScreen::showOutputs(int bits)
{
    showStates(std::span(m_outputs).first<8>(), std::span(m_outputLamps).first<8>(), bits,
               LampState::On);
    showStates(std::span(m_outputs).last<8>(), std::span(m_outputLamps).last<8>(),
               bits >> kRowsOfByte, LampState::Alarm);
}

} // namespace tambrix
