#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/figures.h"
#include "bench/link_under_test.h"
#include "simulator/pty/pseudo_terminal.h"

#include <algorithm>
#include <array>
#include <fcntl.h>

namespace tambrix::bench {

namespace {

constexpr int kReads = 200;
constexpr int kReadsPerWrite = 10; // a write leaves read mode: two handshakes more
constexpr int kRounds = 5;
constexpr double kBitsPerByte = 10;

constexpr std::array<const char*, 8> kRegisters = {"B65",  "W112",   "D940", "B100.3",
                                                   "W690", "B110.0", "D944", "B692"};

void mixedReads(RSComm& comm)
{
    for (std::size_t i = 0; i < kReads; ++i) {
        if (i % kReadsPerWrite == 0)
            comm.RSWrite("B1013", "12");
        comm.RSRead(kRegisters[i % kRegisters.size()]);
    }
}

/// The rounds of one kind at one speed.
class Rounds
{
public:
    explicit Rounds(int baud) : m_byteTime(kBitsPerByte / baud) {}

    void add(const Exchanges& round)
    {
        m_efficiencies.push_back(efficiency(round));
        if (m_fastest.seconds.empty())
            m_fastest = round;
        for (std::size_t i = 0; i < round.seconds.size(); ++i)
            m_fastest.seconds[i] = std::min(m_fastest.seconds[i], round.seconds[i]);
    }

    double middle() const { return median(m_efficiencies); }

    /// Every exchange at its fastest of all rounds: a machine without other work.
    double undisturbed() const { return efficiency(m_fastest); }

private:
    /// Every byte out is answered by one byte back, and the two never overlap.
    double efficiency(const Exchanges& round) const
    {
        return 2 * static_cast<double>(round.bytes.size()) * m_byteTime / round.total();
    }

    double m_byteTime; // seconds
    std::vector<double> m_efficiencies;
    Exchanges m_fastest;
};

void efficiencyAt(int baud, double aim)
{
    const QString speed = QString::number(baud);
    const BoardProcess board({QStringLiteral("--baud"), speed});
    const Descriptor device(open(board.device().toLocal8Bit(), O_RDWR | O_NOCTTY));
    LinkUnderTest link(board.device(), baud);
    link.record(mixedReads); // from now on every round starts in read mode
    Rounds linked(baud);
    Rounds plain(baud);
    for (int i = 0; i < rounds(kRounds); ++i) {
        const Exchanges round = link.record(mixedReads);
        linked.add(round);
        plain.add(plainExchanges(device.value(), round.bytes));
    }
    const std::string what = "wire efficiency at " + speed.toStdString() + ", 200 mixed reads";
    reportAtLeast(what, linked.middle(), aim);
    reportAtLeast(what + ", undisturbed", linked.undisturbed(), aim);
    report("  the same bytes by plain write, poll and read", plain.middle(), "");
    report("  the same, undisturbed", plain.undisturbed(), "");
}

} // namespace

void wireEfficiency()
{
    efficiencyAt(9600, 0.97);
    efficiencyAt(19200, 0.95);
}

} // namespace tambrix::bench
