#include "screens/io_status_screen.h"

#include "controls/fonts.h"
#include "controls/named_controls.h"
#include "controls/value_label.h"
#include "data/parameters.h"

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
                                                "W162",
                                                "W164",
                                                "B166",
                                                "B167",
                                                "W180",
                                                reg::kMachineSpeed.address,
                                                "W184",
                                                "W186",
                                                "W188",
                                                "W170",
                                                reg::kInputs.address,
                                                "B131",
                                                "W110"};
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
const QColor kPlate(240, 240, 240); // both colors read well on it, on a dark desktop too

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

void showLamp(ValueLabel& label, bool on)
{
    label.setValue(on ? QStringLiteral("ON") : QStringLiteral("off"));
    setColor(label, on ? kOnColor : kOffColor);
}

void showLamps(std::span<ValueLabel* const> labels, int bits)
{
    for (std::size_t b = 0; b < labels.size(); ++b)
        showLamp(*labels[b], (bits & (1 << b)) != 0);
}

struct SlotFrame
{
    const char* caption;
    const char* name;      ///< of the caption labels
    const char* stateName; ///< of the state labels
    int lowRegister;       ///< rows 0 to 7
    int highRegister;      ///< rows 8 to 15
    std::function<QString(int row)> rowName;
};

ValueLabel* makeLamp(const QString& name, const QString& text, const QString& accessibleName)
{
    ValueLabel* lamp = makeValueLabel(name, text, accessibleName);
    QPalette palette = lamp->palette();
    palette.setColor(QPalette::Window, kPlate);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::darkGray);
    lamp->setPalette(palette);
    lamp->setAutoFillBackground(true);
    return lamp;
}

QGroupBox* makeSlot(const SlotFrame& slot, int frameIndex, std::span<ValueLabel*> states)
{
    QGroupBox* frame = makeFrame(arrayName("fraBMIO", frameIndex), QLatin1String(slot.caption));
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(1, 1);
    for (int row = 0; row < static_cast<int>(states.size()); ++row) {
        const QString name = slot.rowName(row);
        ValueLabel*& state = states[static_cast<std::size_t>(row)];
        state = makeLamp(arrayName(slot.stateName, row), QStringLiteral("OFF"), name);
        grid->addWidget(makeLabel(arrayName(slot.name, row),
                                  terminal(row, slot.lowRegister, slot.highRegister)),
                        row, 0);
        grid->addWidget(new QLabel(name), row, 1);
        grid->addWidget(state, row, 2);
    }
    return frame;
}

} // namespace

IoStatusScreen::IoStatusScreen(ProgramState& state)
    : Screen(state), m_frames{makeModule(), makeInputs(), makeOutputs()}
{
    setObjectName(QStringLiteral("frmDisplayIO"));
    setWindowTitle(QStringLiteral("I/O Status"));
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_frames[0], 3, Qt::AlignTop);
    layout->addWidget(m_frames[1], 5);
    layout->addWidget(m_frames[2], 5);
    setPoints(*this, kScreenPoints);
}

QGroupBox* IoStatusScreen::makeModule()
{
    QGroupBox* frame = makeFrame(arrayName("fraBMIO", 0), QStringLiteral("Q900"));
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(0, 1);
    for (int row = 0; row < static_cast<int>(kModuleRows); ++row) {
        const auto entry = static_cast<std::size_t>(row);
        const QString caption = QLatin1String(kModuleCaptions[entry]);
        m_module[entry] = makeLamp(arrayName("lblq910State", row), QStringLiteral("0"), caption);
        grid->addWidget(makeLabel(arrayName("lblq910", row), caption), row, 0);
        grid->addWidget(m_module[entry], row, 1);
    }
    return frame;
}

QGroupBox* IoStatusScreen::makeInputs()
{
    const auto rowName = [](int row) {
        return row < 8 ? QString(QLatin1String(kInputNames[static_cast<std::size_t>(row)]))
                       : numbered("Ductor Feedback Sensor", row);
    };
    return makeSlot({"Slot0-0", "lblSlot00", "lblSlot00State", 100, 131, rowName}, 1, m_inputs);
}

QGroupBox* IoStatusScreen::makeOutputs()
{
    const auto rowName = [](int row) {
        return numbered(row < 8 ? "Ductor Solenoid" : "Ductor Feedback Fault", row);
    };
    return makeSlot({"Slot0-1", "lblSlot01", "lblSlot01State", 110, 111, rowName}, 2, m_outputs);
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
        showLamp(*m_module[entry], false);
    else if (entry < kUnshown)
        m_module[entry]->setValue(value);
    else if (entry == kUnshown)
        return;
    else if (entry == kInputByte)
        showLamps(std::span(m_inputs).first<8>(), value.toInt());
    else if (entry == kSensorByte)
        showLamps(std::span(m_inputs).last<8>(), value.toInt());
    else
        showLamps(m_outputs, value.toInt());
}

} // namespace tambrix
