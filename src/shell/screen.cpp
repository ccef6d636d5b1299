#include "shell/screen.h"

#include "controls/numeric_entry_field.h"
#include "data/link_text.h"
#include "link/lenient_number.h"
#include "link/register_value.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace tambrix {

namespace {

/// Where the focus rests while no field is being edited. A button would let the arrow keys walk to
/// its neighbours, and the next one there would change a value of the press.
class FocusRest : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
};

} // namespace

Screen::Screen(ProgramState& state)
    : m_state(state),
      m_cmdDefault(new FocusRest(QStringLiteral("-"), this)),
      m_poller(state, *this, *this)
{
    m_cmdDefault->setObjectName(QStringLiteral("cmdDefault"));
    m_cmdDefault->setAccessibleName(tr("Screen"));
    m_cmdDefault->setFlat(true);
    m_cmdDefault->setFixedSize(1, 1); // it takes the focus and is not to be seen
}

void Screen::activate()
{
    m_shownEditing = m_state.gOfflineEditing;
    m_poller.start();
    m_cmdDefault->setFocus();
}

void Screen::deactivate()
{
    m_poller.stop();
    dropEntries();
}

void Screen::reload()
{
    if (online() || m_storing)
        return;
    deactivate();
    load();
    activate();
}

void Screen::dropEntries()
{
    for (NumericEntryField* field : findChildren<NumericEntryField*>())
        field->endEditing();
}

void Screen::storeValue(int slot, std::int32_t value)
{
    if (online()) {
        workingValue(slot) = value;
        return;
    }
    if (workingValue(slot) == value)
        return;
    const QScopedValueRollback storing(m_storing, true);
    m_state.edit(fromLink(nameOf(entryAt(slot))), {{{slot, value}}, {}, {}});
}

bool Screen::entriesSettled()
{
    return std::ranges::all_of(findChildren<NumericEntryField*>(),
                               [](NumericEntryField* field) { return field->finishEditing(); });
}

/// A control that has the focus may be greyed here; what is typed next must not reach another.
void Screen::showMode(bool online)
{
    const QWidget* focused = window()->focusWidget();
    const bool here = focused != nullptr && isAncestorOf(focused);
    dropEntries();
    if (online)
        applyOnlineView();
    else
        applyOfflineView();
    if (here && window()->focusWidget() != focused)
        m_cmdDefault->setFocus();
}

void Screen::everyTurn()
{
    if (m_shownEditing != m_state.gOfflineEditing && !online())
        m_poller.showAgain();
    m_shownEditing = m_state.gOfflineEditing;
    refreshAlways();
}

std::optional<QString> Screen::readRegister(const std::string& address)
{
    RSComm& link = m_state.gLink;
    if (!m_state.canReachBoard() || link.isBusy())
        return std::nullopt;
    const QString value = fromLink(link.RSRead(address));
    return link.readSucceeded() ? std::optional(value) : std::nullopt;
}

bool Screen::writeRegister(const std::string& address, const QString& value)
{
    if (!m_state.canReachBoard())
        return true;
    m_state.gLink.RSWrite(address, value.toStdString());
    return linkTakes(address, value);
}

bool Screen::linkTakes(const std::string& address, const QString& value)
{
    const auto number = entryNumber(value.toStdString());
    return number && !address.empty() && *number <= highestValue(upperCase(address.front()));
}

Task Screen::readRegisters(std::span<const std::string> registers, LinkPoller::ShowValue show)
{
    return m_poller.readRegisters(
        registers, [this] { return passGoesOn(); }, std::move(show));
}

} // namespace tambrix
