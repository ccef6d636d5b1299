#include "simulator/inprocess/simulated_serial_port.h"
#include "tests/support/virtual_clock.h"

#include <gtest/gtest.h>

using namespace tambrix;
using namespace std::chrono_literals;
using Kind = LineFault::Kind;
using Bytes = std::vector<int>;

TEST(SimulatedLine, AnswersArriveTwoByteTimesAfterTheirRequestsAndQueueUp)
{
    for (const auto& [baud, nanoseconds] : {std::pair(9600, 2083334), std::pair(19200, 1041666)}) {
        SimulatedBoard board;
        SimulatedLine line(board, baud);
        const SimTime due = 7ms + SimTime(nanoseconds);
        line.send(0xFF, 7ms);
        line.send(0xFF, 7ms);
        EXPECT_EQ(line.available(due - SimTime(1)), 0U) << baud;
        EXPECT_EQ(line.available(due), 1U) << baud;
        EXPECT_EQ(line.available(due + line.byteTime() - SimTime(1)), 1U) << baud;
        line.discard(due); // only what has arrived
        EXPECT_EQ(line.nextArrival(), due + line.byteTime()) << baud;
    }
}

TEST(SimulatedLine, AFaultSpoilsJustItsExchange)
{
    struct Case
    {
        const char* name;
        LineFault fault; // of the mode command, exchange 1 of 0 to 3
        Bytes inTime;    // arrived 20 ms after the start
        Bytes later;     // arrived 2 s after the start
    };
    // A lost command leaves the board waiting for one: it takes 0x02 for it.
    const Case cases[] = {
        {"request lost", {Kind::LoseRequest, 0, {}}, {0x55, 0x55, 0xB4}, {}},
        {"reply lost", {Kind::LoseReply, 0, {}}, {0x55, 0x02, 0xC8}, {}},
        {"reply changed", {Kind::ChangeReply, 0x0F, {}}, {0x55, 0x5A, 0x02, 0xC8}, {}},
        {"held back", {Kind::DelayReply, 0, 1500ms}, {0x55}, {0x55, 0x02, 0xC8}},
        {"doubled", {Kind::DoubleReply, 0, {}}, {0x55, 0x55, 0x55, 0x02, 0xC8}, {}},
        {"overtaken", {Kind::DoubleReply, 0, 50ms}, {0x55, 0x55, 0x02, 0xC8}, {0x55}},
        {"unplugged", {Kind::Unplug, 0, {}}, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SimulatedBoard board;
        SimulatedLine line(board);
        const auto arrivedBy = [&line](SimTime now) {
            Bytes bytes;
            while (line.available(now) > 0)
                bytes.push_back(line.take(now));
            return bytes;
        };
        line.setFault(1, c.fault);
        for (const int byte : {0xFF, 0x01, 0x02, 0xB4}) // 0x02B4 holds 200
            line.send(static_cast<std::uint8_t>(byte), 0s);
        EXPECT_EQ(arrivedBy(20ms), c.inTime);
        EXPECT_EQ(arrivedBy(2000ms), c.later);
    }
}

TEST(SimulatedPort, IsASilentBoardThatTakesItsTimeWhereItCannotAnswer)
{
    VirtualClock clock;
    SimulatedBoard board;
    SimulatedLine line(board, 9600);
    SimulatedSerialPort port(line, clock);
    EXPECT_TRUE(port.configure(1, "4800,n,8,1"));
    EXPECT_TRUE(port.configure(100, "9600,n,8,1"));
    ASSERT_FALSE(port.configure(1, "19200,n,8,1"));
    ASSERT_FALSE(port.open());
    EXPECT_TRUE(port.open()); // is open already
    port.writeByte(0xFF);     // at another speed than the board's
    EXPECT_FALSE(port.waitForInput(1s));
    port.close();
    ASSERT_FALSE(port.configure(1, "9600,n,8,1"));
    ASSERT_FALSE(port.open());
    port.writeByte(0xFF);
    EXPECT_FALSE(port.waitForInput(1ms));
    EXPECT_TRUE(port.waitForInput(1s)); // no longer than the byte takes
    EXPECT_EQ(clock.now(), 1s + 2 * line.byteTime());
    port.discardInput();
    line.unplug();
    port.writeByte(0xFF);
    EXPECT_FALSE(port.waitForInput(2s));
    EXPECT_EQ(clock.now(), 3s + 2 * line.byteTime());
    EXPECT_EQ(line.exchanges(), 2U);
}
