#include "simulator/inprocess/simulated_serial_port.h"

#include <algorithm>
#include <utility>

namespace tambrix {

namespace {

constexpr int kFirstPort = 1;
constexpr int kLastPort = 99;

std::optional<int> speedOf(std::string_view settings)
{
    if (settings == "9600,n,8,1")
        return 9600;
    if (settings == "19200,n,8,1")
        return 19200;
    return std::nullopt;
}

} // namespace

SimulatedSerialPort::SimulatedSerialPort(SimulatedLine& line, Clock& clock)
    : m_line(line), m_clock(clock)
{
}

std::optional<PortFault> SimulatedSerialPort::configure(int portNumber, std::string_view settings)
{
    if (m_open)
        return fault(kAlreadyOpen, "The port must be closed to change its settings.");
    if (portNumber < kFirstPort || portNumber > kLastPort)
        return fault(kBadPortNumber, "There is no port " + std::to_string(portNumber) + ".");
    const std::optional<int> speed = speedOf(settings);
    if (!speed)
        return fault(kBadSettings,
                     "The port cannot take the settings \"" + std::string(settings) + "\".");
    m_portNumber = portNumber;
    m_speed = *speed;
    return std::nullopt;
}

std::optional<PortFault> SimulatedSerialPort::open()
{
    if (m_open)
        return fault(kAlreadyOpen, "The port is open already.");
    if (!m_line.plugged())
        return fault(kDeviceMissing, "The device is missing.");
    m_open = true;
    m_line.setPcBaud(m_speed);
    m_line.discard(m_clock.now());
    return std::nullopt;
}

void SimulatedSerialPort::close()
{
    m_open = false;
}

std::size_t SimulatedSerialPort::bytesWaiting()
{
    return m_open ? m_line.available(m_clock.now()) : 0;
}

std::uint8_t SimulatedSerialPort::readByte()
{
    return m_line.take(m_clock.now());
}

void SimulatedSerialPort::writeByte(std::uint8_t byte)
{
    if (m_open)
        m_line.send(byte, m_clock.now());
}

void SimulatedSerialPort::discardInput()
{
    m_line.discard(m_clock.now());
}

// Nothing but an answer that is already under way can arrive while the one thread waits here.
bool SimulatedSerialPort::waitForInput(Duration limit)
{
    if (bytesWaiting() > 0)
        return true;
    const Duration deadline = m_clock.now() + limit;
    const Duration wakeUp =
        m_open ? std::min(m_line.nextArrival().value_or(deadline), deadline) : deadline;
    m_clock.pause(wakeUp - m_clock.now());
    return bytesWaiting() > 0;
}

PortFault SimulatedSerialPort::fault(int number, std::string description) const
{
    return {number, "Simulated port " + std::to_string(m_portNumber), std::move(description)};
}

} // namespace tambrix
