#pragma once

#include "data/line_frames.h"
#include "data/line_trace.h"
#include "link/forwarding_port.h"

#include <functional>
#include <optional>

namespace tambrix {

/// Keeps the last exchanges of the line, the passcode masked, and counts what went wrong.
class LineRecorder
{
public:
    /// How many exchanges are kept: always, and while somebody watches.
    static constexpr std::size_t kAlways = 2000;
    static constexpr std::size_t kWatched = 100000;

    explicit LineRecorder(const Clock& clock) : m_clock(clock) {}

    /// The port was set to this speed, bits a second.
    void setBaud(int baud) { m_baud = baud; }
    int baud() const { return m_baud; }

    /// The port was opened: errors count from here.
    void opened() { m_errors = 0; }
    /// Nothing more comes of what was sent.
    void closed() { giveUp(); }

    void sent(std::uint8_t byte);
    void received(std::uint8_t byte);
    /// The link did not want this byte.
    void dropped(std::uint8_t byte);

    /// Keeps `kWatched` exchanges as long as there is a watcher.
    void watch() { m_trace.setCapacity(kWatched); }
    void unwatch() { m_trace.setCapacity(kAlways); }

    const LineTrace& trace() const { return m_trace; }

    /// Exchanges that were not answered as they should, and bytes that nobody asked for.
    std::uint64_t errors() const { return m_errors; }

private:
    void add(LineExchange exchange);
    void giveUp();

    const Clock& m_clock;
    LineTrace m_trace{kAlways};
    PasscodeMask m_mask;
    std::optional<LineExchange> m_pending; ///< sent, and not answered so far
    int m_baud = 9600;
    std::uint64_t m_errors = 0;
};

/// A serial port whose bytes the recorder hears. Adds no byte and no wait. Two of them may stand
/// before the same port: each knows only what it has opened itself, and `configure()` takes the
/// port from the other.
class TracedPort : public ForwardingPort
{
public:
    TracedPort(SerialPort& port, LineRecorder& recorder)
        : ForwardingPort(port), m_recorder(recorder)
    {
    }

    std::optional<PortFault> configure(int portNumber, std::string_view settings) override;
    std::optional<PortFault> open() override;
    void close() override;
    bool isOpen() const override { return m_open && ForwardingPort::isOpen(); }
    std::uint8_t readByte() override;
    void writeByte(std::uint8_t byte) override;
    void discardInput() override;

private:
    LineRecorder& m_recorder;
    bool m_open = false;
};

} // namespace tambrix
