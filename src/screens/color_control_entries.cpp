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
    rules.entering = [this, index] { reload(index); };
    rules.checking = [this, index] { limit(index); };
    rules.checkAgain = [this] { return !m_labelLoading; };
    rules.enterKey = [this, index] { enterPressed(index); };
    rules.escapeKey = [this] { m_returnFocusToLabel = false; };
    if (index == kLabelField) {
        rules.maximum = kLabels - 1;
    } else if (index == kStationField) {
        rules.minimum = 1;
        rules.maximum = kStations;
    } else {
        rules.minimum = index < kDuctors ? 0 : kSmallestCycle;
        rules.maximum = index < kDuctors ? m_limits.maximumOn : m_limits.maximumCycle;
    }
    return rules;
}

/// A field is entered with the value that counts now, not with the one of the last pass.
void ColorControlScreen::reload(std::size_t index)
{
    NumericEntryField& field = *m_fields[index];
    if (index == kStationField)
        return;
    if (!online())
        field.setText(
            QString::number(index == kLabelField ? m_label : workingValue(slotOf(index))));
    else if (index == kLabelField)
        field.setText(readRegister(kLabelNumberRegister, field.text()));
    else
        field.setText(readRegister(workingRegister(index), field.text()));
}

/// The limits of a ductor's two durations move with each other.
void ColorControlScreen::limit(std::size_t index)
{
    if (index >= kDurations)
        return;
    const std::size_t ductor = index % kDuctors;
    const EntryRange range = index < kDuctors
                                 ? onRange(m_fields[ductor + kDuctors]->value(), m_limits)
                                 : cycleRange(m_fields[ductor]->value(), m_limits);
    m_fields[index]->setRange(range.minimum, range.maximum);
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
void ColorControlScreen::storeDuration(std::size_t index, const QString& text, std::int32_t value)
{
    if (value == m_fields[index]->undoValue())
        return;
    workingValue(slotOf(index)) = value;
    if (!state().canReachBoard())
        return;
    writeRegister(workingRegister(index), text);
    showDensity(index);
    writeRegister(storageRegister(index), text);
}

void ColorControlScreen::storeLabel(const QString& text, std::int32_t value)
{
    workingValue(kCurrentLabelSlot) = value;
    if (!state().canReachBoard()) {
        setLabel(value);
        return;
    }
    writeRegister(kLabelNumberRegister, text);
    if (value != m_fields[kLabelField]->undoValue())
        startLoad();
}

void ColorControlScreen::storeStation(std::int32_t value)
{
    if (online())
        state().gLink.RSWrite(kStationRegister, std::to_string((1 << (value - 1)) & kStationBits));
}

void ColorControlScreen::enterPressed(std::size_t index)
{
    if (index != kLabelField) {
        m_labelLoading = false;
        m_fields[index]->moveOn();
        return;
    }
    m_returnFocusToLabel = true;
    if (online())
        cmdDefault()->setFocus();
    else
        m_fields[index]->moveOn();
}

} // namespace tambrix
