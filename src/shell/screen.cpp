#include "shell/screen.h"

#include "controls/numeric_entry_field.h"
#include "data/link_text.h"

#include <QApplication>
#include <QPushButton>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

/// Off line nothing changes but by the user's hand; on line the link paces the passes.
constexpr auto kOfflinePassInterval = 100ms;

} // namespace

Screen::Screen(ProgramState& state)
    : m_state(state),
      m_cmdDefault(new QPushButton(QStringLiteral("-"), this)),
      m_loop([this] { return mayRun(); })
{
    m_cmdDefault->setObjectName(QStringLiteral("cmdDefault"));
    m_cmdDefault->setAccessibleName(tr("Screen"));
    m_cmdDefault->setFlat(true);
    m_cmdDefault->setFixedSize(1, 1); // takes the focus, not the eye
}

void Screen::activate()
{
    m_view = View::None;
    if (online())
        showOnlineView();
    else
        showOfflineView();
    refreshAlways();
    m_cmdDefault->setFocus();
    m_loop.start(refreshLoop());
}

void Screen::deactivate()
{
    m_loop.stop();
    endEditing();
}

void Screen::endEditing()
{
    for (NumericEntryField* field : findChildren<NumericEntryField*>())
        field->endEditing();
}

void Screen::writeRegister(const std::string& address, const QString& value)
{
    if (m_state.canReachBoard())
        m_state.gLink.RSWrite(address, value.toStdString());
}

Task Screen::refreshLoop()
{
    for (;;) {
        co_await m_loop.pendingEvents();
        if (m_state.gLink.CommError)
            dropOffline();
        refreshAlways();
        if (online()) {
            showOnlineView();
            co_await onlinePass();
        } else {
            showOfflineView();
            co_await offlinePass();
            co_await m_loop.pause(kOfflinePassInterval);
        }
    }
}

void Screen::dropOffline()
{
    m_state.gLink.OnlineMode = false;
    if (m_view == View::Online)
        m_view = View::None;
    m_state.ApplyOnlineMode();
}

void Screen::showOnlineView()
{
    if (m_view == View::Online)
        return;
    m_view = View::Online;
    applyOnlineView();
}

void Screen::showOfflineView()
{
    const bool editingToggled = m_lastOfflineEditing != m_state.gOfflineEditing;
    m_lastOfflineEditing = m_state.gOfflineEditing;
    if (m_view == View::Offline && !editingToggled)
        return;
    m_view = View::Offline;
    applyOfflineView();
}

Task Screen::offlinePass()
{
    co_return;
}

Task Screen::readRegisters(std::span<const std::string> registers, ShowValue show)
{
    for (std::size_t entry = 0; entry < registers.size(); ++entry) {
        co_await pendingEvents();
        if (!passGoesOn())
            co_return;
        const std::string value = m_state.gLink.RSRead(registers[entry]);
        if (m_state.gLink.CommError)
            co_return;
        show(entry, fromLink(value));
    }
}

bool Screen::mayRun() const
{
    const QWidget* modal = QApplication::activeModalWidget();
    return !m_state.gLink.isBusy() && (modal == nullptr || modal == window());
}

} // namespace tambrix
