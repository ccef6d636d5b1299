#include "simulator/simulated_line.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace tambrix {
namespace {

using std::chrono::milliseconds;
using Kind = LineFault::Kind;

class Line : public testing::Test
{
protected:
    // All bytes that have arrived by `now`.
    std::vector<int> arrivedBy(SimTime now)
    {
        std::vector<int> bytes;
        while (line.available(now) > 0)
            bytes.push_back(line.take(now));
        return bytes;
    }

    SimulatedBoard board;
    SimulatedLine line{board, 9600};
};

using Bytes = std::vector<int>;

struct PaceCase
{
    int baud;
    std::int64_t answerAfterNs;
};

class LinePace : public testing::TestWithParam<PaceCase>
{
};

TEST_P(LinePace, AnswerArrivesTwoByteTimesAfterTheRequestStarts)
{
    SimulatedBoard board;
    SimulatedLine line(board, GetParam().baud);
    const SimTime start = milliseconds(7);
    const SimTime due = start + SimTime(GetParam().answerAfterNs);
    line.send(0xFF, start);
    EXPECT_EQ(line.nextArrival(), due);
    EXPECT_EQ(line.available(due - SimTime(1)), 0U);
    ASSERT_EQ(line.available(due), 1U);
    EXPECT_EQ(line.take(due), 0x55);
    EXPECT_FALSE(line.nextArrival());
}

INSTANTIATE_TEST_SUITE_P(Bauds, LinePace,
                         testing::Values(PaceCase{9600, 2083334}, PaceCase{19200, 1041666},
                                         PaceCase{0, 0}));

TEST_F(Line, BytesSentBackToBackQueueUp)
{
    for (int i = 0; i < 3; ++i)
        line.send(0xFF, SimTime::zero());
    const SimTime byte = line.byteTime();
    EXPECT_EQ(line.available(2 * byte), 1U);
    EXPECT_EQ(line.available(3 * byte), 2U);
    EXPECT_EQ(line.available(4 * byte - SimTime(1)), 2U);
    EXPECT_EQ(line.available(4 * byte), 3U);
}

TEST_F(Line, UnansweredByteLeavesTheLineQuiet)
{
    line.send(0x42, SimTime::zero());
    EXPECT_FALSE(line.nextArrival());
}

TEST_F(Line, DiscardThrowsAwayOnlyWhatHasArrived)
{
    line.send(0xFF, SimTime::zero());
    line.send(0xFF, milliseconds(10));
    line.discard(milliseconds(5));
    EXPECT_EQ(line.nextArrival(), milliseconds(10) + 2 * line.byteTime());
}

struct SpeedCase
{
    int board;
    int pc;
    bool understood;
};

class LineSpeed : public testing::TestWithParam<SpeedCase>
{
};

TEST_P(LineSpeed, SpeedsThatDifferGiveSilence)
{
    SimulatedBoard board;
    SimulatedLine line(board, GetParam().board);
    line.setPcBaud(GetParam().pc);
    line.send(0xFF, SimTime::zero());
    EXPECT_EQ(line.nextArrival().has_value(), GetParam().understood);
}

INSTANTIATE_TEST_SUITE_P(Speeds, LineSpeed,
                         testing::Values(SpeedCase{9600, 9600, true}, SpeedCase{9600, 19200, false},
                                         SpeedCase{19200, 9600, false}, SpeedCase{9600, 0, true},
                                         SpeedCase{0, 19200, true}));

// Exchange 3 of 0 to 3, in read mode: the low byte of address 0x02B4, which holds 200.
struct FaultCase
{
    std::string name;
    LineFault fault;
    Bytes inTime; // arrived 20 ms after the start
    Bytes later;  // arrived 2 s after the start
};

class LineFaults : public Line, public testing::WithParamInterface<FaultCase>
{
};

TEST_P(LineFaults, SpoilJustTheirExchange)
{
    line.setFault(3, GetParam().fault);
    for (const int byte : {0xFF, 0x01, 0x02, 0xB4})
        line.send(static_cast<std::uint8_t>(byte), SimTime::zero());
    EXPECT_EQ(arrivedBy(milliseconds(20)), GetParam().inTime);
    EXPECT_EQ(arrivedBy(milliseconds(2000)), GetParam().later);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, LineFaults,
    testing::Values(
        FaultCase{"LoseRequest", {.kind = Kind::LoseRequest}, {0x55, 0x55, 0x02}, {}},
        FaultCase{"LoseReply", {.kind = Kind::LoseReply}, {0x55, 0x55, 0x02}, {}},
        FaultCase{
            "ChangeReply", {.kind = Kind::ChangeReply, .mask = 0x0F}, {0x55, 0x55, 0x02, 0xC7}, {}},
        FaultCase{"DelayReply",
                  {.kind = Kind::DelayReply, .delay = milliseconds(1500)},
                  {0x55, 0x55, 0x02},
                  {0xC8}},
        FaultCase{"DoubleReply", {.kind = Kind::DoubleReply}, {0x55, 0x55, 0x02, 0xC8, 0xC8}, {}},
        FaultCase{"Unplug", {.kind = Kind::Unplug}, {}, {}}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(Line, LostRequestNeverReachesTheBoardLostReplyDoes)
{
    line.setFault(1, {.kind = Kind::LoseRequest});
    line.send(0xFF, SimTime::zero());
    line.send(0x01, SimTime::zero());
    EXPECT_EQ(board.mode(), 0);
    line.clearFaults();
    line.setFault(1, {.kind = Kind::LoseReply});
    line.send(0xFF, SimTime::zero());
    line.send(0x01, SimTime::zero());
    EXPECT_EQ(board.mode(), 1);
}

TEST_F(Line, DelayedAnswerHoldsBackTheNextOne)
{
    line.setFault(0, {.kind = Kind::DelayReply, .delay = milliseconds(100)});
    line.send(0xFF, SimTime::zero());
    line.send(0x01, milliseconds(10));
    EXPECT_EQ(line.available(milliseconds(50)), 0U);
    EXPECT_EQ(line.available(milliseconds(110)), 2U);
}

TEST_F(Line, ClearingThePlanCountsFromZeroAgain)
{
    line.setFault(0, {.kind = Kind::LoseReply});
    line.setFault(1, {.kind = Kind::LoseReply});
    line.send(0xFF, SimTime::zero());
    EXPECT_EQ(line.exchanges(), 1U);
    line.clearFaults();
    EXPECT_EQ(line.exchanges(), 0U);
    line.send(0xFF, SimTime::zero());
    EXPECT_TRUE(line.nextArrival());
}

TEST_F(Line, UnpluggingLosesWhatIsOnTheWay)
{
    line.send(0xFF, SimTime::zero());
    line.unplug();
    line.send(0xFF, SimTime::zero());
    EXPECT_FALSE(line.nextArrival());
    EXPECT_EQ(line.exchanges(), 1U);
    line.plugIn();
    line.send(0xFF, milliseconds(50));
    EXPECT_EQ(arrivedBy(milliseconds(60)), (Bytes{0x55}));
}

TEST_F(Line, TapSeesBothDirectionsAsThePcEndDoes)
{
    std::ostringstream seen;
    line.setTap([&seen](const WireByte& wire) {
        const bool toBoard = wire.direction == WireByte::Direction::ToBoard;
        seen << (toBoard ? " >" : " <") << int{wire.byte} << '@'
             << wire.time / std::chrono::microseconds(1);
    });
    line.setFault(1, {.kind = Kind::LoseReply});
    line.setFault(2, {.kind = Kind::ChangeReply, .mask = 0x01});
    line.send(0xFF, SimTime::zero());
    line.send(0xFF, milliseconds(5));
    line.send(0xFF, milliseconds(9));
    line.setTap({});
    line.send(0xFF, milliseconds(20));
    EXPECT_EQ(seen.str(), " >255@0 <85@2083 >255@5000 >255@9000 <84@11083");
}

} // namespace
} // namespace tambrix
