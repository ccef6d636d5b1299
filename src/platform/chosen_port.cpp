#include "platform/chosen_port.h"

namespace tambrix {

void ChosenPort::use(const Connection& connection)
{
    m_next = connection;
    m_standIn.clear();
}

bool ChosenPort::beginToConnect()
{
    m_server.setServer(m_next.host, m_next.tcpPort);
    m_server.beginToConnect();
    return m_server.connected();
}

std::optional<PortFault> ChosenPort::configure(int portNumber, std::string_view settings)
{
    if (m_port->isOpen())
        m_port->close();
    if (m_next.kind == Connection::Kind::Server) {
        m_server.setServer(m_next.host, m_next.tcpPort);
        m_port = &m_server;
    } else {
        m_serial.setDevice(m_standIn.isEmpty() ? m_next.device : m_standIn);
        m_port = &m_serial;
    }
    return m_port->configure(portNumber, settings);
}

} // namespace tambrix
