#include "platform/port_finder.h"

#include <QFileInfo>

#include <algorithm>

namespace tambrix {

namespace {

bool names(const MachinePort& port, const QString& device)
{
    return !device.isEmpty() && (port.name == device || port.location == device);
}

} // namespace

void PortFinder::remember()
{
    m_device = m_port.deviceName();
    m_serialNumber.clear();
    for (const MachinePort& port : m_listPorts()) {
        if (names(port, m_device))
            m_serialNumber = port.serialNumber;
    }
}

bool PortFinder::present()
{
    if (m_port.connection().kind != Connection::Kind::Server)
        return devicePresent();
    return m_port.beginToConnect();
}

bool PortFinder::devicePresent()
{
    const auto ports = m_listPorts();
    const auto has = [&](auto matches) { return std::ranges::find_if(ports, matches); };
    if (has([&](const MachinePort& port) { return names(port, m_device); }) != ports.end() ||
        QFileInfo::exists(m_device)) // a name that the system gives besides its own
        return true;
    const auto renamed = has([&](const MachinePort& port) {
        return !m_serialNumber.isEmpty() && port.serialNumber == m_serialNumber;
    });
    if (renamed == ports.end())
        return false;
    m_device = renamed->location;
    m_port.standIn(m_device);
    return true;
}

} // namespace tambrix
