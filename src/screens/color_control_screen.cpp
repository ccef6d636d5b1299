#include "screens/color_control_screen.h"

#include "controls/lamp.h"
#include "controls/value_bar.h"
#include "controls/value_label.h"
#include "data/color_density.h"
#include "data/operating_mode.h"

#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace tambrix {

namespace {

constexpr std::size_t kFirstResponse = kEntriesPerLabel; // ON, then OFF
constexpr std::size_t kInputs = kFirstResponse + 2;
constexpr std::size_t kRegisterCount = kInputs + 2;

/// What a pass reads: the working durations, the response times, the inputs, the manual bits.
std::array<std::string, kRegisterCount> passRegisters()
{
    std::array<std::string, kRegisterCount> registers;
    for (std::size_t d = 0; d < kDuctors; ++d) {
        registers[d] = addressOf(reg::kWorkingOn, static_cast<int>(d));
        registers[d + kDuctors] = addressOf(reg::kWorkingCycle, static_cast<int>(d));
    }
    registers[kFirstResponse] = reg::kOnResponse.address;
    registers[kFirstResponse + 1] = reg::kOffResponse.address;
    registers[kInputs] = reg::kInputs.address;
    registers[kInputs + 1] = reg::kManualDuctors.address;
    return registers;
}

const std::array<std::string, kRegisterCount> kRegisters = passRegisters();

constexpr int kStoredReads = 3; // of one duration, before it is given up

constexpr int kAutoInput = 0x01;
constexpr int kManualInput = 0x02;
constexpr int kAutoOnInput = 0x04;

bool isOn(std::size_t index)
{
    return index < kDuctors;
}

} // namespace

ColorControlScreen::ColorControlScreen(ProgramState& state)
    : Screen(state),
      m_manual("chkDuctorManual", {}, QStringLiteral("Ductors Manual Control"),
               [this] { return writeManual(); })
{
    buildFields();
    load();
}

void ColorControlScreen::load()
{
    endLoad();
    m_limits = limitsIn(state().gWorkingData);
    m_label = workingValue(kCurrentLabelSlot);
    m_fields[kLabelField]->setText(QString::number(m_label));
    m_fields[kStationField]->setText(QStringLiteral("1"));
}

// --- Views ---

void ColorControlScreen::applyOnlineView()
{
    endLoad();
    for (QGroupBox* frame : m_frames)
        frame->setEnabled(true);
    m_known.reset();
    enableDurations(true);
    m_manual.setEnabled(true);
    enableLabelSelect(false); // until the controller allows it
    cmdDefault()->setFocus();
}

void ColorControlScreen::applyOfflineView()
{
    endLoad();
    for (QGroupBox* frame : m_frames)
        frame->setEnabled(false);
    for (Lamp* lamp : m_statusLamps)
        lamp->show(LampState::Unknown);
    m_frames[0]->setEnabled(state().gOfflineEditing);
    enableLabelSelect(state().gOfflineEditing);
    if (state().gOfflineEditing)
        cmdDefault()->setFocus();
}

/// kept: the station goes out as the number it is, although an entry of it is sent as a bit. The
/// controllers in use know both.
Task ColorControlScreen::enterOnline()
{
    const NumericEntryField& station = *m_fields[kStationField];
    writeRegister(reg::kStation.address,
                  station.beingEdited() ? QString::number(station.undoValue()) : station.text());
    if (const auto cycle = readRegister(reg::kMaximumCycle.address))
        m_limits.maximumCycle = cycle->toInt();
    if (const auto on = readRegister(reg::kMaximumOn.address))
        m_limits.maximumOn = on->toInt();
    co_return;
}

/// A label field that is taken away must not leave the digits that are typed next to another.
void ColorControlScreen::enableLabelSelect(bool enabled)
{
    m_labelSelect = enabled;
    if (!enabled) {
        m_fields[kLabelField]->endEditing();
        if (window()->focusWidget() == m_fields[kLabelField])
            cmdDefault()->setFocus();
    }
    m_fields[kLabelField]->setEnabled(enabled);
    m_labelCaption->setEnabled(enabled);
}

void ColorControlScreen::enableDurations(bool enabled)
{
    for (std::size_t k = 0; k < kDurations; ++k)
        m_fields[k]->setEnabled(enabled);
}

