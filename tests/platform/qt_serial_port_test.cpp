#include "platform/qt_serial_port.h"
#include "platform/serial_device.h"
#include "platform/steady_clock.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <gtest/gtest.h>

using namespace tambrix;
using namespace std::chrono_literals;

TEST(SerialDevice, IsNamedByItsNumber)
{
#ifdef Q_OS_WIN
    EXPECT_EQ(serialDeviceName(3), "COM3");
#else
    EXPECT_EQ(serialDeviceName(1), "/dev/ttyS0");
    EXPECT_EQ(serialDeviceName(12), "/dev/ttyS11");
#endif
}

TEST(QtSerialPortTest, ReportsAMissingDevice)
{
    SteadyClock clock;
    QtSerialPort port(clock, "no-such-serial-device");
    EXPECT_FALSE(port.configure(1, "9600,n,8,1"));
    const auto fault = port.open();
    ASSERT_TRUE(fault);
    EXPECT_NE(fault->number, 0);
    EXPECT_NE(fault->source.find("no-such-serial-device"), std::string::npos);
    EXPECT_FALSE(fault->description.empty());
    EXPECT_FALSE(port.isOpen());
}

#ifdef TAMBRIX_BOARD
namespace {

/// The simulated controller on a pseudo-terminal, in a process of its own; every one stands under
/// the same name.
struct BoardProcess
{
    QProcess process;
    QString device = QDir::temp().filePath(
        QStringLiteral("tambrix-board-%1").arg(QCoreApplication::applicationPid()));

    BoardProcess()
    {
        process.start(TAMBRIX_BOARD, {"--unpaced", "--link", device});
        if (!process.waitForStarted() || !process.waitForReadyRead())
            device.clear();
    }
    ~BoardProcess() { unplug(); }
    BoardProcess(const BoardProcess&) = delete;
    BoardProcess& operator=(const BoardProcess&) = delete;

    void unplug()
    {
        process.kill();
        process.waitForFinished();
        QFile::remove(device);
    }
};

struct ShiftedClock : SteadyClock
{
    Duration ahead{0};
    Duration now() const override { return SteadyClock::now() + ahead; }
};

} // namespace

TEST(QtSerialPortTest, TalksOverATruePortUntilItVanishes)
{
    BoardProcess board;
    ASSERT_FALSE(board.device.isEmpty());
    ShiftedClock clock;
    QtSerialPort port(clock, board.device);
    ASSERT_FALSE(port.configure(1, "19200,n,8,1"));
    ASSERT_FALSE(port.open());
    for (int i = 0; i < 50; ++i) {
        port.writeByte(0xFF);
        ASSERT_TRUE(port.waitForInput(5s));
        ASSERT_EQ(port.readByte(), 0x55);
    }
    EXPECT_EQ(port.bytesWaiting(), 0u);
    for (const Duration later : {0ms, 1000ms}) { // at once, and when more may have come
        port.writeByte(0xFF);
        ASSERT_TRUE(port.waitForInput(5s));
        clock.ahead += later;
        port.discardInput();
        EXPECT_EQ(port.bytesWaiting(), 0u);
    }

    QtSerialPort second(clock, board.device);
    ASSERT_FALSE(second.configure(1, "19200,n,8,1"));
    const auto refused = second.open();
    ASSERT_TRUE(refused);
    EXPECT_TRUE(refused->description.starts_with("Another program has the port open"));

    board.unplug();
    for (int i = 0; i < 3; ++i) { // with and without the event loop between
        port.writeByte(0xFF);
        const Duration start = clock.now();
        EXPECT_FALSE(port.waitForInput(30ms));
        EXPECT_GE(clock.now() - start, 30ms); // silent, but never spinning
        QCoreApplication::processEvents();
        EXPECT_TRUE(port.isOpen());
        port.discardInput();
    }
    port.close();
    EXPECT_TRUE(port.open().has_value());
    const BoardProcess again; // the cable is back: the same port serves it
    ASSERT_FALSE(port.open());
    port.writeByte(0xFF);
    EXPECT_TRUE(port.waitForInput(5s));
}
#endif
