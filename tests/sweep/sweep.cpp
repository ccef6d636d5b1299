// The fault sweep: every scenario, every fault, at every exchange, on both kinds of board.
//   sweep          a sample: every 37th exchange, some faults of each kind
//   sweep --full   everything; prints the table
// Ends with 1 when something happened that must never happen.

#include "simulator/memory_map.h"
#include "tests/support/board_bytes.h"
#include "tests/support/line_faults.h"
#include "tests/support/wire_writes.h"
#include "tests/sweep/scenario.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <exception>
#include <functional>
#include <iterator>
#include <numeric>

using namespace tambrix;

namespace {

using namespace std::chrono_literals;

/// How a disturbed session can end, the worst last.
enum class Ending {
    Right,         ///< all done, and so it says
    Reported,      ///< not all done, and so it says
    WrongRead,     ///< a wrong value was taken for a right one
    WronglyStored, ///< a register of the session holds something else than the session says
    Foreign,       ///< a register that is none of the session's has changed
    NotVerified,   ///< a value was called verified that is not on the board
    Stuck,         ///< the link does not work afterwards
    Hang,
    Crash
};
constexpr std::size_t kForbidden = 9; ///< how many of them must not happen: the last count

using EndingCounts = std::array<std::size_t, kForbidden + 1>;

/// What a board does with a frame whose other half does not come.
enum class HalfFrames { Dropped, Kept };

struct SweepRig : LinkRig
{
    explicit SweepRig(HalfFrames halves)
    {
        clock.setLimit(5min); // five boxes' worth of waits; no session is allowed more
        line.setTap({});
        board.press().stop();
        board.pokeWord(memory_map::kResolverScale, 360);
        board.pokeWord(memory_map::kResolverOffset, 15);
        board.limitSwitch().busyAnswers = 1;
        board.limitSwitch().channels[4] = {true, false, 0x0101, 0x0202};
        if (halves == HalfFrames::Kept)
            board.setFrameGap(SimTime::max());
        clock.pause(10s); // what the press moves comes to rest
        board.advanceTo(clock.now());
        open();
        line.clearFaults();
    }

    /// Everything that a session can change: registers, program memory, limit switch.
    std::vector<std::uint8_t> snapshot()
    {
        std::vector<std::uint8_t> bytes = bytesAtRest(board);
        const auto program = board.program().bytes.bytes();
        bytes.insert(bytes.end(), program.begin(), program.end());
        const LimitSwitchModel& pls = board.limitSwitch();
        bytes.insert(bytes.end(), pls.configuration.begin(), pls.configuration.end());
        for (int number = 0; number < 256; ++number) {
            const auto found = pls.channels.find(static_cast<std::uint8_t>(number));
            const auto channel =
                found == pls.channels.end() ? LimitSwitchModel::Channel{} : found->second;
            for (const int part : {int{channel.train}, int{channel.used}, channel.a & 0xFF,
                                   channel.a >> 8, channel.b & 0xFF, channel.b >> 8})
                bytes.push_back(static_cast<std::uint8_t>(part));
        }
        return bytes;
    }
};

/// Plugged in again and opened, the link reads and writes as ever.
bool worksAgain(SweepRig& rig)
{
    rig.line.plugIn();
    rig.line.clearFaults();
    rig.clock.pause(5s);
    rig.board.setFrameGap(SimulatedBoard::kFrameGap);
    rig.open();
    rig.link.RSWrite("W5102", "321");
    return rig.link.writeSucceeded() && rig.link.RSRead("W5102") == "321" &&
           rig.link.RSRead("B8159") == std::to_string(rig.board.peek(8159));
}

/// A scenario as it goes on an undisturbed line: what is right.
struct CleanRun
{
    CleanRun(const Scenario& scenario, HalfFrames halves)
    {
        SweepRig rig(halves);
        before = rig.snapshot();
        WireWrites wire(rig.line);
        claim = scenario.run(rig);
        exchanges = rig.line.exchanges();
        after = rig.snapshot();
        std::ranges::transform(before, after, std::back_inserter(own), std::not_equal_to());
        for (const WireWrite& write : wire.writes)
            own[static_cast<std::size_t>(write.address)] = 1;
    }

