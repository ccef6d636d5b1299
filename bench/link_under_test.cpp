#include "bench/link_under_test.h"

#include "link/settings_file.h"

#include <cstdio>
#include <numeric>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

namespace tambrix::bench {

namespace {

constexpr int kPollLimit = 1000; // ms

void plainExchange(int device, std::uint8_t byte)
{
    std::uint8_t reply = 0;
    pollfd input{device, POLLIN, 0};
    if (write(device, &byte, 1) != 1 || poll(&input, 1, kPollLimit) != 1 ||
        read(device, &reply, 1) != 1)
        throw std::runtime_error("a plain exchange got no answer");
}

std::vector<double> differences(const std::vector<Duration>& times)
{
    std::vector<double> result;
    for (std::size_t i = 1; i < times.size(); ++i)
        result.push_back(std::chrono::duration<double>(times[i] - times[i - 1]).count());
    return result;
}

} // namespace

double Exchanges::total() const
{
    return std::accumulate(seconds.begin(), seconds.end(), 0.0);
}

Exchanges plainExchanges(int device, const std::vector<std::uint8_t>& bytes)
{
    const SteadyClock clock;
    std::vector<Duration> times;
    for (const std::uint8_t byte : bytes) {
        times.push_back(clock.now());
        plainExchange(device, byte);
    }
    times.push_back(clock.now());
    return {bytes, differences(times)};
}

BoxAnswer AbsentOperator::showMessage(const OperatorBox& box)
{
    std::fprintf(stderr, "box '%s': %s\n", box.title.c_str(), box.text.c_str());
    return BoxAnswer::Cancel;
}

std::optional<QString> AbsentOperator::askText(const QString& /*title*/, const QString& /*prompt*/,
                                               const QString& /*preset*/)
{
    return std::nullopt;
}

std::optional<QString> AbsentOperator::askOpenFile(const FileQuestion& /*question*/)
{
    return std::nullopt;
}

std::optional<QString> AbsentOperator::askSaveFile(const FileQuestion& /*question*/)
{
    return std::nullopt;
}

BenchFolder::BenchFolder(int baud)
{
    std::error_code error;
    writeCommSettings(path() / "Support" / "RSPort.cfg", {1, std::to_string(baud)}, error);
    if (error)
        throw std::system_error(error, "settings file");
}

LinkUnderTest::LinkUnderTest(const QString& device, int baud)
    : m_folder(baud),
      m_serial(m_clock, device),
      m_port(m_serial, m_clock),
      m_comm(m_folder.path(), m_clock, m_operator)
{
    m_comm.OpenRSComm(m_port);
    requireIntact();
}

Exchanges LinkUnderTest::record(const std::function<void(RSComm&)>& work)
{
    m_port.bytes.clear();
    m_port.times.clear();
    work(m_comm);
    m_port.times.push_back(m_clock.now());
    requireIntact();
    return {m_port.bytes, differences(m_port.times)};
}

void LinkUnderTest::requireIntact() const
{
    if (!m_comm.OnlineMode || m_comm.CommError)
        throw std::runtime_error("the board does not answer");
}

} // namespace tambrix::bench
