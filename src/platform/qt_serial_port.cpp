#include "platform/qt_serial_port.h"

#include "platform/serial_device.h"

#include <utility>

namespace tambrix {

QtSerialPort::QtSerialPort(Clock& clock, QString deviceOverride)
    : DevicePort(clock), m_deviceOverride(std::move(deviceOverride))
{
    connect(&m_port, &QSerialPort::errorOccurred, this, &QtSerialPort::noteError);
}

std::optional<PortFault> QtSerialPort::configure(int portNumber, std::string_view settings)
{
    m_device = m_deviceOverride.isEmpty() ? serialDeviceName(portNumber) : m_deviceOverride;
    m_port.setPortName(m_device);
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
        return openFault();
    // Adapters and isolators that are fed from the control lines need them up; a port that has
    // no such lines refuses, and does not need them either.
    m_port.setDataTerminalReady(true);
    m_port.setRequestToSend(true);
    begin();
    return std::nullopt;
}

/// Takes the last byte off the port's books. Otherwise the event loop is woken to do so, which
/// costs a turn of its own before the next register.
void QtSerialPort::rest()
{
    if (!gone())
        m_port.flush();
}

/// The system is asked only where something may have come that the last answer's reading has not
/// taken along: asking takes as long as all that the program does with a byte.
void QtSerialPort::dropInput()
{
    if (!heardJustNow())
        m_port.clear(QSerialPort::Input);
    else if (m_port.bytesAvailable() > 0)
        m_port.readAll();
}

/// Systems say "Access is denied" also of a port that somebody else has open.
PortFault QtSerialPort::openFault() const
{
    QString reason = m_port.errorString();
    if (m_port.error() == QSerialPort::PermissionError)
        reason =
            tr("Another program has the port open, or this user may not use it (%1).").arg(reason);
    return {m_port.error(), m_port.portName().toStdString(), reason.toStdString()};
}

void QtSerialPort::noteError(QSerialPort::SerialPortError error)
{
    const bool harmless = error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
                          error == QSerialPort::UnsupportedOperationError;
    if (harmless || !lose())
        return;
    // Closed from the event loop, never inside the port's own error handler.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (gone())
                m_port.close();
        },
        Qt::QueuedConnection);
}

} // namespace tambrix
