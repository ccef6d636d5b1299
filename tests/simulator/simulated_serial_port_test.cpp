#include "simulator/inprocess/simulated_serial_port.h"

#include "tests/support/virtual_clock.h"

#include <gtest/gtest.h>

namespace tambrix {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

class SimulatedPort : public testing::Test
{
protected:
    void openPort()
    {
        ASSERT_FALSE(port.configure(3, "9600,n,8,1"));
        ASSERT_FALSE(port.open());
    }

    VirtualClock clock;
    SimulatedBoard board;
    SimulatedLine line{board, 9600};
    SimulatedSerialPort port{line, clock};
};

struct ConfigureCase
{
    int port;
    const char* settings;
    int fault; // 0: none
};

class SimulatedPortSettings : public SimulatedPort,
                              public testing::WithParamInterface<ConfigureCase>
{
};

TEST_P(SimulatedPortSettings, AreTakenOrRefused)
{
    const auto fault = port.configure(GetParam().port, GetParam().settings);
    EXPECT_EQ(fault ? fault->number : 0, GetParam().fault);
    if (fault) {
        EXPECT_FALSE(fault->source.empty());
        EXPECT_FALSE(fault->description.empty());
    } else {
        EXPECT_EQ(port.portNumber(), GetParam().port);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Settings, SimulatedPortSettings,
    testing::Values(ConfigureCase{1, "9600,n,8,1", 0}, ConfigureCase{99, "19200,n,8,1", 0},
                    ConfigureCase{0, "9600,n,8,1", SimulatedSerialPort::kBadPortNumber},
                    ConfigureCase{100, "9600,n,8,1", SimulatedSerialPort::kBadPortNumber},
                    ConfigureCase{1, "4800,n,8,1", SimulatedSerialPort::kBadSettings},
                    ConfigureCase{1, "9600,e,7,1", SimulatedSerialPort::kBadSettings},
                    ConfigureCase{1, "", SimulatedSerialPort::kBadSettings}));

TEST_F(SimulatedPort, WaitEndsWhenTheAnswerArrives)
{
    openPort();
    port.writeByte(0xFF);
    EXPECT_EQ(port.bytesWaiting(), 0U);
    EXPECT_TRUE(port.waitForInput(seconds(1)));
    EXPECT_EQ(clock.now(), 2 * line.byteTime());
    EXPECT_EQ(port.readByte(), 0x55);
    EXPECT_EQ(port.bytesWaiting(), 0U);
}

TEST_F(SimulatedPort, WaitEndsAtItsLimitBeforeALateAnswer)
{
    openPort();
    port.writeByte(0xFF);
    EXPECT_FALSE(port.waitForInput(milliseconds(1)));
    EXPECT_EQ(clock.now(), milliseconds(1));
    EXPECT_TRUE(port.waitForInput(milliseconds(2)));
}

TEST_F(SimulatedPort, WaitReturnsAtOnceWhenAByteWaits)
{
    openPort();
    port.writeByte(0xFF);
    clock.pause(milliseconds(5));
    EXPECT_TRUE(port.waitForInput(seconds(1)));
    EXPECT_EQ(clock.now(), milliseconds(5));
    port.discardInput();
    EXPECT_EQ(port.bytesWaiting(), 0U);
}

TEST_F(SimulatedPort, SpeedOtherThanTheBoardsFindsNoBoard)
{
    ASSERT_FALSE(port.configure(1, "19200,n,8,1"));
    ASSERT_FALSE(port.open());
    port.writeByte(0xFF);
    EXPECT_FALSE(port.waitForInput(seconds(1)));
}

TEST_F(SimulatedPort, MissingDeviceCannotBeOpened)
{
    line.unplug();
    ASSERT_FALSE(port.configure(7, "9600,n,8,1"));
    const auto fault = port.open();
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->number, SimulatedSerialPort::kDeviceMissing);
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
    line.plugIn();
    port.writeByte(0xFF);
    EXPECT_TRUE(port.waitForInput(seconds(1)));
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
    EXPECT_EQ(port.configure(4, "9600,n,8,1").value().number, SimulatedSerialPort::kAlreadyOpen);
    EXPECT_EQ(port.open().value().number, SimulatedSerialPort::kAlreadyOpen);
    EXPECT_EQ(port.portNumber(), 3);
}

} // namespace
} // namespace tambrix
