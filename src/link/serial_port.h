#pragma once

#include "link/clock.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tambrix {

/// Why a serial port could not be configured or opened, as the "Comm Port Error" box shows it.
struct PortFault
{
    int number = 0;          ///< the port layer's own error number
    std::string source;      ///< the device or the layer that refused
    std::string description; ///< one sentence for the operator
};

/// The RS-232 port as the link sees it. One byte out, one byte back: no framing, no handshaking,
/// eight data bits, no parity.
///
/// A port that disappears while it is open (a USB adapter pulled) must look like a silent board:
/// it stays open until `close()`, swallows what is written, delivers nothing, and
/// `waitForInput()` still takes its full time, so that the caller never spins.
class SerialPort
{
public:
    virtual ~SerialPort() = default;

    /// Chooses the port (1 to 99) and its line settings, "9600,n,8,1" or "19200,n,8,1". The port
    /// is closed when this is called. Returns a fault for settings that the port cannot take.
    virtual std::optional<PortFault> configure(int portNumber, std::string_view settings) = 0;

    /// Opens the configured port. Returns the reason when it is missing, in use or refused.
    virtual std::optional<PortFault> open() = 0;

    virtual void close() = 0;
    virtual bool isOpen() const = 0;

    /// Received-byte count: bytes that `readByte()` can take now.
    virtual std::size_t bytesWaiting() = 0;

    /// Takes the oldest received byte. Only to be called when `bytesWaiting()` is not 0.
    virtual std::uint8_t readByte() = 0;

    /// Sends one byte at once.
    virtual void writeByte(std::uint8_t byte) = 0;

    /// Nothing more is sent for now: what the port has left to do for the bytes sent, it does now
    /// and not in the event loop.
    virtual void rest() {}

    /// Throws away every received byte that waits.
    virtual void discardInput() = 0;

    /// Waits until a byte has been received or `limit` has passed, at no processor time.
    /// Returns whether a byte waits.
    virtual bool waitForInput(Duration limit) = 0;
};

} // namespace tambrix
