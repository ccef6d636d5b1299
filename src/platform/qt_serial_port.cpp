#include "platform/qt_serial_port.h"

#include "platform/serial_device.h"

#include <algorithm>
#include <utility>

namespace tambrix {

QtSerialPort::QtSerialPort(Clock& clock, QString deviceOverride)
    : m_clock(clock), m_deviceOverride(std::move(deviceOverride))
{
    connect(&m_port, &QSerialPort::errorOccurred, this, &QtSerialPort::noteError);
}

std::optional<PortFault> QtSerialPort::configure(int portNumber, std::string_view settings)
{
    m_port.setPortName(m_deviceOverride.isEmpty() ? serialDeviceName(portNumber)
                                                  : m_deviceOverride);
    const QString line = QString::fromLatin1(settings.data(), static_cast<int>(settings.size()));
    const qint32 speed = line.section(u',', 0, 0).toInt();
    const bool set = m_port.setBaudRate(speed) && m_port.setDataBits(QSerialPort::Data8) &&
                     m_port.setParity(QSerialPort::NoParity) &&
                     m_port.setStopBits(QSerialPort::OneStop) &&
                     m_port.setFlowControl(QSerialPort::NoFlowControl);
    if (set)
        return std::nullopt;
    return PortFault{m_port.error(), m_port.portName().toStdString(),
                     tr("The port does not take the settings %1.").arg(line).toStdString()};
}

std::optional<PortFault> QtSerialPort::open()
{
    if (!m_port.open(QIODevice::ReadWrite))
        return PortFault{m_port.error(), m_port.portName().toStdString(),
                         m_port.errorString().toStdString()};
    // Adapters and isolators that are fed from the control lines need them up; a port that has
    // no such lines refuses, and does not need them either.
    m_port.setDataTerminalReady(true);
    m_port.setRequestToSend(true);
    m_gone = false;
    m_open = true;
    return std::nullopt;
}

void QtSerialPort::close()
{
    m_open = false;
    m_port.close();
}

std::size_t QtSerialPort::bytesWaiting()
{
    return static_cast<std::size_t>(m_port.bytesAvailable());
}

std::uint8_t QtSerialPort::readByte()
{
    char byte = 0;
    m_port.read(&byte, 1);
    return static_cast<std::uint8_t>(byte);
}

void QtSerialPort::writeByte(std::uint8_t byte)
{
    if (m_gone)
        return;
    const char data = static_cast<char>(byte);
    m_port.write(&data, 1);
    m_port.flush();
}

void QtSerialPort::discardInput()
{
    if (!m_gone)
        m_port.clear(QSerialPort::Input);
}

bool QtSerialPort::waitForInput(Duration limit)
{
    using std::chrono::milliseconds;
    if (bytesWaiting() > 0)
        return true;
    const Duration end = m_clock.now() + limit;
    const auto wait = std::chrono::ceil<milliseconds>(std::max(limit, Duration::zero()));
    if (!m_gone && m_port.waitForReadyRead(static_cast<int>(wait.count())))
        return true;
    if (m_gone) // a vanished port would return at once, over and over
        m_clock.pause(end - m_clock.now());
    return bytesWaiting() > 0;
}

void QtSerialPort::noteError(QSerialPort::SerialPortError error)
{
    const bool harmless = error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
                          error == QSerialPort::UnsupportedOperationError;
    if (harmless || !m_open || m_gone)
        return;
    m_gone = true;
    // Closed from the event loop, never inside the port's own error handler.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_gone)
                m_port.close();
        },
        Qt::QueuedConnection);
}

} // namespace tambrix
