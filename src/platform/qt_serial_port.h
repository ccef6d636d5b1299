#pragma once

#include "link/serial_port.h"

#include <QObject>
#include <QSerialPort>

namespace tambrix {

/// A real serial port. Once its device has vanished it stays open and silent until `close()`.
class QtSerialPort : public QObject, public SerialPort
{
    Q_OBJECT

public:
    /// `deviceOverride`, when not empty, is the device to use whatever the port number.
    QtSerialPort(Clock& clock, QString deviceOverride);

    std::optional<PortFault> configure(int portNumber, std::string_view settings) override;
    std::optional<PortFault> open() override;
    void close() override;
    bool isOpen() const override { return m_open; }
    std::size_t bytesWaiting() override;
    std::uint8_t readByte() override;
    void writeByte(std::uint8_t byte) override;
    void discardInput() override;
    bool waitForInput(Duration limit) override;

private:
    void noteError(QSerialPort::SerialPortError error);

    Clock& m_clock;
    QString m_deviceOverride;
    QSerialPort m_port;
    bool m_open = false; ///< as the link sees it; the device behind may have vanished
    bool m_gone = false;
};

} // namespace tambrix
