#pragma once

#include "platform/cooperative_loop.h"
#include "shell/program_state.h"

#include <QWidget>

#include <functional>
#include <span>
#include <string>

class QPushButton;

namespace tambrix {

/// A child screen of the main window. Here is the one refresh loop that all of them run: let
/// events run, notice a communication error or a change of mode, apply the on-line or off-line
/// view once, make one pass. A screen adds its views and its passes.
class Screen : public QWidget
{
    Q_OBJECT

public:
    explicit Screen(ProgramState& state);

    /// Applies the view of the current mode and runs the refresh loop from now on.
    void activate();

    /// Ends the refresh loop where it stands.
    void deactivate();

protected:
    /// Shows one value that a pass has read: `entry` counts the registers of that pass from 0.
    using ShowValue = std::function<void(std::size_t entry, const QString& value)>;

    /// The look while on line or off line: what is enabled, what shows dashes.
    virtual void applyOnlineView() = 0;
    virtual void applyOfflineView() = 0;

    /// What every turn of the loop shows whatever the mode. Nothing unless overridden.
    virtual void refreshAlways() {}

    /// One refresh from the controller, or from the working data set.
    virtual Task onlinePass() = 0;
    virtual Task offlinePass();

    /// Awaitable: lets pending events run. A pass awaits it before every register it reads.
    auto pendingEvents() { return m_loop.pendingEvents(); }

    /// Whether a pass on line goes on after other events have run. A screen may have reasons of
    /// its own to break one off.
    virtual bool passGoesOn() const { return online(); }

    /// Reads `registers` in order, each after a turn of the event loop, and shows each value.
    /// Stops when the screen is left, the pass does not go on or the link reports an error.
    Task readRegisters(std::span<const std::string> registers, ShowValue show);

    /// Writes one register while on line; nothing off line or after a communication error.
    void writeRegister(const std::string& address, const QString& value);

    /// Entry `slot` (0 to 1613) of the working data set.
    std::int32_t& workingValue(int slot)
    {
        return m_state.gWorkingData.Value.at(static_cast<std::size_t>(slot));
    }

    /// Forgets what is being edited in the fields of this screen, so that refreshes show there.
    void endEditing();

    bool online() const { return m_state.gLink.OnlineMode; }
    ProgramState& state() { return m_state; }
    const ProgramState& state() const { return m_state; }

    /// The focus sink: a button without an action that takes the focus away from a field.
    QPushButton* cmdDefault() { return m_cmdDefault; }

private:
    Task refreshLoop();
    void dropOffline();
    void showOnlineView();
    void showOfflineView();
    bool mayRun() const;

    enum class View { None, Online, Offline };

    ProgramState& m_state;
    QPushButton* m_cmdDefault;
    View m_view = View::None;
    bool m_lastOfflineEditing = false;
    CooperativeLoop m_loop; // last: its frames are gone before anything that they use
};

} // namespace tambrix
