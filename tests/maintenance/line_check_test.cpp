#include "maintenance/line_check.h"

#include "data/line_recorder.h"
#include "tests/support/link_rig.h"

#include <set>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

using Kind = LineFinding::Kind;

/// A port that sets the PC's speed, so that a board at another speed hears nothing.
class SpeedyPort : public SimulatedSerialPort
{
public:
    SpeedyPort(SimulatedLine& line, Clock& clock) : SimulatedSerialPort(line, clock), m_line(line)
    {
    }
    std::optional<PortFault> configure(int portNumber, std::string_view settings) override
    {
        auto fault = SimulatedSerialPort::configure(portNumber, settings);
        m_line.setPcBaud(speed());
        speeds.insert(speed());
        return fault;
    }

    std::set<int> speeds;

private:
    SimulatedLine& m_line;
};

struct CheckRig
{
    VirtualClock clock;
    SimulatedBoard board;
    SimulatedLine line{board};
    SpeedyPort port{line, clock};
    PortAccess access{true, true, {}, {}};
    Connection connection;
    bool onlyAttention = true;

    CheckRig()
    {
        line.setTap([this](const WireByte& wire) {
            if (wire.direction == WireByte::Direction::ToBoard)
                onlyAttention = onlyAttention && wire.byte == kAttention;
        });
    }

    LineFinding check()
    {
        return checkLine({port, clock, {3, "9600"}, connection, "COM3", [this] { return access; }});
    }

    void faults(std::size_t from, std::size_t to, LineFault fault)
    {
        for (std::size_t i = from; i < to; ++i)
            line.setFault(i, fault);
    }
};

} // namespace

TEST(LineCheckTest, TellsWhatIsWrongAndPutsTheSpeedBack)
{
    const struct
    {
        Kind kind;
        void (*arrange)(CheckRig&);
        const char* said;
    } cases[] = {
        {Kind::InOrder, [](CheckRig&) {}, "all 40 answers"},
        {Kind::WrongSpeed, [](CheckRig& rig) { rig.line.setBaud(19200); }, "19200"},
        {Kind::Silent, [](CheckRig& rig) { rig.board.setPowered(false); }, "Both speeds"},
        {Kind::Noise,
         [](CheckRig& rig) {
             rig.faults(3, 5, {LineFault::Kind::ChangeReply, 0x10});
         },
         "2 of 40 answers"},
        {Kind::Noise, [](CheckRig& rig) { rig.faults(7, 8, {LineFault::Kind::LoseReply}); },
         "1 of 40 answers"},
        {Kind::Slow,
         [](CheckRig& rig) {
             rig.faults(0, 40, {LineFault::Kind::DelayReply, 0, 16ms});
         },
         "latency timer"},
        {Kind::PortMissing,
         [](CheckRig& rig) {
             rig.line.unplug();
             rig.access.exists = false;
         },
         "COM3 is not there"},
        {Kind::NoPermission,
         [](CheckRig& rig) {
             rig.line.unplug();
             rig.access = {true, false, "dialout", {}};
         },
         "\"dialout\""},
        {Kind::PortInUse,
         [](CheckRig& rig) {
             rig.line.unplug();
             rig.access.holder = "modem (process 12)";
         },
         "in use by modem (process 12)"},
        {Kind::NoConnection,
         [](CheckRig& rig) {
             rig.line.unplug();
             rig.connection = {Connection::Kind::Server, {}, "press4", 4001};
         },
         "serial server"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.said);
        CheckRig rig;
        c.arrange(rig);
        const LineFinding finding = rig.check();
        EXPECT_EQ(finding.kind, c.kind) << finding.what.toStdString();
        EXPECT_TRUE((finding.what + finding.toDo).contains(c.said))
            << (finding.what + finding.toDo).toStdString();
        EXPECT_FALSE(finding.toDo.isEmpty());
        EXPECT_FALSE(rig.port.isOpen());
        EXPECT_EQ(rig.port.speed(), 9600);
        EXPECT_TRUE(rig.onlyAttention);
    }
}

TEST(LineCheckTest, LeavesTheSpeedOfASerialServerAlone)
{
    CheckRig rig;
    rig.connection = {Connection::Kind::Server, {}, "press4", 4001};
    rig.board.setPowered(false);
    const LineFinding finding = rig.check();
    EXPECT_EQ(finding.kind, Kind::Silent);
    EXPECT_TRUE(finding.toDo.contains("its speed must be the board's"));
    EXPECT_EQ(rig.port.speeds, std::set<int>{9600});
}

TEST(LineCheckTest, OnLineItReadsThroughTheLink)
{
    for (const Kind kind : {Kind::InOrder, Kind::Noise, Kind::Silent}) {
        LinkRig rig;
        LineRecorder recorder(rig.clock);
        TracedPort traced(rig.port, recorder);
        rig.link.OpenRSComm(traced);
        rig.line.clearFaults();
        rig.trace.clear();
        if (kind == Kind::Noise)
            rig.line.setFault(20, {LineFault::Kind::ChangeReply, 0x01});
        if (kind == Kind::Silent)
            rig.line.setFault(20, {LineFault::Kind::Unplug});
        const LineFinding finding =
            checkOnline(rig.link, rig.clock, 9600, [&] { return recorder.errors(); });
        EXPECT_EQ(finding.kind, kind) << finding.what.toStdString();
        EXPECT_EQ(rig.trace.find("FF <55 02"), std::string::npos); // never write mode
    }
}
