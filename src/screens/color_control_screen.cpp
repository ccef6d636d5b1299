#include "screens/color_control_screen.h"

#include "controls/value_label.h"
#include "data/color_density.h"
#include "data/link_text.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace tambrix {

namespace {

const std::array<std::string, 20> kRegisters = {
    "B720", "B721", "B722", "B723", "B724", "B725", "B726", "B727", "W730", "W732",
    "W734", "W736", "W738", "W740", "W742", "W744", "W520", "W522", "B100", "B61"};
constexpr std::size_t kFirstResponse = 16; // W520 and W522
constexpr std::size_t kInputs = 18;        // B100

constexpr const char* kManualRegister = "B61";
constexpr const char* kLabelSelectFlag = "F119";
constexpr const char* kMaximumCycleRegister = "W690";
constexpr const char* kMaximumOnRegister = "B692";

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
               [this] { writeRegister(kManualRegister, QString::number(m_manual.bits())); }),
      m_limits{workingValue(kSetupSlot + 1), workingValue(kSetupSlot)}
{
    buildFields();
    setLabel(workingValue(kCurrentLabelSlot));
    m_fields[kLabelField]->setText(QString::number(workingValue(kCurrentLabelSlot)));
    m_fields[kStationField]->setText(QStringLiteral("1"));
}

// --- Views ---

void ColorControlScreen::applyOnlineView()
{
    endEditing();
    for (QGroupBox* frame : m_frames)
        frame->setEnabled(true);
    m_manual.setEnabled(true);
    enableLabelSelect(false); // until the controller allows it
    writeRegister(kStationRegister, m_fields[kStationField]->text());
    m_limits.maximumCycle =
        readRegister(kMaximumCycleRegister, QString::number(m_limits.maximumCycle)).toInt();
    m_limits.maximumOn =
        readRegister(kMaximumOnRegister, QString::number(m_limits.maximumOn)).toInt();
    cmdDefault()->setFocus();
}

void ColorControlScreen::applyOfflineView()
{
    endEditing();
    endLoad();
    m_returnFocusToLabel = false;
    for (QGroupBox* frame : m_frames)
        frame->setEnabled(false);
    m_frames[0]->setEnabled(state().gOfflineEditing);
    enableLabelSelect(state().gOfflineEditing);
    if (state().gOfflineEditing)
        cmdDefault()->setFocus();
}

void ColorControlScreen::enableLabelSelect(bool enabled)
{
    m_labelSelect = enabled;
    if (!enabled)
        m_fields[kLabelField]->endEditing();
    m_fields[kLabelField]->setEnabled(enabled);
    m_labelCaption->setEnabled(enabled);
}

void ColorControlScreen::enableManual(bool enabled)
{
    m_frames[3]->setEnabled(enabled);
    m_manual.setEnabled(enabled);
    if (!enabled)
        m_manual.show(0);
}

// --- Passes ---

Task ColorControlScreen::offlinePass()
{
    m_limits = {workingValue(kSetupSlot + 1), workingValue(kSetupSlot)};
    if (!m_fields[kLabelField]->beingEdited())
        setLabel(m_fields[kLabelField]->value());
    workingValue(kCurrentLabelSlot) = m_label;
    for (std::size_t k = 0; k < kDurations; ++k)
        showDuration(k, QString::number(workingValue(slotOf(k))));
    co_return;
}

Task ColorControlScreen::onlinePass()
{
    if (m_loadWanted)
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
    if (!passGoesOn() || !state().canReachBoard())
        co_return;
    const bool enabled = fromLink(state().gLink.RSRead(kLabelSelectFlag)).toDouble() > 0;
    if (!state().gLink.CommError && enabled != m_labelSelect)
        enableLabelSelect(enabled);
}

Task ColorControlScreen::readLabelNumber()
{
    co_await pendingEvents();
    if (!passGoesOn() || !state().canReachBoard() || m_fields[kLabelField]->beingEdited())
        co_return;
    const QString label = fromLink(state().gLink.RSRead(kLabelNumberRegister));
    if (state().gLink.CommError)
        co_return;
    m_fields[kLabelField]->showValue(label);
    setLabel(label.toInt());
    workingValue(kCurrentLabelSlot) = label.toInt();
}

