#pragma once

#include "shell/link_poller.h"
#include "shell/program_state.h"

#include <QWidget>

#include <optional>
#include <span>
#include <string>

class QPushButton;

namespace tambrix {

/// A child screen of the main window, kept up to date by a LinkPoller. A screen adds its looks,
/// its passes and its entries.
class Screen : public QWidget, protected PolledView
{
    Q_OBJECT

public:
    explicit Screen(ProgramState& state);

    /// Shows the look of the current mode and refreshes from now on.
    void activate();

    /// Ends the refreshes where they stand.
    void deactivate();

    /// The working data set is another one, or was changed elsewhere: off line, begins as if the
    /// screen had just been shown. Entries under way are dropped. On line the controller's values
    /// stand.
    void reload();

    /// What is read and written now begins a time on line; no user has asked for it.
    bool comingOnline() const { return m_poller.entering(); }

protected:
    /// Takes from the working data set what the screen keeps for itself. Nothing unless
    /// overridden; a screen calls it when it is made, too.
    virtual void load() {}

    /// The look while on line or off line: what is enabled, what shows dashes. No bytes.
    virtual void applyOnlineView() = 0;
    virtual void applyOfflineView() = 0;

    /// What every turn of the loop shows whatever the mode. Nothing unless overridden.
    virtual void refreshAlways() {}

    /// Awaitable: lets pending events run. A pass awaits it before every register it reads.
    auto pendingEvents() { return m_poller.pendingEvents(); }

    /// Whether a pass on line goes on after other events have run. A screen may have reasons of
    /// its own to break one off.
    virtual bool passGoesOn() const { return online(); }

    /// Reads `registers` in order and shows each value that was read. Stops when the screen is
    /// left, the pass does not go on or the link reports an error.
    Task readRegisters(std::span<const std::string> registers, LinkPoller::ShowValue show);

    /// Reads one register now. Nothing off line, while the link is busy, or when the read failed.
    std::optional<QString> readRegister(const std::string& address);

    /// Writes one register while on line; nothing off line or after a communication error. False
    /// when the link has refused the value, with a box of its own.
    bool writeRegister(const std::string& address, const QString& value);

    /// Whether the link takes `value` for a register of this kind.
    static bool linkTakes(const std::string& address, const QString& value);

    /// Entry `slot` (0 to 1613) of the working data set.
    std::int32_t& workingValue(int slot)
    {
        return m_state.gWorkingData.Value.at(static_cast<std::size_t>(slot));
    }

    /// Stores an entry of the working data set: off line as a step that can be undone.
    void storeValue(int slot, std::int32_t value);

    /// Checks and stores what is being typed in a field of this screen, as leaving it would. False
    /// when it was refused: then a button must not act on the press.
    bool entriesSettled();

    bool online() const { return m_state.gLink.OnlineMode; }
    ProgramState& state() { return m_state; }
    const ProgramState& state() const { return m_state; }

    /// The focus sink: a button without an action that takes the focus away from a field.
    QPushButton* cmdDefault() { return m_cmdDefault; }

private:
    void showMode(bool online) final;
    void everyTurn() final;
    void dropEntries();

    ProgramState& m_state;
    QPushButton* m_cmdDefault;
    bool m_storing = false;      ///< the step under way is this screen's own
    bool m_shownEditing = false; ///< what gOfflineEditing was when the look was shown
    LinkPoller m_poller;         // last: its frames are gone before anything that they use
};

} // namespace tambrix