void ColorControlScreen::showManual(bool enabled, int bits)
{
    m_frames[3]->setEnabled(enabled);
    m_manual.setEnabled(enabled);
    m_manual.show(bits);
}

// --- Passes ---

Task ColorControlScreen::offlinePass()
{
    m_limits = limitsIn(state().gWorkingData);
    if (!m_fields[kLabelField]->beingEdited())
        m_label = m_fields[kLabelField]->value();
    workingValue(kCurrentLabelSlot) = m_label;
    enableDurations(labelExists());
    for (std::size_t k = 0; k < kDurations; ++k)
        showDuration(k, workingDuration(k));
    co_return;
}

Task ColorControlScreen::onlinePass()
{
    if (m_load == Load::Wanted)
        co_await loadLabel();
    co_await readLabelSelect();
    co_await readLabelNumber();
    if (state().canReachBoard())
        co_await readRegisters(kRegisters, [this](std::size_t entry, const QString& value) {
            showEntry(entry, value);
        });
}

Task ColorControlScreen::readLabelSelect()
{
    co_await pendingEvents();
    if (!passGoesOn())
        co_return;
    const auto flag = readRegister(reg::kLabelSelect.address);
    const bool enabled = flag && flag->toDouble() > 0;
    if (flag && enabled != m_labelSelect)
        enableLabelSelect(enabled);
}

/// kept: a read that failed is no label 0; an entry made then would go into another's storage.
Task ColorControlScreen::readLabelNumber()
{
    co_await pendingEvents();
    if (!passGoesOn() || m_fields[kLabelField]->beingEdited())
        co_return;
    const auto label = readRegister(reg::kLabelNumber.address);
    if (!label)
        co_return;
    m_fields[kLabelField]->showValue(*label);
    m_label = label->toInt();
    workingValue(kCurrentLabelSlot) = m_label;
}

void ColorControlScreen::showEntry(std::size_t entry, const QString& value)
{
    if (entry < kFirstResponse)
        showDuration(entry, value);
    else if (entry < kInputs)
        m_status[entry - kFirstResponse]->setValue(value);
    else if (entry == kInputs)
        showInputs(value.toInt());
    else // the manual frame changes once, when all that decides about it is known
        showManual(m_labelSelect && m_manualMode, m_labelSelect ? value.toInt() : 0);
}

void ColorControlScreen::showInputs(int inputs)
{
    m_manualMode = (inputs & kManualInput) != 0;
    m_status[2]->setValue(operatingModeText(operatingMode(inputs)));
    m_status[3]->setValue((inputs & kAutoOnInput) != 0 ? QStringLiteral("ON")
                                                       : QStringLiteral("OFF"));
    m_statusLamps[0]->show((inputs & kAutoInput) != 0 ? LampState::On
                           : m_manualMode             ? LampState::Unusual
                                                      : LampState::Off);
    m_statusLamps[1]->show((inputs & kAutoOnInput) != 0 ? LampState::On : LampState::Off);
}

/// The press knows no names: on line the name is dim, and says where it comes from.
void ColorControlScreen::showLabelName()
{
    const QString name = labelExists() ? state().labelNames.of(m_label) : QString();
    const QString file = state().gUntitled
                             ? QStringLiteral("data that has no file yet")
                             : QFileInfo(labelNamesFile(state().gFileNamePath)).fileName();
    m_labelName->setValue(
        m_labelName->fontMetrics().elidedText(name, Qt::ElideRight, m_labelName->width()));
    const QString tip =
        name.isEmpty()
            ? QString()
            : QStringLiteral("%1\n(from %2; the controller knows no names)").arg(name, file);
    const auto role = online() ? QPalette::PlaceholderText : QPalette::WindowText;
    if (m_labelName->toolTip() != tip) // this runs every turn: nothing is painted without need
        m_labelName->setToolTip(tip);
    if (m_labelName->foregroundRole() != role)
        m_labelName->setForegroundRole(role);
}

bool ColorControlScreen::writeManual()
{
    // kept: a refused entry stops boxes and buttons as well; its user looks at the box, not here.
    if (!entriesSettled())
        return false;
    writeRegister(reg::kManualDuctors.address, QString::number(m_manual.bits()));
    return true;
}

void ColorControlScreen::changeManual(bool on)
{
    if (entriesSettled())
        m_manual.changeAll(on);
}

