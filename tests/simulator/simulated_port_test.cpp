#include "simulator/inprocess/simulated_serial_port.h"
#include "tests/support/virtual_clock.h"

#include <gtest/gtest.h>

using namespace tambrix;
using namespace std::chrono_literals;

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
