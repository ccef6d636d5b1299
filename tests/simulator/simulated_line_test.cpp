#include "simulator/simulated_line.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace tambrix {
namespace {

using std::chrono::milliseconds;
using Kind = LineFault::Kind;
using Bytes = std::vector<int>;

struct LineRig
{
    SimulatedBoard board;
    SimulatedLine line{board, 9600};

    void send(std::initializer_list<std::uint8_t> bytes, SimTime now = SimTime::zero())
    {
        for (const std::uint8_t byte : bytes)
            line.send(byte, now);
    }

    // All bytes that have arrived by `now`.
    Bytes arrivedBy(SimTime now)
    {
        Bytes bytes;
        while (line.available(now) > 0)
            bytes.push_back(line.take(now));
        return bytes;
    }
};

class Line : public testing::Test, protected LineRig
{
};

TEST(LinePace, AnswerArrivesTwoByteTimesAfterTheRequestStarts)
{
    struct Case
    {
        int baud;
        std::int64_t answerAfterNs;
    };
    for (const Case& c : {Case{9600, 2083334}, Case{19200, 1041666}, Case{0, 0}}) {
        SCOPED_TRACE(c.baud);
        SimulatedBoard board;
        SimulatedLine line(board, c.baud);
        const SimTime start = milliseconds(7);
        const SimTime due = start + SimTime(c.answerAfterNs);
        line.send(0xFF, start);
        EXPECT_EQ(line.nextArrival(), due);
        EXPECT_EQ(line.available(due - SimTime(1)), 0U);
        ASSERT_EQ(line.available(due), 1U);
        EXPECT_EQ(line.take(due), 0x55);
        EXPECT_FALSE(line.nextArrival());
    }
}

TEST_F(Line, BytesSentBackToBackQueueUp)
{
    send({0xFF, 0xFF, 0xFF});
    const SimTime byte = line.byteTime();
    EXPECT_EQ(line.available(2 * byte), 1U);
    EXPECT_EQ(line.available(3 * byte), 2U);
    EXPECT_EQ(line.available(4 * byte - SimTime(1)), 2U);
    EXPECT_EQ(line.available(4 * byte), 3U);
}

TEST_F(Line, DiscardThrowsAwayOnlyWhatHasArrived)
{
    send({0xFF});
    send({0xFF}, milliseconds(10));
    line.discard(milliseconds(5));
    EXPECT_EQ(line.nextArrival(), milliseconds(10) + 2 * line.byteTime());
}

TEST(LineSpeed, SpeedsThatDifferGiveSilence)
{
    struct Case
    {
        int board, pc;
        bool understood;
    };
    for (const Case& c : {Case{9600, 9600, true}, Case{9600, 19200, false}, Case{9600, 0, true},
                          Case{0, 19200, true}}) {
        SimulatedBoard board;
        SimulatedLine line(board, c.board);
        line.setPcBaud(c.pc);
        line.send(0xFF, SimTime::zero());
        EXPECT_EQ(line.nextArrival().has_value(), c.understood) << c.board << ", PC " << c.pc;
    }
}

TEST(LineFaults, SpoilJustTheirExchange)
{
    struct Case
    {
        std::string name;
        LineFault fault; // of the mode command, exchange 1 of 0 to 3
        Bytes inTime;    // arrived 20 ms after the start
        Bytes later;     // arrived 2 s after the start
    };
    // A lost command leaves the board waiting for one: it takes 0x02 for it.
    const Case cases[] = {
        {"LoseRequest", {.kind = Kind::LoseRequest}, {0x55, 0x55, 0xB4}, {}},
        {"LoseReply", {.kind = Kind::LoseReply}, {0x55, 0x02, 0xC8}, {}},
        {"ChangeReply", {.kind = Kind::ChangeReply, .mask = 0x0F}, {0x55, 0x5A, 0x02, 0xC8}, {}},
        {"DelayReply",
         {.kind = Kind::DelayReply, .delay = milliseconds(1500)},
         {0x55},
         {0x55, 0x02, 0xC8}}, // held back by the late one
        {"DoubleReply", {.kind = Kind::DoubleReply}, {0x55, 0x55, 0x55, 0x02, 0xC8}, {}},
        {"Unplug", {.kind = Kind::Unplug}, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LineRig rig;
        rig.line.setFault(1, c.fault);
        rig.send({0xFF, 0x01, 0x02, 0xB4}); // 0x02B4 holds 200
        EXPECT_EQ(rig.arrivedBy(milliseconds(20)), c.inTime);
        EXPECT_EQ(rig.arrivedBy(milliseconds(2000)), c.later);
    }
}

TEST_F(Line, ClearingThePlanCountsFromZeroAgain)
{
    line.setFault(0, {.kind = Kind::LoseReply});
    line.setFault(1, {.kind = Kind::LoseReply});
    send({0xFF});
    EXPECT_EQ(line.exchanges(), 1U);
    line.clearFaults();
    EXPECT_EQ(line.exchanges(), 0U);
    send({0xFF});
    EXPECT_TRUE(line.nextArrival());
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
    send({0xFF});
    send({0xFF}, milliseconds(1)); // while the line is still busy
    send({0xFF}, milliseconds(9));
    send({0x42}, milliseconds(15)); // unknown: no answer
    line.setTap({});
    send({0xFF}, milliseconds(20));
    EXPECT_EQ(seen.str(), " >255@0 <85@2083 >255@1041 >255@9000 <84@11083 >66@15000");
}

} // namespace
} // namespace tambrix