    Claim claim;
    std::size_t exchanges = 0;
    std::vector<std::uint8_t> before; ///< all that a session can change
    std::vector<std::uint8_t> after;
    std::vector<char> own; ///< not 0: a place in `before` that the session writes
};

bool holds(const SweepRig& rig, const std::string& address, std::int32_t value)
{
    RegisterAddress place;
    ParseAddress(address, place);
    const auto byte = static_cast<std::uint16_t>(place.RegAddress);
    return value == (place.RegLetter == 'W' ? rig.board.peekWord(byte) : rig.board.peek(byte));
}

Ending judge(SweepRig& rig, const CleanRun& clean, const Claim& claim)
{
    for (const auto& [address, value] : claim.verified) {
        if (!holds(rig, address, value))
            return Ending::NotVerified;
    }
    const std::vector<std::uint8_t> bytes = rig.snapshot();
    const bool stored = bytes == clean.after;
    for (std::size_t i = 0; i < bytes.size() && !stored; ++i) {
        if (bytes[i] != clean.before[i] && clean.own[i] == 0)
            return Ending::Foreign;
    }
    if (!worksAgain(rig))
        return Ending::Stuck;
    if (!claim.done)
        return Ending::Reported;
    if (!stored)
        return Ending::WronglyStored;
    return claim.values == clean.claim.values ? Ending::Right : Ending::WrongRead;
}

Ending runDisturbed(const Scenario& scenario, const CleanRun& clean, const LineFault& fault,
                    std::size_t exchange, HalfFrames halves)
{
    try {
        SweepRig rig(halves);
        rig.line.setFault(exchange, fault);
        const Claim claim = scenario.run(rig);
        return judge(rig, clean, claim);
    } catch (const HangDetected&) {
        return Ending::Hang;
    } catch (const std::exception&) {
        return Ending::Crash;
    }
}

/// Whether an ending is a fault of the program: never may it hang, crash or be stuck; where
/// the board drops half frames no foreign register may change, and where no wrong byte came
/// nothing wrong may be believed.
bool isForbidden(Ending ending, const NamedFault& fault, HalfFrames halves)
{
    if (ending >= Ending::Stuck)
        return true;
    if (halves == HalfFrames::Kept)
        return false;
    return ending == Ending::Foreign || ending == Ending::NotVerified ||
           (ending > Ending::Reported && !fault.bringsWrongByte());
}

/// Runs a scenario with `fault` at every `stride`-th exchange from `first` on.
EndingCounts sweepScenario(const Scenario& scenario, HalfFrames halves, const CleanRun& clean,
                           const NamedFault& fault, std::size_t first, std::size_t stride)
{
    EndingCounts counts{};
    for (std::size_t k = first; k < clean.exchanges; k += stride) {
        const Ending ending = runDisturbed(scenario, clean, fault.fault, k, halves);
        ++counts[static_cast<std::size_t>(ending)];
        counts[kForbidden] += isForbidden(ending, fault, halves) ? 1 : 0;
    }
    return counts;
}

constexpr std::size_t kSampleStride = 37;

void printRow(const std::string& name, const EndingCounts& counts)
{
    std::printf("%-26s%8zu", name.c_str(),
                std::accumulate(counts.begin(), counts.end() - 1, std::size_t{0}));
    for (const std::size_t count : counts)
        std::printf("%10zu", count);
    std::printf("\n");
}

void addTo(EndingCounts& sum, const EndingCounts& counts)
{
    std::ranges::transform(sum, counts, sum.begin(), std::plus());
}

/// Prints the table of one kind of board; returns how often something forbidden happened.
std::size_t sweepBoard(HalfFrames halves, const std::vector<NamedFault>& faults, std::size_t stride)
{
    std::printf("\nA board that %s half frames\n%-26s%8s%10s%10s%10s%10s%10s%11s%10s%10s%10s%10s\n",
                halves == HalfFrames::Dropped ? "drops" : "keeps", "", "runs", "right", "reported",
                "misread", "misstored", "foreign", "not verif.", "stuck", "hang", "crash",
                "forbidden");
    std::vector<EndingCounts> perFault(faults.size());
    EndingCounts all{};
    for (const Scenario& scenario : scenarios()) {
        EndingCounts sum{};
        const CleanRun clean(scenario, halves);
        for (std::size_t i = 0; i < faults.size(); ++i) {
            const EndingCounts counts = sweepScenario(scenario, halves, clean, faults[i],
                                                      5 * i % stride, stride * scenario.stride);
            addTo(sum, counts);
            addTo(perFault[i], counts);
        }
        printRow(scenario.name, sum);
        addTo(all, sum);
    }
    printRow("all", all);
    std::printf("\n");
    for (std::size_t i = 0; i < faults.size(); ++i)
        printRow("  " + faults[i].name, perFault[i]);
    return all[kForbidden];
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // reconnecting looks for a window in front
    const QApplication application(argc, argv);
    const bool full = argc > 1 && std::strcmp(argv[1], "--full") == 0;
    auto faults = full ? everyFault() : faultSample();
    // Only answers: a lost byte of a program record is noticed when the rest has been stored.
    std::erase_if(faults, [](const NamedFault& fault) {
        return fault.fault.kind == LineFault::Kind::LoseRequest;
    });
    const std::size_t stride = full ? 1 : kSampleStride;
    std::size_t forbidden = 0;
    for (const HalfFrames halves : {HalfFrames::Dropped, HalfFrames::Kept})
        forbidden += sweepBoard(halves, faults, stride);
    return forbidden == 0 ? 0 : 1;
}
