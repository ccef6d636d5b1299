#include "tests/sweep/sweep.h"

#include "simulator/memory_map.h"
#include "tests/support/board_bytes.h"
#include "tests/support/wire_writes.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <iterator>

namespace tambrix {

namespace {

using namespace std::chrono_literals;

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

} // namespace

CleanRun::CleanRun(const Scenario& scenario, HalfFrames halves)
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

namespace {

Ending judge(SweepRig& rig, const CleanRun& clean, const Claim& claim)
{
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

} // namespace

EndingCounts sweepScenario(const Scenario& scenario, HalfFrames halves, const CleanRun& clean,
                           const NamedFault& fault, std::size_t first, std::size_t stride)
{
    EndingCounts counts{};
    for (std::size_t k = first; k < clean.exchanges; k += stride)
        ++counts[static_cast<std::size_t>(runDisturbed(scenario, clean, fault.fault, k, halves))];
    return counts;
}

bool isForbidden(Ending ending, const NamedFault& fault, HalfFrames halves)
{
    if (ending >= Ending::Stuck)
        return true;
    if (halves == HalfFrames::Kept)
        return false;
    return ending == Ending::Foreign || (ending > Ending::Reported && !fault.bringsWrongByte());
}

} // namespace tambrix
