#include "platform/connection.h"
#include "platform/tcp_port.h"
#include "tests/support/link_rig.h"

#include <QCoreApplication>
#include <QTcpServer>

#include <atomic>
#include <functional>
#include <thread>

using namespace tambrix;

namespace {

constexpr int kLongEnough = 10000; // ms; a test that waits so long has failed

/// A serial server for one connection, in a thread of its own.
class Peer
{
public:
    explicit Peer(std::function<void(QTcpSocket&)> serve)
        : m_thread([this, act = std::move(serve)] { run(act); })
    {
        m_port.wait(0);
    }
    ~Peer()
    {
        stop = true;
        m_thread.join();
    }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    quint16 port() const { return m_port; }

    std::atomic<bool> stop = false;

private:
    void run(const std::function<void(QTcpSocket&)>& serve)
    {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        m_port = server.serverPort();
        m_port.notify_all();
        while (!stop && !server.waitForNewConnection(20)) {
        }
        if (stop)
            return;
        const std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
        serve(*socket);
    }

    std::atomic<quint16> m_port = 0;
    std::thread m_thread;
};

/// Answers as the board does, each byte after `delay` ms, and hangs up after `bytes` of them.
std::function<void(QTcpSocket&)> board(int bytes, int delay = 0)
{
    return [=](QTcpSocket& socket) {
        SimulatedBoard controller;
        controller.poke(1298, 0xD2);
        controller.poke(1299, 0x04);
        for (int i = 0; i < bytes; ++i) {
            if (socket.bytesAvailable() == 0 && !socket.waitForReadyRead(kLongEnough))
                return;
            char byte = 0;
            socket.read(&byte, 1);
            if (delay > 0)
                socket.waitForReadyRead(delay); // the PC sends nothing before the answer
            const auto answer =
                controller.receive(static_cast<std::uint8_t>(byte), SimTime::zero());
            const char reply = static_cast<char>(answer.value_or(0));
            socket.write(&reply, 1);
            socket.flush();
        }
    };
}

struct TcpRig
{
    ScratchFolder folder;
    VirtualClock clock; // a connection that is lost is waited for in no time
    TcpPort port{clock};
    ScriptedOperator person;
    RSComm link{folder.path(), clock, person};

    std::optional<PortFault> open(quint16 number)
    {
        port.setServer("127.0.0.1", number);
        return port.open();
    }
};

} // namespace

TEST(ConnectionTest, IsReadFromTextAndKept)
{
    const std::pair<const char*, const char*> cases[] = {
        // what is kept; none: refused
        {"", ""},
        {" /dev/ttyUSB0 ", "/dev/ttyUSB0"},
        {"COM12", "COM12"},
        {"tcp://press4:4001", "tcp://press4:4001"},
        {"TCP://10.0.0.7:65535", "tcp://10.0.0.7:65535"},
        {"tcp://[fe80::1]:4001", "tcp://[fe80::1]:4001"},
        {"tcp://press4", nullptr},
        {"tcp://:4001", nullptr},
        {"tcp://press4:0", nullptr},
        {"tcp://press4:65536", nullptr},
        {"tcp://press4:4001/line", nullptr},
        {"tcp://me@press4:4001", nullptr},
        {"tcp://press 4:4001", nullptr},
    };
    const ScratchFolder folder;
    const QString file =
        QString::fromStdString((folder.path() / "new" / "Connection.cfg").string());
    EXPECT_EQ(readConnection(file), Connection{});
    for (const auto& [text, kept] : cases) {
        SCOPED_TRACE(text);
        const auto connection = connectionFromText(text);
        ASSERT_EQ(connection.has_value(), kept != nullptr);
        if (!connection)
            continue;
        EXPECT_EQ(connectionText(*connection), kept);
        EXPECT_FALSE(writeConnection(file, *connection));
        EXPECT_EQ(readConnection(file), *connection);
    }
    EXPECT_TRUE(writeConnection(file + "/below a file", {}));
}

TEST(TcpPortTest, TalksToABoardThatIsSlow)
{
    for (const int delay : {0, 15}) {
        Peer peer(board(1000, delay));
        TcpRig rig;
        rig.port.setServer("localhost", peer.port());
        rig.link.OpenRSComm(rig.port);
        ASSERT_TRUE(rig.link.OnlineMode);
        EXPECT_EQ(rig.link.RSRead("W1298"), "1234");
        rig.link.RSWrite("B692", "150");
        EXPECT_EQ(rig.link.RSRead("B692"), "150");
        rig.link.CloseRSComm();
        EXPECT_TRUE(rig.person.boxes.empty());
    }
}

TEST(TcpPortTest, SaysWhyItCannotConnect)
{
    TcpRig rig;
    quint16 number = 0;
    {
        Peer peer([](QTcpSocket& socket) {
            socket.write("Port already in use\r\n");
            socket.disconnectFromHost();
        });
        number = peer.port();
        const auto fault = rig.open(number);
        ASSERT_TRUE(fault);
        EXPECT_NE(fault->description.find("closed the connection"), std::string::npos);
    }
    EXPECT_FALSE(rig.port.isOpen());
    const auto fault = rig.open(number); // nobody listens there any more
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->source, "tcp://127.0.0.1:" + std::to_string(number));
    EXPECT_NE(fault->description.find("refuses"), std::string::npos);
    EXPECT_FALSE(rig.port.isOpen());
}

TEST(TcpPortTest, AServerThatHangsUpInAFrameIsASilentBoard)
{
    Peer peer(board(1 + 2 + 1)); // opening, read mode, half a frame
    TcpRig rig;
    rig.port.setServer("127.0.0.1", peer.port());
    rig.link.OpenRSComm(rig.port);
    ASSERT_TRUE(rig.link.OnlineMode);
    EXPECT_EQ(rig.link.RSRead("W1298"), "0");
    EXPECT_TRUE(rig.link.CommError);
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].title, "WARNING - Communication Error!");
    EXPECT_TRUE(rig.port.isOpen());
    rig.link.CloseRSComm();
    EXPECT_FALSE(rig.port.isOpen());
}

TEST(TcpPortTest, AFloodOrATrickleCostsNoMemoryAndNoHang)
{
    const std::pair<int, int> cases[] = {{4096, 0}, {1, 2}}; // bytes at a time, ms between them
    for (const auto& [bytes, pause] : cases) {
        Peer* server = nullptr;
        Peer peer([&server, block = QByteArray(bytes, 'U'), wait = pause](QTcpSocket& socket) {
            while (!server->stop && socket.state() == QAbstractSocket::ConnectedState) {
                socket.write(block);
                socket.waitForBytesWritten(20);
                socket.waitForReadyRead(wait);
            }
        });
        server = &peer;
        TcpRig rig;
        ASSERT_FALSE(rig.open(peer.port()));
        for (int i = 0; i < 20; ++i) {
            ASSERT_TRUE(rig.port.waitForInput(std::chrono::seconds(5)));
            QCoreApplication::processEvents();
            EXPECT_LE(rig.port.bytesWaiting(), 4096u);
            rig.port.discardInput();
            rig.port.writeByte(0xFF);
        }
        rig.link.OpenRSComm(rig.port); // every answer is wrong, or comes too early
        rig.link.RSRead("W1298");
        rig.link.CloseRSComm();
    }
}
