#pragma once

#include "link/serial_port.h"

#include <QObject>

class QIODevice;

namespace tambrix {

/// What the ports over a Qt device have in common: bytes in and out, waits at no processor time,
/// and the silence of a device that has vanished.
class DevicePort : public QObject, public SerialPort
{
    Q_OBJECT

public:
    void close() override;
    bool isOpen() const override { return m_open; }
    std::size_t bytesWaiting() override;
    std::uint8_t readByte() override;
    void writeByte(std::uint8_t byte) override;
    void discardInput() override;
    bool waitForInput(Duration limit) override;

protected:
    explicit DevicePort(Clock& clock) : m_clock(clock) {}

    /// The device is there from now on.
    void begin();

    /// The device has vanished: open and silent until `close()`. Returns false when it was not
    /// open, or gone already.
    bool lose();

    bool gone() const { return m_gone; }

    /// Whether the last answer came less than 0.1 ms ago. A serial line needs five times that for
    /// another byte, so that nothing can have followed it so far.
    bool heardJustNow() const;

private:
    virtual QIODevice& device() = 0;
    virtual void closeDevice() = 0;
    virtual void sendNow() = 0;
    virtual void dropInput() = 0;

    Clock& m_clock;
    Duration m_heard{0}; ///< when a wait has last ended with input
    bool m_open = false; ///< as the link sees it; the device behind may have vanished
    bool m_gone = false;
};

} // namespace tambrix
