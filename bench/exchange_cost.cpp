#include "bench/benchmarks.h"
#include "bench/figures.h"
#include "bench/link_under_test.h"
#include "simulator/pty/pseudo_terminal.h"
#include "simulator/simulated_board.h"

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tambrix::bench {

namespace {

constexpr int kRounds = 300;
constexpr int kReadsPerRound = 25;

/// A board in a child process that answers every byte as fast as it can.
class UnpacedPeer
{
public:
    explicit UnpacedPeer(const PseudoTerminal& terminal) : m_child(fork())
    {
        if (m_child == 0)
            serve(terminal.descriptor());
    }
    ~UnpacedPeer()
    {
        kill(m_child, SIGKILL);
        waitpid(m_child, nullptr, 0);
    }
    UnpacedPeer(const UnpacedPeer&) = delete;
    UnpacedPeer& operator=(const UnpacedPeer&) = delete;

private:
    [[noreturn]] static void serve(int descriptor)
    {
        fcntl(descriptor, F_SETFL, 0); // blocking
        SimulatedBoard board;
        std::uint8_t byte = 0;
        while (read(descriptor, &byte, 1) == 1) {
            const auto answer = board.receive(byte, SimTime::zero());
            if (answer && write(descriptor, &*answer, 1) != 1)
                break;
        }
        _exit(0);
    }

    pid_t m_child;
};

void readCounters(RSComm& comm)
{
    for (int i = 0; i < kReadsPerRound; ++i)
        comm.RSRead("D940");
}

double microseconds(const Exchanges& round)
{
    return round.total() / static_cast<double>(round.bytes.size()) * 1e6;
}

} // namespace

void exchangeCost()
{
    const PseudoTerminal terminal;
    const UnpacedPeer peer(terminal);
    const Descriptor device(open(terminal.path().c_str(), O_RDWR | O_NOCTTY));
    LinkUnderTest link(QString::fromStdString(terminal.path()), 9600);
    link.record(readCounters); // enters read mode; from now on a round is register frames only

    std::vector<double> plain;
    std::vector<double> linked;
    std::vector<double> ratios;
    for (int i = 0; i < rounds(kRounds); ++i) {
        const Exchanges round = link.record(readCounters);
        linked.push_back(microseconds(round));
        plain.push_back(microseconds(plainExchanges(device.value(), round.bytes)));
        ratios.push_back(linked.back() / plain.back());
    }
    report("one exchange, plain write, poll and read", median(plain), "us");
    report("one exchange, link and serial port", median(linked), "us");
    reportAtMost("cost of the link's exchange, times the plain one", median(ratios), 1.15);
}

} // namespace tambrix::bench