void ColorControlScreen::showEntry(std::size_t entry, const QString& value)
{
    if (entry < kFirstResponse)
        showDuration(entry, value);
    else if (entry < kInputs)
        m_status[entry - kFirstResponse]->setText(value);
    else if (entry == kInputs)
        showInputs(value.toInt());
    else
        showManualBits(value.toInt());
}

void ColorControlScreen::showInputs(int inputs)
{
    const bool manual = (inputs & kManualInput) != 0;
    m_status[2]->setText((inputs & kAutoInput) != 0 ? QStringLiteral("AUTO")
                         : manual                   ? QStringLiteral("MAN")
                                                    : QStringLiteral("OFF"));
    m_status[3]->setText((inputs & kAutoOnInput) != 0 ? QStringLiteral("ON")
                                                      : QStringLiteral("OFF"));
    if (!manual)
        enableManual(false);
    else if (m_labelSelect)
        enableManual(true);
}

void ColorControlScreen::showManualBits(int bits)
{
    if (m_labelSelect)
        m_manual.show(bits);
    else
        enableManual(false);
}

void ColorControlScreen::showDuration(std::size_t index, const QString& value)
{
    if (m_fields[index]->beingEdited())
        return;
    m_fields[index]->showValue(value);
    showDensity(index);
}

/// Both of a ductor's fields are taken as they stand: what is being typed counts once it holds.
void ColorControlScreen::showDensity(std::size_t index)
{
    const std::size_t ductor = index % kDuctors;
    m_densities[ductor]->setText(colorDensity(
        m_fields[ductor]->value(), m_fields[ductor + kDuctors]->value(), m_limits.maximumOn));
}

// --- Loading a label ---

void ColorControlScreen::startLoad()
{
    m_loadWanted = true;
    m_labelLoading = true;
    for (std::size_t k = 0; k < kDurations; ++k)
        m_fields[k]->setText(QStringLiteral("-"));
}

void ColorControlScreen::endLoad()
{
    m_loadWanted = false;
    m_labelLoading = false;
}

/// Copies the stored durations of the label into the working registers, made sound on the way. A
/// label number that changes meanwhile makes it begin again.
Task ColorControlScreen::loadLabel()
{
    for (std::size_t k = 0; k < kDurations; ++k) {
        co_await pendingEvents();
        if (m_loadWanted) {
            m_loadWanted = false;
            setLabel(m_fields[kLabelField]->value());
            k = 0;
        }
        if (online())
            loadDuration(k);
        if (!state().canReachBoard())
            break;
    }
    endLoad();
    if (std::exchange(m_returnFocusToLabel, false) && online())
        m_fields[kLabelField]->setFocus();
}

void ColorControlScreen::loadDuration(std::size_t index)
{
    RSComm& link = state().gLink;
    const std::int32_t stored = fromLink(link.RSRead(storageRegister(index))).toInt();
    if (link.CommError)
        return;
    const std::int32_t sound =
        isOn(index) ? soundOn(stored, m_limits)
                    : soundCycle(stored, m_fields[index - kDuctors]->value(), m_limits);
    const QString text = QString::number(sound);
    writeRegister(workingRegister(index), text);
    m_fields[index]->endEditing();
    m_fields[index]->setText(text);
    if (!isOn(index))
        showDensity(index);
}

// --- Where a duration is kept ---

/// A number that no label has, from a strange file or controller, shows the nearest one's data.
void ColorControlScreen::setLabel(std::int32_t label)
{
    m_label = std::clamp(label, 0, kLabels - 1);
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

QString ColorControlScreen::readRegister(const std::string& address, const QString& otherwise)
{
    RSComm& link = state().gLink;
    if (!state().canReachBoard() || link.isBusy())
        return otherwise;
    const QString value = fromLink(link.RSRead(address));
    return link.readSucceeded() ? value : otherwise;
}

} // namespace tambrix
