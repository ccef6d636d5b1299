#include "simulator/inprocess/simulated_serial_port.h"

#include "tests/support/virtual_clock.h"

#include <gtest/gtest.h>

namespace tambrix {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using Port = SimulatedSerialPort;

class SimulatedPort : public testing::Test
{
protected:
    void openPort()
    {
        ASSERT_FALSE(port.configure(7, "9600,n,8,1"));
        ASSERT_FALSE(port.open());
    }

    VirtualClock clock;
    SimulatedBoard board;
    SimulatedLine line{board, 9600};
    Port port{line, clock};
};

TEST_F(SimulatedPort, SettingsAreTakenOrRefused)
{
    struct Case
    {
        int port;
        const char* settings;
        int fault;  // 0: none
        bool heard; // by the board, at 9600
    };
    const Case cases[] = {
        {1, "9600,n,8,1", 0, true},
        {99, "19200,n,8,1", 0, false},
        {0, "9600,n,8,1", Port::kBadPortNumber, false},
        {100, "9600,n,8,1", Port::kBadPortNumber, false},
        {1, "4800,n,8,1", Port::kBadSettings, false},
        {1, "9600,e,7,1", Port::kBadSettings, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.port) + ": " + c.settings);
        const auto fault = port.configure(c.port, c.settings);
        EXPECT_EQ(fault ? fault->number : 0, c.fault);
        if (fault) {
            EXPECT_FALSE(fault->description.empty());
            continue;
        }
        EXPECT_EQ(port.portNumber(), c.port);
        ASSERT_FALSE(port.open());
        port.writeByte(0xFF);
        EXPECT_EQ(port.waitForInput(seconds(1)), c.heard);
        port.close();
    }
}

TEST_F(SimulatedPort, WaitEndsWithTheAnswerOrAtItsLimit)
{
    openPort();
    port.writeByte(0xFF);
    EXPECT_FALSE(port.waitForInput(milliseconds(1)));
    EXPECT_EQ(clock.now(), milliseconds(1));
    EXPECT_EQ(port.bytesWaiting(), 0U);
    EXPECT_TRUE(port.waitForInput(seconds(1)));
    EXPECT_EQ(clock.now(), 2 * line.byteTime());
    EXPECT_TRUE(port.waitForInput(seconds(1))) << "a byte waits";
    EXPECT_EQ(clock.now(), 2 * line.byteTime());
    EXPECT_EQ(port.readByte(), 0x55);
    EXPECT_EQ(port.bytesWaiting(), 0U);
}

TEST_F(SimulatedPort, MissingDeviceCannotBeOpened)
{
    line.unplug();
    ASSERT_FALSE(port.configure(7, "9600,n,8,1"));
    const auto fault = port.open();
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->number, Port::kDeviceMissing);
    EXPECT_NE(fault->source.find('7'), std::string::npos);
    EXPECT_FALSE(port.isOpen());
    line.plugIn();
    EXPECT_FALSE(port.open());
    EXPECT_TRUE(port.isOpen());
}

TEST_F(SimulatedPort, UnpluggedWhileOpenIsASilentBoardThatTakesItsTime)
{
    openPort();
    port.writeByte(0xFF);
    line.unplug();
    EXPECT_TRUE(port.isOpen());
    EXPECT_FALSE(port.waitForInput(seconds(1)));
    port.writeByte(0xFF);
    EXPECT_FALSE(port.waitForInput(seconds(2)));
    EXPECT_EQ(clock.now(), seconds(3));
    EXPECT_EQ(line.exchanges(), 1U);
    line.plugIn();
    port.writeByte(0xFF);
    EXPECT_TRUE(port.waitForInput(seconds(1)));
    port.discardInput();
    EXPECT_EQ(port.bytesWaiting(), 0U);
}

TEST_F(SimulatedPort, ClosedPortSendsAndDeliversNothing)
{
    openPort();
    port.writeByte(0xFF);
    port.close();
    clock.pause(milliseconds(5));
    EXPECT_EQ(port.bytesWaiting(), 0U);
    port.writeByte(0xFF);
    EXPECT_EQ(line.exchanges(), 1U);
    EXPECT_FALSE(port.waitForInput(milliseconds(10)));
    EXPECT_EQ(clock.now(), milliseconds(15));
    ASSERT_FALSE(port.open());
    EXPECT_EQ(port.bytesWaiting(), 0U) << "a fresh port starts without old input";
}

TEST_F(SimulatedPort, OpenPortCanNeitherBeConfiguredNorOpenedAgain)
{
    openPort();
    EXPECT_EQ(port.configure(4, "9600,n,8,1").value().number, Port::kAlreadyOpen);
    EXPECT_EQ(port.open().value().number, Port::kAlreadyOpen);
    EXPECT_EQ(port.portNumber(), 7);
}

} // namespace
} // namespace tambrix
