#include "simulator/memory_map.h"
#include "simulator/simulated_board.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

namespace tambrix {
namespace {

using namespace memory_map;
using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr std::uint8_t kAll = 0xFF;

struct RunningPress
{
    SimulatedBoard board;
    SimTime now{};

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
};

class Press : public testing::Test, protected RunningPress
{
};

TEST_F(Press, SpeedMovesAroundItsUsualValue)
{
    std::set<int> speeds;
    for (int i = 0; i < 120; ++i) {
        run(seconds(1));
        speeds.insert(board.peekWord(kMachineSpeed));
    }
    EXPECT_GT(*speeds.begin(), 1150);
    EXPECT_LT(*speeds.begin(), 1200);
    EXPECT_GT(*speeds.rbegin(), 1200);
    EXPECT_LT(*speeds.rbegin(), 1250);
}

TEST_F(Press, SpeedChangesGraduallyAndStopsAtOnce)
{
    board.press().setMachineSpeed(600);
    run(seconds(1));
    EXPECT_GT(board.peekWord(kMachineSpeed), 1000);
    run(seconds(9));
    EXPECT_NEAR(board.peekWord(kMachineSpeed), 600, 10);
    board.press().stop();
    run(PressModel::kScan);
    EXPECT_EQ(board.peekWord(kMachineSpeed), 0);
}

TEST_F(Press, CountsOneCycleForEveryCycleDurationOfCans)
{
    board.pokeWord(workingCycle(2), 200); // 20 cans: one second at 1200 cans per minute
    board.poke(workingOn(2), 1);          // less than a scan, and a stroke all the same
    board.pokeWord(shiftCount(2), 9990);  // its low word is about to carry
    const std::uint32_t before = board.peekCounter(shiftCount(2));
    run(seconds(60));
    EXPECT_NEAR(board.peekCounter(shiftCount(2)) - before, 60, 1);
    EXPECT_LT(board.peekWord(shiftCount(2)), 100);
}

TEST(PressPanel, DecidesWhatDrivesTheSolenoids)
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
                          {"machine stopped", kInputAuto | kInputAutoOn, false, 0, 0},
                          {"ductors off", kInputAuto, true, 0, 0},
                          {"by hand", kInputManual, true, 0x25, 0},
                          {"off", 0, true, 0, 0}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        RunningPress press;
        SimulatedBoard& board = press.board;
        board.poke(kInputs, static_cast<std::uint8_t>(c.inputs));
        board.poke(kManualDuctors, 0x25);
        board.poke(workingOn(4), 0);
        board.press().setDuctorAnswers(4, false);
        if (!c.runs)
            board.press().stop();
        press.run(PressModel::kScan);
        board.poke(kCountReset, kAll);
        EXPECT_EQ(press.seenWhileRunning(kSolenoids, seconds(10)), c.driven);
        EXPECT_EQ(press.seenWhileRunning(kFeedbackSensors, seconds(10)), c.driven);
        EXPECT_EQ(board.peek(kAlarms), 0);
        for (int d = 0; d < kDuctors; ++d)
            EXPECT_EQ(board.peekCounter(shiftCount(d)) > 0, (c.counted >> d & 1) != 0) << d;
    }
}

TEST_F(Press, ShortestStrokeIsConfirmedToo)
{
    for (int ductor = 0; ductor < kDuctors; ++ductor)
        board.poke(workingOn(ductor), 1);
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(60)), 0);
}

TEST_F(Press, SilentDuctorRaisesItsFaultInACoupleOfCyclesWhereItIsWatched)
{
    board.pokeWord(workingCycle(5), 200); // one second a cycle
    board.press().setDuctorAnswers(5, false);
    board.poke(kFeedbackEnable, kAll & ~0x20);
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(30)), 0);
    board.poke(kFeedbackEnable, kAll);
    EXPECT_EQ(seenWhileRunning(kAlarms, milliseconds(900)), 0);
    run(seconds(3));
    EXPECT_EQ(board.peek(kAlarms), 0x20);
    EXPECT_EQ(board.peek(kFeedbackFaults), 0x20);
}

