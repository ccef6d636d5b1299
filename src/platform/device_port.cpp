#include "platform/device_port.h"

#include <QIODevice>

#include <algorithm>

namespace tambrix {

void DevicePort::begin()
{
    m_gone = false;
    m_open = true;
}

bool DevicePort::lose()
{
    if (!m_open || m_gone)
        return false;
    m_gone = true;
    return true;
}

void DevicePort::close()
{
    m_open = false;
    closeDevice();
}

std::size_t DevicePort::bytesWaiting()
{
    return static_cast<std::size_t>(device().bytesAvailable());
}

std::uint8_t DevicePort::readByte()
{
    char byte = 0;
    device().read(&byte, 1);
    return static_cast<std::uint8_t>(byte);
}

void DevicePort::writeByte(std::uint8_t byte)
{
    if (m_gone)
        return;
    const char data = static_cast<char>(byte);
    device().write(&data, 1);
    sendNow();
}

void DevicePort::discardInput()
{
    if (!m_gone)
        dropInput();
}

bool DevicePort::heardJustNow() const
{
    return m_clock.now() - m_heard < std::chrono::microseconds(100);
}

bool DevicePort::waitForInput(Duration limit)
{
    using std::chrono::milliseconds;
    if (bytesWaiting() > 0)
        return true;
    const Duration end = m_clock.now() + limit;
    const auto wait = std::chrono::ceil<milliseconds>(std::max(limit, Duration::zero()));
    if (!m_gone && device().waitForReadyRead(static_cast<int>(wait.count()))) {
        m_heard = m_clock.now();
        return true;
    }
    if (m_gone) // a vanished device would return at once, over and over
        m_clock.pause(end - m_clock.now());
    return bytesWaiting() > 0;
}

} // namespace tambrix
