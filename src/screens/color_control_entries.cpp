// What happens to the numbers that are typed or stepped on the colour control screen.

#include "screens/color_control_screen.h"

#include <QPushButton>

namespace tambrix {

namespace {

constexpr std::int32_t kStations = 8;
constexpr int kStationBits = 255;

} // namespace

EntryRules ColorControlScreen::rulesOf(std::size_t index)
{
    EntryRules rules;
    rules.title = QStringLiteral("Color Control");
    rules.store = [this, index](const QString& text, std::int32_t value) {
        store(index, text, value);
    };
    rules.step = [this, index](const QString&, std::int32_t) { m_fields[index]->commit(); };
    rules.entering = [this, index] { renew(index); };
    rules.limits = [this, index] { return limitsOf(index); };
    rules.checkAgain = [this, index] { return checksAgain(index); };
    // kept: a step from the former label's or the other mode's value would be a jump of the press.
    if (index < kDurations)
        rules.mayStep = [this, index] { return m_load == Load::None && m_known[index]; };
    rules.enterKey = [this, index] { enterPressed(index); };
    rules.escapeKey = [this] { m_returnFocusToLabel = false; };
    return rules;
}

/// A field is entered with the value that counts now, not with the one of the last pass.
void ColorControlScreen::renew(std::size_t index)
{
    NumericEntryField& field = *m_fields[index];
    if (index == kStationField)
        return;
    if (!online())
        field.setText(index == kLabelField ? QString::number(m_label) : workingDuration(index));
    else if (const auto value = readRegister(index == kLabelField ? reg::kLabelNumber.address
                                                                  : workingRegister(index)))
        field.setText(*value);
    else
        return;
    if (index < kDurations)
        m_known.set(index);
}

/// The limits of a ductor's two durations move with each other.
EntryRange ColorControlScreen::limitsOf(std::size_t index) const
{
    if (index == kLabelField)
        return {reg::kLabelNumber.minimum, reg::kLabelNumber.maximum};
    if (index == kStationField)
        return {1, kStations};
    const std::size_t ductor = index % kDuctors;
    return index < kDuctors ? onRange(m_fields[ductor + kDuctors]->value(), m_limits)
                            : cycleRange(m_fields[ductor]->value(), m_limits);
}

/// What the link has refused once shows no second box.
bool ColorControlScreen::checksAgain(std::size_t index) const
{
    if (m_load == Load::Wanted || m_load == Load::Running)
        return false;
    return !online() || index == kStationField ||
           linkTakes(index == kLabelField ? reg::kLabelNumber.address : workingRegister(index),
                     m_fields[index]->text());
}

void ColorControlScreen::store(std::size_t index, const QString& text, std::int32_t value)
{
    if (index == kLabelField)
        storeLabel(text, value);
    else if (index == kStationField)
        storeStation(value);
    else
        storeDuration(index, text, value);
}

/// A new duration counts at once (working register) and from now on (the label's storage).
/// kept: a label number that no label has, from a strange file or controller, has no storage; its
/// durations are not kept in place of another label's.
void ColorControlScreen::storeDuration(std::size_t index, const QString& text, std::int32_t value)
{
    if (value == m_fields[index]->undoValue())
        return;
    if (labelExists())
        storeValue(slotOf(index), value);
    if (!state().canReachBoard() || !writeRegister(workingRegister(index), text))
        return;
    showDensity(index);
    if (labelExists())
        writeRegister(storageRegister(index), text);
}

void ColorControlScreen::storeLabel(const QString& text, std::int32_t value)
{
    storeValue(kCurrentLabelSlot, value);
    if (!state().canReachBoard()) {
        m_label = value;
        return;
    }
    const bool taken = writeRegister(reg::kLabelNumber.address, text);
    if (taken && value != m_fields[kLabelField]->undoValue())
        startLoad(value);
}

/// kept: goes out as a bit, and without a look at the communication error.
void ColorControlScreen::storeStation(std::int32_t value)
{
    if (online())
        state().gLink.RSWrite(reg::kStation.address,
                              std::to_string((1 << (value - 1)) & kStationBits));
}

void ColorControlScreen::enterPressed(std::size_t index)
{
    if (index != kLabelField) {
        if (m_load == Load::Running)
            m_load = Load::RunningChecked;
        m_fields[index]->moveOn();
        return;
    }
    m_returnFocusToLabel = true;
    if (online())
        cmdDefault()->setFocus();
    else
        m_fields[index]->moveOn();
    if (m_load == Load::None) // unchanged or refused: there is no load to return from
        m_returnFocusToLabel = false;
}

} // namespace tambrix
