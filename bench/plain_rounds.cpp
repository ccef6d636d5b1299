#include "bench/plain_rounds.h"

#include "bench/figures.h"

#include <fcntl.h>
#include <numeric>
#include <stdexcept>

namespace tambrix::bench {

namespace {

constexpr double kBitsPerExchange = 20; // one byte out and one back, with start and stop bit
constexpr double kRatioAim = 1.02;

} // namespace

PlainRounds::PlainRounds(const QString& device, RecordingPort& port, int baud)
    : m_device(open(device.toLocal8Bit(), O_RDWR | O_NOCTTY)),
      m_port(port),
      m_exchangeTime(kBitsPerExchange / baud)
{
}

void PlainRounds::begin()
{
    m_port.bytes.clear();
    m_port.times.clear();
}

/// Both times run from the first byte's sending to the last one's.
void PlainRounds::end()
{
    if (m_port.bytes.size() < 2)
        throw std::runtime_error("nothing was sent");
    const std::chrono::duration<double> program = m_port.times.back() - m_port.times.front();
    const Exchanges again = plainExchanges(m_device.value(), m_port.bytes);
    const double plain = again.total() - again.seconds.back();
    const double wire = static_cast<double>(m_port.bytes.size() - 1) * m_exchangeTime;
    m_program.push_back(wire / program.count());
    m_plain.push_back(wire / plain);
    m_ratios.push_back(program.count() / plain);
}

void PlainRounds::tell(const std::string& what) const
{
    report(what + ", share of the wire", median(m_program), "");
    report("  the same bytes by a plain write, poll and read loop", median(m_plain), "");
    reportRatios("  time, times the plain loop's", m_ratios, kRatioAim);
}

} // namespace tambrix::bench
