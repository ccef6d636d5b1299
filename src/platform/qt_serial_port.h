#pragma once

#include "platform/device_port.h"

#include <QSerialPort>

namespace tambrix {

/// A real serial port. Once its device has vanished it stays open and silent until `close()`.
class QtSerialPort : public DevicePort
{
    Q_OBJECT

public:
    /// `deviceOverride`, when not empty, is the device to use whatever the port number.
    QtSerialPort(Clock& clock, QString deviceOverride);

    /// The same from the next `configure()` on.
    void setDevice(QString deviceOverride) { m_deviceOverride = std::move(deviceOverride); }

    /// The device last configured, as it was named; empty before that.
    const QString& deviceName() const { return m_device; }

    std::optional<PortFault> configure(int portNumber, std::string_view settings) override;
    std::optional<PortFault> open() override;
    void rest() override;

private:
    PortFault openFault() const;
    void noteError(QSerialPort::SerialPortError error);
    QIODevice& device() override { return m_port; }
    void closeDevice() override { m_port.close(); }
    void sendNow() override { m_port.flush(); }
    void dropInput() override;

    QString m_deviceOverride;
    QString m_device;
    QSerialPort m_port;
};

} // namespace tambrix
