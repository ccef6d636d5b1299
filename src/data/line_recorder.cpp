#include "data/line_recorder.h"

#include "link/lenient_number.h"

#include <utility>

namespace tambrix {

namespace {

/// A line that floods is not recorded byte for byte.
constexpr int kMostDropped = 64;

} // namespace

void LineRecorder::sent(std::uint8_t byte)
{
    giveUp();
    m_pending = LineExchange{m_clock.now(), {}, byte, kNoByte};
}

void LineRecorder::received(std::uint8_t byte)
{
    const Duration now = m_clock.now();
    LineExchange exchange = m_pending.value_or(LineExchange{now, {}, kNoByte, kNoByte});
    m_pending.reset();
    exchange.took = now - exchange.sent;
    exchange.in = byte;
    add(exchange);
}

void LineRecorder::dropped(std::uint8_t byte)
{
    giveUp();
    received(byte);
}

void LineRecorder::giveUp()
{
    if (!m_pending)
        return;
    m_pending->took = m_clock.now() - m_pending->sent;
    add(*m_pending);
    m_pending.reset();
}

void LineRecorder::add(LineExchange exchange)
{
    m_trace.add(m_mask.masked(exchange));
    if (!m_mask.answeredWell())
        ++m_errors;
}

std::optional<PortFault> TracedPort::configure(int portNumber, std::string_view settings)
{
    m_recorder.closed();
    if (port().isOpen())
        port().close();
    m_recorder.setBaud(leadingDecimal(settings));
    return port().configure(portNumber, settings);
}

std::optional<PortFault> TracedPort::open()
{
    auto fault = port().open();
    m_open = !fault;
    if (m_open)
        m_recorder.opened();
    return fault;
}

void TracedPort::close()
{
    if (!std::exchange(m_open, false))
        return;
    m_recorder.closed();
    port().close();
}

std::uint8_t TracedPort::readByte()
{
    const std::uint8_t byte = port().readByte();
    m_recorder.received(byte);
    return byte;
}

void TracedPort::writeByte(std::uint8_t byte)
{
    port().writeByte(byte);
    m_recorder.sent(byte); // while the line is busy with it
}

void TracedPort::discardInput()
{
    for (int i = 0; i < kMostDropped && port().bytesWaiting() > 0; ++i)
        m_recorder.dropped(port().readByte());
    port().discardInput();
}

} // namespace tambrix
