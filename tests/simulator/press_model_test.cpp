#include "simulator/memory_map.h"
#include "simulator/simulated_board.h"

#include <gtest/gtest.h>

#include <array>

using namespace tambrix;
using namespace tambrix::memory_map;
using std::chrono::milliseconds;
using std::chrono::seconds;

namespace {

constexpr std::uint8_t kAll = 0xFF;

struct Press : testing::Test
{
    void run(SimTime span)
    {
        now += span;
        board.advanceTo(now);
    }

    // Runs for `span` and gathers every bit that was ever set in the byte.
    std::uint8_t seenWhileRunning(std::uint16_t address, SimTime span)
    {
        int seen = 0;
        for (const SimTime end = now + span; now < end;) {
            run(PressModel::kScan);
            seen |= board.peek(address);
        }
        return static_cast<std::uint8_t>(seen);
    }

    SimulatedBoard board;
    SimTime now{};
};

} // namespace

TEST_F(Press, CountsOneCycleForEveryCycleDurationOfCans)
{
    board.pokeWord(workingCycle(2), 200); // 20 cans: one second at 1200 cans per minute
    board.poke(workingOn(2), 1);          // less than a scan, and a stroke all the same
    board.pokeWord(shiftCount(2), 9990);  // its low word is about to carry
    const std::uint32_t before = board.peekCounter(shiftCount(2));
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(60)), 0);
    EXPECT_NEAR(board.peekCounter(shiftCount(2)) - before, 60, 1);
    EXPECT_LT(board.peekWord(shiftCount(2)), 100);
}

TEST_F(Press, ThePanelDecidesWhatDrivesTheSolenoids)
{
    struct Case
    {
        const char* name;
        int inputs;
        bool runs;
        int driven; // solenoids ever on within ten seconds
        int counted;
    };
    // Ductor 5 is not used, and its sensor is dead.
    const Case cases[] = {{"automatic", kInputAuto | kInputAutoOn, true, 0xEF, 0xEF},
                          {"ductors off", kInputAuto, true, 0, 0},
                          {"by hand", kInputManual, true, 0x25, 0},
                          {"off", 0, true, 0, 0},
                          {"machine stopped", kInputAuto | kInputAutoOn, false, 0, 0}};
    board.poke(kManualDuctors, 0x25);
    board.poke(workingOn(4), 0);
    board.press().setDuctorAnswers(4, false);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        board.poke(kInputs, static_cast<std::uint8_t>(c.inputs));
        if (!c.runs)
            board.press().stop();
        run(seconds(1)); // a stroke that has begun ends
        board.poke(kCountReset, kAll);
        EXPECT_EQ(board.peek(kCountReset), 0);
        EXPECT_EQ(seenWhileRunning(kSolenoids, seconds(10)), c.driven);
        EXPECT_EQ(seenWhileRunning(kFeedbackSensors, seconds(10)), c.driven);
        EXPECT_EQ(board.peek(kAlarms), 0);
        for (int d = 0; d < kDuctors; ++d)
            EXPECT_EQ(board.peekCounter(shiftCount(d)) > 0, (c.counted >> d & 1) != 0) << d;
    }
}

TEST_F(Press, AFaultStaysUntilItsResetAndComesBackWhileItsCauseLasts)
{
    board.pokeWord(workingCycle(5), 200); // one second a cycle
    board.press().setDuctorAnswers(5, false);
    board.poke(kFeedbackEnable, kAll & ~0x20);
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(30)), 0);
    board.poke(kFeedbackEnable, kAll);
    EXPECT_EQ(seenWhileRunning(kAlarms, milliseconds(900)), 0); // it takes a couple of cycles
    run(seconds(3));
    EXPECT_EQ(board.peek(kAlarms), 0x20);
    EXPECT_EQ(board.peek(kFeedbackFaults), 0x20);
    board.poke(kAlarmResetFlags, 0xF8); // with its neighbour flags
    EXPECT_EQ(board.peek(kAlarmResetFlags), 0xF0);
    EXPECT_EQ(seenWhileRunning(kAlarms, milliseconds(100)), 0);
    EXPECT_EQ(board.peek(kFeedbackFaults), 0);
    run(seconds(10));
    board.press().setDuctorAnswers(5, true);
    run(seconds(10));
    EXPECT_EQ(board.peek(kAlarms), 0x20);
    board.poke(kAlarmResetFlags, kAlarmReset);
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(10)), 0);
}

TEST_F(Press, TheClockGoesOnFromWhatItIsSetTo)
{
    const std::array registers{kCalendarYear, kCalendarMonth, kCalendarDay,
                               kClockHour,    kClockMinute,   kClockSecond};
    using Moment = std::array<std::uint8_t, 6>; // one second apart
    const std::pair<Moment, Moment> cases[] = {{{24, 2, 28, 23, 59, 59}, {24, 2, 29, 0, 0, 0}},
                                               {{25, 2, 28, 23, 59, 59}, {25, 3, 1, 0, 0, 0}},
                                               {{99, 12, 31, 23, 59, 59}, {0, 1, 1, 0, 0, 0}},
                                               {{24, 200, 255, 99, 99, 99}, {25, 1, 1, 0, 0, 0}}};
    for (const auto& [before, after] : cases) {
        for (std::size_t i = 0; i < registers.size(); ++i)
            board.poke(registers[i], before[i]);
        run(seconds(1));
        for (std::size_t i = 0; i < registers.size(); ++i)
            EXPECT_EQ(board.peek(registers[i]), after[i]) << int{before[1]} << ' ' << registers[i];
    }
}