TEST_F(Press, AlarmsStayUntilTheirResetAndComeBackWhileTheirCauseLasts)
{
    board.poke(kAlarms, 0x84);
    board.press().setDuctorAnswers(0, false);
    run(seconds(10));
    EXPECT_EQ(board.peek(kAlarms), 0x85);
    board.poke(kAlarmResetFlags, 0xF8); // with its neighbour flags
    EXPECT_EQ(board.peek(kAlarmResetFlags), 0xF0);
    EXPECT_EQ(seenWhileRunning(kAlarms, milliseconds(100)), 0);
    EXPECT_EQ(board.peek(kFeedbackFaults), 0);
    run(seconds(10));
    EXPECT_EQ(board.peek(kAlarms), 0x01);
    board.press().setDuctorAnswers(0, true);
    run(seconds(10));
    EXPECT_EQ(board.peek(kAlarms), 0x01) << "a fault stays until it is reset";
    board.poke(kAlarmResetFlags, kAlarmReset);
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(10)), 0);
}

TEST_F(Press, CountResetClearsTheMaskedDuctorsAndItself)
{
    const SimulatedBoard untouched;
    board.poke(kCountReset, 0x84);
    EXPECT_EQ(board.peek(kCountReset), 0);
    for (int d = 0; d < kDuctors; ++d) {
        const bool cleared = d == 2 || d == 7;
        EXPECT_EQ(board.peekCounter(shiftCount(d)),
                  cleared ? 0 : untouched.peekCounter(shiftCount(d)));
    }
}

TEST_F(Press, ResolverFollowsTheMachine)
{
    const int scale = board.peekWord(kResolverScale);
    int highest = 0;
    for (int i = 0; i < 100; ++i) {
        run(PressModel::kScan);
        highest = std::max<int>(highest, board.peekWord(kResolverPos));
    }
    EXPECT_LT(highest, scale);
    EXPECT_GT(highest, scale / 2);
    EXPECT_NEAR(board.peekWord(kResolverRpm) * board.peekWord(kResolverPeriod), 60000, 1500);
    board.pokeWord(kResolverScale, 0);
    run(seconds(1));
    EXPECT_EQ(board.peekWord(kResolverPos), 0);
}

TEST_F(Press, TwoRunsAreAlikeHoweverTheTimeIsCut)
{
    SimulatedBoard other;
    for (int i = 0; i < 700; ++i)
        other.advanceTo(milliseconds(i * 43));
    board.advanceTo(milliseconds(699 * 43));
    EXPECT_TRUE(std::equal(board.memory().begin(), board.memory().end(), other.memory().begin()));
}

TEST(PressClock, GoesOnFromWhatItIsSetTo)
{
    struct Case
    {
        const char* name;
        std::array<std::uint8_t, 6> before; // year, month, day, hour, minute, second
        std::array<std::uint8_t, 6> after;  // one second later
    };
    const std::array registers{kCalendarYear, kCalendarMonth, kCalendarDay,
                               kClockHour,    kClockMinute,   kClockSecond};
    const Case cases[] = {{"hour", {24, 5, 1, 9, 59, 59}, {24, 5, 1, 10, 0, 0}},
                          {"month", {24, 4, 30, 23, 59, 59}, {24, 5, 1, 0, 0, 0}},
                          {"leap day", {24, 2, 28, 23, 59, 59}, {24, 2, 29, 0, 0, 0}},
                          {"no leap day", {25, 2, 28, 23, 59, 59}, {25, 3, 1, 0, 0, 0}},
                          {"century", {99, 12, 31, 23, 59, 59}, {0, 1, 1, 0, 0, 0}},
                          {"nonsense", {24, 200, 255, 99, 99, 99}, {25, 1, 1, 0, 0, 0}}};
    for (const Case& c : cases) {
        RunningPress press;
        for (std::size_t i = 0; i < registers.size(); ++i)
            press.board.poke(registers[i], c.before[i]);
        press.run(seconds(1));
        for (std::size_t i = 0; i < registers.size(); ++i)
            EXPECT_EQ(press.board.peek(registers[i]), c.after[i]) << c.name << ' ' << registers[i];
    }
}

} // namespace
} // namespace tambrix