void ColorControlScreen::showDuration(std::size_t index, const QString& value)
{
    if (m_fields[index]->beingEdited())
        return;
    m_fields[index]->showValue(value);
    m_known.set(index);
    showDensity(index);
}

/// Both of a ductor's fields are taken as they stand: what is being typed counts once it holds.
void ColorControlScreen::showDensity(std::size_t index)
{
    const std::size_t ductor = index % kDuctors;
    const DensityBasis basis{m_fields[ductor]->value(), m_fields[ductor + kDuctors]->value(),
                             m_limits.maximumOn};
    if (std::exchange(m_densityOf[ductor], basis) == basis)
        return;
    const QString shown = colorDensity(basis.on, basis.cycle, basis.maximumOn);
    m_densities[ductor]->setValue(shown);
    m_bars[ductor]->show(shown.chopped(1).toDouble() / 100, shown); // the number without its "%"
}

// --- Loading a label ---

void ColorControlScreen::startLoad(std::int32_t label)
{
    m_label = label;
    m_load = Load::Wanted;
    for (std::size_t k = 0; k < kDurations; ++k)
        m_fields[k]->setText(QStringLiteral("-"));
}

void ColorControlScreen::endLoad()
{
    m_load = Load::None;
    m_returnFocusToLabel = false;
}

/// Copies the stored durations of the label into the working registers, made sound on the way. A
/// label number that changes meanwhile makes it begin again.
Task ColorControlScreen::loadLabel()
{
    QStringList missed;
    for (std::size_t k = 0; k < kDurations; ++k) {
        co_await pendingEvents();
        if (m_load == Load::None) // another view has ended it
            co_return;
        if (m_load == Load::Wanted) {
            m_load = Load::Running;
            missed.clear();
            k = 0;
        }
        const bool loaded = online() && loadDuration(k);
        if (!state().canReachBoard())
            co_return endLoad();
        if (!loaded)
            missed += m_fields[k]->accessibleName();
    }
    if (m_returnFocusToLabel)
        m_fields[kLabelField]->setFocus();
    endLoad();
    if (!missed.isEmpty())
        tellMissed(missed);
}

/// False when it could not be read: then nothing is written for it.
bool ColorControlScreen::loadDuration(std::size_t index)
{
    const auto stored = storedDuration(index);
    if (!stored)
        return false;
    const std::int32_t sound =
        isOn(index) ? soundOn(*stored, m_limits)
                    : soundCycle(*stored, m_fields[index - kDuctors]->lastValid(), m_limits);
    const QString text = QString::number(sound);
    writeRegister(workingRegister(index), text);
    m_fields[index]->endEditing();
    m_fields[index]->setText(text);
    if (!isOn(index))
        showDensity(index);
    return true;
}

/// kept: a read that failed says nothing about the label. 0 and 200 in its place would ink the
/// next cans wrongly, so it is read again.
std::optional<std::int32_t> ColorControlScreen::storedDuration(std::size_t index)
{
    for (int reads = 0; reads < kStoredReads; ++reads) {
        if (const auto stored = readRegister(storageRegister(index)))
            return stored->toInt();
    }
    return std::nullopt;
}

void ColorControlScreen::tellMissed(const QStringList& durations)
{
    const QString text = QStringLiteral("Label %1 could not be read completely. Not loaded, and "
                                        "left as before:\r\n\r\n%2")
                             .arg(m_label)
                             .arg(durations.join(QStringLiteral("\r\n")));
    state().prompts.showMessage(
        {BoxIcon::Critical, BoxButtons::Ok, "Color Control", text.toStdString()});
}

// --- Where a duration is kept ---

bool ColorControlScreen::labelExists() const
{
    return m_label >= 0 && m_label < kLabels;
}

int ColorControlScreen::slotOf(std::size_t index) const
{
    return labelBase(m_label) + static_cast<int>(index);
}

const std::string& ColorControlScreen::workingRegister(std::size_t index)
{
    return kRegisters[index];
}

std::string ColorControlScreen::storageRegister(std::size_t index)
{
    return state().gWorkingData.Address.at(static_cast<std::size_t>(slotOf(index)));
}

/// What the working data set holds, "-" for a label that it cannot hold.
QString ColorControlScreen::workingDuration(std::size_t index)
{
    return labelExists() ? QString::number(workingValue(slotOf(index))) : QStringLiteral("-");
}

} // namespace tambrix
