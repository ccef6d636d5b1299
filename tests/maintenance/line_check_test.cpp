#include "maintenance/line_check.h"

#include "data/line_recorder.h"
#include "tests/support/link_rig.h"

#include <set>
#include <tuple>

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

    void unplug(bool exists, bool permitted, const char* group = "", const char* holder = "")
    {
        line.unplug();
        access = {exists, permitted, group, holder};
    }

    void disturb(std::size_t from, std::size_t to, LineFault::Kind fault, SimTime delay = {})
    {
        for (std::size_t i = from; i < to; ++i)
            line.setFault(i, {fault, 0x10, delay});
    }
};

} // namespace

TEST(LineCheckTest, TellsWhatIsWrongAndPutsTheSpeedBack)
{
    using Fault = LineFault::Kind;
    const std::tuple<Kind, const char*, void (*)(CheckRig&)> cases[] = {
        {Kind::InOrder, "all 40 answers", [](auto&) {}},
        {Kind::WrongSpeed, "19200", [](auto& rig) { rig.line.setBaud(19200); }},
        {Kind::Silent, "Both speeds", [](auto& rig) { rig.board.setPowered(false); }},
        {Kind::Noise, "2 of 40 answers", [](auto& rig) { rig.disturb(3, 5, Fault::ChangeReply); }},
        {Kind::Noise, "1 of 40 answers", [](auto& rig) { rig.disturb(7, 8, Fault::LoseReply); }},
        {Kind::Slow, "latency timer",
         [](auto& rig) { rig.disturb(0, 40, Fault::DelayReply, 16ms); }},
        {Kind::PortMissing, "COM3 is not there", [](auto& rig) { rig.unplug(false, true); }},
        {Kind::NoPermission, "\"dialout\"", [](auto& rig) { rig.unplug(true, false, "dialout"); }},
        {Kind::PortInUse, "in use by modem (process 12)",
         [](auto& rig) { rig.unplug(true, true, "", "modem (process 12)"); }},
        {Kind::NoConnection, "serial server",
         [](auto& rig) {
             rig.unplug(true, true);
             rig.connection = {Connection::Kind::Server, {}, "press4", 4001};
         }},
    };
    for (const auto& [kind, said, arrange] : cases) {
        SCOPED_TRACE(said);
        CheckRig rig;
        arrange(rig);
        const LineFinding finding = rig.check();
        EXPECT_EQ(finding.kind, kind) << finding.what.toStdString();
        EXPECT_TRUE((finding.what + finding.toDo).contains(said))
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
