#include "simulator/simulated_line.h"

#include <algorithm>

namespace tambrix {

namespace {

using Kind = LineFault::Kind;

constexpr std::int64_t kBitsPerByte = 10; // start bit, eight data bits, stop bit

bool is(const std::optional<LineFault>& fault, Kind kind)
{
    return fault && fault->kind == kind;
}

} // namespace

SimulatedLine::SimulatedLine(SimulatedBoard& board, int baud) : m_board(board), m_baud(baud) {}

SimTime SimulatedLine::byteTime() const
{
    if (m_baud <= 0)
        return SimTime::zero();
    constexpr std::int64_t kSecond = SimTime(std::chrono::seconds(1)).count();
    return SimTime((kBitsPerByte * kSecond + m_baud / 2) / m_baud);
}

void SimulatedLine::send(std::uint8_t byte, SimTime now)
{
    if (!m_plugged)
        return;
    const std::optional<LineFault> fault = nextFault();
    if (is(fault, Kind::Unplug)) {
        unplug();
        return;
    }
    const SimTime start = std::max(now, m_toBoardFree);
    m_toBoardFree = start + byteTime();
    report(WireByte::Direction::ToBoard, byte, start);
    if (is(fault, Kind::LoseRequest) || !speedsAgree())
        return;
    if (const auto answer = m_board.receive(byte, m_toBoardFree))
        reply(*answer, m_toBoardFree, fault);
}

void SimulatedLine::reply(std::uint8_t byte, SimTime start, const std::optional<LineFault>& fault)
{
    if (is(fault, Kind::LoseReply))
        return;
    const int mask = is(fault, Kind::ChangeReply) ? fault->mask : 0;
    const SimTime delay = is(fault, Kind::DelayReply) ? fault->delay : SimTime::zero();
    arrive(static_cast<std::uint8_t>(byte ^ mask), start + delay);
    if (!is(fault, Kind::DoubleReply))
        return;
    if (fault->delay == SimTime::zero())
        arrive(byte, start);
    else
        deliver(byte, m_toPcFree + fault->delay); // answers that come meanwhile overtake it
}

void SimulatedLine::arrive(std::uint8_t byte, SimTime start)
{
    m_toPcFree = std::max(start, m_toPcFree) + byteTime();
    deliver(byte, m_toPcFree);
}

void SimulatedLine::deliver(std::uint8_t byte, SimTime time)
{
    const auto place = std::ranges::upper_bound(m_arrivals, time, {}, &Arrival::time);
    m_arrivals.insert(place, {byte, time});
    report(WireByte::Direction::ToPc, byte, time);
}

std::size_t SimulatedLine::available(SimTime now) const
{
    const auto later =
        std::upper_bound(m_arrivals.begin(), m_arrivals.end(), now,
                         [](SimTime time, const Arrival& arrival) { return time < arrival.time; });
    return static_cast<std::size_t>(later - m_arrivals.begin());
}

std::uint8_t SimulatedLine::take(SimTime now)
{
    if (available(now) == 0)
        return 0;
    const std::uint8_t byte = m_arrivals.front().byte;
    m_arrivals.pop_front();
    return byte;
}

void SimulatedLine::discard(SimTime now)
{
    m_arrivals.erase(m_arrivals.begin(),
                     m_arrivals.begin() + static_cast<std::ptrdiff_t>(available(now)));
}

std::optional<SimTime> SimulatedLine::nextArrival() const
{
    if (m_arrivals.empty())
        return std::nullopt;
    return m_arrivals.front().time;
}

void SimulatedLine::unplug()
{
    m_plugged = false;
    m_arrivals.clear();
    m_toBoardFree = SimTime::min();
    m_toPcFree = SimTime::min();
}

void SimulatedLine::clearFaults()
{
    m_faults.clear();
    m_exchanges = 0;
}

std::optional<LineFault> SimulatedLine::nextFault()
{
    const auto planned = m_faults.find(m_exchanges++);
    if (planned == m_faults.end())
        return std::nullopt;
    return planned->second;
}

bool SimulatedLine::speedsAgree() const
{
    return m_baud == 0 || m_pcBaud == 0 || m_baud == m_pcBaud;
}

void SimulatedLine::report(WireByte::Direction direction, std::uint8_t byte, SimTime time) const
{
    if (m_tap)
        m_tap({direction, byte, time});
}

} // namespace tambrix
