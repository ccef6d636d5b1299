#include "simulator/memory_map.h"
#include "simulator/simulated_board.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace tambrix {
namespace {

using namespace memory_map;
using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr std::uint8_t kAll = 0xFF;

class Press : public testing::Test
{
protected:
    void run(SimTime span)
    {
        m_now += span;
        board.advanceTo(m_now);
    }

    // Runs for `span` and gathers every bit that was ever set in the byte.
    std::uint8_t seenWhileRunning(std::uint16_t address, SimTime span)
    {
        int seen = 0;
        for (SimTime end = m_now + span; m_now < end;) {
            run(PressModel::kScan);
            seen |= board.peek(address);
        }
        return static_cast<std::uint8_t>(seen);
    }

    void resetAlarms() { board.poke(kAlarmResetFlags, kAlarmReset); }

    SimulatedBoard board;

private:
    SimTime m_now{};
};

TEST_F(Press, SpeedMovesAroundItsUsualValue)
{
    int lowest = 65535;
    int highest = 0;
    for (int i = 0; i < 120; ++i) {
        run(seconds(1));
        lowest = std::min<int>(lowest, board.peekWord(kMachineSpeed));
        highest = std::max<int>(highest, board.peekWord(kMachineSpeed));
    }
    EXPECT_LT(lowest, 1200);
    EXPECT_GT(lowest, 1150);
    EXPECT_GT(highest, 1200);
    EXPECT_LT(highest, 1250);
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
    board.poke(workingOn(2), 50);
    const std::uint32_t before = board.peekCounter(shiftCount(2));
    run(seconds(60));
    EXPECT_NEAR(board.peekCounter(shiftCount(2)) - before, 60, 1);
}

TEST_F(Press, CountCarriesIntoTheHighWord)
{
    board.pokeWord(940, 9999);
    board.pokeWord(942, 3);
    while (board.peekWord(942) == 3)
        run(PressModel::kScan);
    EXPECT_EQ(board.peekWord(940), 0);
    EXPECT_EQ(board.peekWord(942), 4);
}

TEST_F(Press, StoppedMachineStrokesNoDuctor)
{
    board.press().stop();
    run(seconds(1));
    const std::uint32_t before = board.peekCounter(shiftCount(0));
    EXPECT_EQ(seenWhileRunning(kSolenoids, seconds(5)), 0);
    EXPECT_EQ(board.peekCounter(shiftCount(0)), before);
}

struct PanelCase
{
    const char* name;
    std::uint8_t inputs;
    std::uint8_t manual;
    std::uint8_t solenoids; // ever on within ten seconds
};

class PressPanel : public Press, public testing::WithParamInterface<PanelCase>
{
};

TEST_P(PressPanel, DecidesWhatDrivesTheSolenoids)
{
    board.poke(kInputs, GetParam().inputs);
    board.poke(kManualDuctors, GetParam().manual);
    run(PressModel::kScan);
    EXPECT_EQ(seenWhileRunning(kSolenoids, seconds(10)), GetParam().solenoids);
    EXPECT_EQ(seenWhileRunning(kFeedbackSensors, seconds(10)), GetParam().solenoids);
}

INSTANTIATE_TEST_SUITE_P(Panel, PressPanel,
                         testing::Values(PanelCase{"AutoOn", kInputAuto | kInputAutoOn, 0, kAll},
                                         PanelCase{"AutoOff", kInputAuto, 0x0F, 0},
                                         PanelCase{"Manual", kInputManual, 0x25, 0x25},
                                         PanelCase{"Off", 0, 0x25, 0}),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(Press, ShortestStrokeIsConfirmedToo)
{
    for (int ductor = 0; ductor < kDuctors; ++ductor)
        board.poke(workingOn(ductor), 1);
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(60)), 0);
}

TEST_F(Press, UnusedDuctorNeitherStrokesNorCountsNorFails)
{
    board.poke(workingOn(4), 0);
    board.press().setDuctorAnswers(4, false);
    const std::uint32_t before = board.peekCounter(shiftCount(4));
    EXPECT_EQ(seenWhileRunning(kSolenoids, seconds(30)) & 0x10, 0);
    EXPECT_EQ(board.peekCounter(shiftCount(4)), before);
    EXPECT_EQ(board.peek(kAlarms), 0);
}

TEST_F(Press, SilentDuctorRaisesItsFaultWithinACoupleOfCycles)
{
    board.pokeWord(workingCycle(5), 200); // one second a cycle
    board.press().setDuctorAnswers(5, false);
    run(milliseconds(900));
    EXPECT_EQ(board.peek(kAlarms), 0);
    run(seconds(3));
    EXPECT_EQ(board.peek(kAlarms), 0x20);
    EXPECT_EQ(board.peek(kFeedbackFaults), 0x20);
}

TEST_F(Press, FeedbackThatIsNotEnabledRaisesNoFault)
{
    board.poke(kFeedbackEnable, kAll & ~0x20);
    board.press().setDuctorAnswers(5, false);
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(30)), 0);
    board.poke(kFeedbackEnable, kAll);
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(30)), 0x20);
}

TEST_F(Press, ResetClearsTheFaultWhichComesBackWhileItsCauseLasts)
{
    board.press().setDuctorAnswers(0, false);
    run(seconds(10));
    ASSERT_EQ(board.peek(kAlarms), 0x01);
    resetAlarms();
    EXPECT_EQ(board.peek(kAlarms), 0);
    EXPECT_EQ(board.peek(kFeedbackFaults), 0);
    EXPECT_EQ(board.peek(kAlarmResetFlags), 0);
    run(seconds(10));
    EXPECT_EQ(board.peek(kAlarms), 0x01);
    board.press().setDuctorAnswers(0, true);
    run(seconds(10));
    EXPECT_EQ(board.peek(kAlarms), 0x01) << "a fault stays until it is reset";
    resetAlarms();
    EXPECT_EQ(seenWhileRunning(kAlarms, seconds(10)), 0);
}

TEST_F(Press, AlarmSetByHandStaysUntilTheReset)
{
    board.poke(kAlarms, 0x84);
    run(seconds(30));
    EXPECT_EQ(board.peek(kAlarms), 0x84);
    resetAlarms();
    EXPECT_EQ(board.peek(kAlarms), 0);
}

TEST_F(Press, AlarmResetLeavesItsNeighbourFlagsAlone)
{
    board.poke(kAlarmResetFlags, 0xF8);
    EXPECT_EQ(board.peek(kAlarmResetFlags), 0xF0);
}

TEST_F(Press, CountResetClearsTheMaskedDuctorsAndItself)
{
    board.press().stop();
    run(PressModel::kScan);
    std::array<std::uint32_t, kDuctors> before{};
    for (int ductor = 0; ductor < kDuctors; ++ductor)
        before[static_cast<std::size_t>(ductor)] = board.peekCounter(shiftCount(ductor));
    board.poke(kCountReset, 0x84);
    EXPECT_EQ(board.peek(kCountReset), 0);
    for (int ductor = 0; ductor < kDuctors; ++ductor) {
        const bool cleared = ductor == 2 || ductor == 7;
        EXPECT_EQ(board.peekCounter(shiftCount(ductor)),
                  cleared ? 0 : before[static_cast<std::size_t>(ductor)]);
    }
}

TEST_F(Press, ResolverFollowsTheMachine)
{
    const int scale = board.peekWord(kResolverScale);
    std::vector<int> positions;
    for (int i = 0; i < 100; ++i) {
        run(PressModel::kScan);
        positions.push_back(board.peekWord(kResolverPos));
    }
    EXPECT_LT(*std::max_element(positions.begin(), positions.end()), scale);
    EXPECT_GT(*std::max_element(positions.begin(), positions.end()), scale / 2);
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

struct ClockCase
{
    const char* name;
    std::array<std::uint8_t, 6> before; // year, month, day, hour, minute, second
    std::array<std::uint8_t, 6> after;  // one second later
};

class PressClock : public Press, public testing::WithParamInterface<ClockCase>
{
};

constexpr std::array<std::uint16_t, 6> kClockRegisters{kCalendarYear, kCalendarMonth, kCalendarDay,
                                                       kClockHour,    kClockMinute,   kClockSecond};

TEST_P(PressClock, GoesOnFromWhatItIsSetTo)
{
    for (std::size_t i = 0; i < kClockRegisters.size(); ++i)
        board.poke(kClockRegisters[i], GetParam().before[i]);
    run(seconds(1));
    for (std::size_t i = 0; i < kClockRegisters.size(); ++i)
        EXPECT_EQ(board.peek(kClockRegisters[i]), GetParam().after[i]) << kClockRegisters[i];
}

INSTANTIATE_TEST_SUITE_P(
    Clock, PressClock,
    testing::Values(ClockCase{"Second", {24, 5, 1, 9, 59, 58}, {24, 5, 1, 9, 59, 59}},
                    ClockCase{"Hour", {24, 5, 1, 9, 59, 59}, {24, 5, 1, 10, 0, 0}},
                    ClockCase{"Month", {24, 4, 30, 23, 59, 59}, {24, 5, 1, 0, 0, 0}},
                    ClockCase{"LeapDay", {24, 2, 28, 23, 59, 59}, {24, 2, 29, 0, 0, 0}},
                    ClockCase{"NoLeapDay", {25, 2, 28, 23, 59, 59}, {25, 3, 1, 0, 0, 0}},
                    ClockCase{"Century", {99, 12, 31, 23, 59, 59}, {0, 1, 1, 0, 0, 0}},
                    ClockCase{"Nonsense", {24, 200, 255, 99, 99, 99}, {25, 1, 1, 0, 0, 0}}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(Press, LongRestsPassInOneStep)
{
    run(hours(2));
    EXPECT_EQ(board.peek(kClockHour), 8);
    EXPECT_NEAR(board.peekWord(kMachineSpeed), 1200, 20);
}

} // namespace
} // namespace tambrix
