#include "tests/support/link_rig.h"

#include <algorithm>
#include <numeric>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

constexpr int kScale = 186; // the resolver's registers are the switch's parameters
constexpr int kOffset = 188;
constexpr int kPos = 180;
constexpr int kRpm = 170;

constexpr const char* kReadScale = "FF <55 18 <55 55 <68 55 <01"; // 360
constexpr const char* kReady = " 38 <55 55 <00 55 <55";
constexpr const char* kBusy = " 38 <55 55 <55";

struct SwitchRig : LinkRig
{
    SwitchRig()
    {
        board.press().stop();
        board.pokeWord(kScale, 360);
        board.pokeWord(kOffset, 0);
        board.limitSwitch().busyAnswers = 0;
        openQuietly();
    }

    const LimitSwitchModel::Channel& channel(std::uint8_t number)
    {
        return board.limitSwitch().channels[number];
    }

    void expectOneBox(const std::string& title, const std::string& text) const
    {
        ASSERT_EQ(person.boxes.size(), 1u);
        EXPECT_EQ(person.boxes[0].icon, BoxIcon::Warning);
        EXPECT_EQ(person.boxes[0].title, title);
        EXPECT_EQ(person.boxes[0].text, text);
    }
};

struct Train
{
    const char* name;
    std::int16_t on, off, start;
    int scale;
    const char* reason; ///< none: it is programmed
};

class PulseTrains : public testing::TestWithParam<Train>
{
};

struct Offset
{
    const char* name;
    std::uint16_t offset, position;
    std::int16_t wanted;
    int written; ///< -1: refused
};

class Offsets : public testing::TestWithParam<Offset>
{
};

struct Setpoint
{
    const char* name;
    std::int16_t on, off;
    const char* refused; ///< the setpoint that the box names
};

class Setpoints : public testing::TestWithParam<Setpoint>
{
};

PLSConfig countingConfig()
{
    PLSConfig config{};
    std::iota(config.begin(), config.end(), std::int16_t{232}); // ends with 255
    return config;
}

} // namespace

TEST(LimitSwitch, ReadsItsParametersByteByByte)
{
    SwitchRig rig;
    rig.board.pokeWord(kOffset, 515);
    EXPECT_EQ(rig.link.PLSScaleFactor(), "360");
    EXPECT_EQ(rig.link.PLSOffset(), "515");
    EXPECT_EQ(rig.trace, std::string(kReadScale) + " FF <55 28 <55 55 <03 55 <02");
    rig.trace.clear();
    rig.link.RSRead("B8159"); // the next register access repeats its handshake
    EXPECT_EQ(rig.trace, "FF <55 01 <55 1F <1F DF <0E");
}

TEST(LimitSwitch, ReadsWhatTheResolverShows)
{
    SwitchRig rig; // the machine stands: the registers are set anew for every byte
    rig.line.setTap([&rig](const WireByte&) {
        rig.board.pokeWord(kPos, 300);
        rig.board.pokeWord(kRpm, 65535);
    });
    EXPECT_EQ(rig.link.PLSPos(), "300");
    EXPECT_EQ(rig.link.PLSRpm(), "65535");
}

TEST(LimitSwitch, AReadThatFailsIsMinus9999)
{
    SwitchRig rig;
    rig.line.unplug();
    EXPECT_EQ(rig.link.PLSPos(), "-9999");
    EXPECT_EQ(rig.person.boxes.size(), 1u); // the link's own
    EXPECT_EQ(rig.link.PLSPos(), "-9999");
    EXPECT_FALSE(rig.link.SingleSetpoint(1, 10, 20, false));
    EXPECT_FALSE(rig.link.PulseTrain(1, 10, 10, 0));
    EXPECT_FALSE(rig.link.SetPLSOffset(0));
    EXPECT_EQ(rig.person.boxes.size(), 1u);
}

TEST(LimitSwitch, ASetpointIsProgrammedAndPolledUntilItIsStored)
{
    SwitchRig rig;
    rig.board.limitSwitch().busyAnswers = 2;
    EXPECT_TRUE(rig.link.SingleSetpoint(3, 359, 258, false));
    EXPECT_EQ(rig.trace, std::string(kReadScale) +
                             " FF <55 1B <55 03 <55 67 <55 01 <55 02 <55 01 <55 01 <55" + kBusy +
                             kBusy + kReady);
    EXPECT_TRUE(rig.channel(3).used);
    EXPECT_EQ(rig.channel(3).a, 359);
    EXPECT_EQ(rig.channel(3).b, 258);
}

TEST(LimitSwitch, ClearingFirstWritesTheScaleFactor)
{
    SwitchRig rig;
    EXPECT_TRUE(rig.link.SingleSetpoint(3, 1, 2, true));
    EXPECT_EQ(rig.trace, std::string(kReadScale) +
                             " FF <55 1B <55 03 <55 00 <55 00 <55 68 <55 01 <55 00 <55" + kReady +
                             " FF <55 1B <55 03 <55 01 <55 00 <55 02 <55 00 <55 01 <55" + kReady);
    rig.trace.clear();
    EXPECT_TRUE(rig.link.ClearPLSChan(3));
    EXPECT_EQ(rig.trace,
              std::string("FF <55 1B <55 03 <55 00 <55 00 <55 00 <55 00 <55 00 <55") + kReady);
    EXPECT_FALSE(rig.channel(3).used);
}

TEST_P(Setpoints, AreRefusedBeyondTheScale)
{
    SwitchRig rig;
    const bool ok = rig.link.SingleSetpoint(1, GetParam().on, GetParam().off, true);
    EXPECT_EQ(ok, GetParam().refused == nullptr);
    EXPECT_EQ(rig.board.limitSwitch().channels.count(1), ok ? 1u : 0u);
    if (!ok)
        rig.expectOneBox("PLS Single Setpoint", std::string("Setpoint setting ") +
                                                    GetParam().refused +
                                                    " is greater than scale factor.\r\n\r\n"
                                                    "Channel can not be programmed.");
}

INSTANTIATE_TEST_SUITE_P(Table, Setpoints,
                         testing::Values(Setpoint{"BothHighest", 359, 359, nullptr},
                                         Setpoint{"OnAtScale", 360, 10, "360"},
                                         Setpoint{"OffAtScale", 10, 360, "360"},
                                         Setpoint{"OnIsNamedFirst", 400, 500, "400"}),
                         [](const auto& row) { return row.param.name; });

TEST_P(PulseTrains, AreProgrammedOrRefusedWithTheReason)
{
    const Train& train = GetParam();
    SwitchRig rig;
    rig.board.pokeWord(kScale, static_cast<std::uint16_t>(train.scale));
    const bool ok = rig.link.PulseTrain(5, train.on, train.off, train.start);
    EXPECT_EQ(ok, train.reason == nullptr);
    EXPECT_EQ(rig.board.limitSwitch().channels.count(5), ok ? 1u : 0u);
    if (ok) {
        EXPECT_TRUE(rig.channel(5).train);
        EXPECT_EQ(rig.channel(5).a, train.start);
        EXPECT_EQ(rig.channel(5).b, train.off * 256 + train.on);
    } else {
        rig.expectOneBox("PLS Pulse Train",
                         std::string(train.reason) + "\r\n\r\nPLS Channel will not be Programmed.");
    }
}

constexpr const char* kZero = "ON Division and OFF Division Must be Greater Than 0.";
constexpr const char* kMultiple = "ON Division Plus OFF Division\r\nMust be a Multiple of 360";

INSTANTIATE_TEST_SUITE_P(
    Table, PulseTrains,
    testing::Values(
        Train{"TenTen", 10, 10, 0, 360, nullptr}, Train{"TenTwenty", 10, 20, 359, 360, nullptr},
        Train{"SevenTen", 7, 10, 0, 360, kMultiple}, Train{"NoOn", 0, 10, 0, 360, kZero},
        Train{"NoOff", 10, 0, 0, 360, kZero}, Train{"SumOfNothing", -5, 5, 0, 360, kZero},
        Train{"Longest", 255, 255, 0, 1020, nullptr},
        Train{"TooLong", 256, 254, 0, 1020, "ON Division or OFF Division Must be Less Than 255."},
        Train{"StartAtScale", 10, 10, 360, 360, "Start Position Must Not Be Greater Than 359."}),
    [](const auto& row) { return row.param.name; });

TEST(LimitSwitch, APulseTrainThatIsNotStoredIsReported)
{
    SwitchRig rig;
    constexpr std::size_t kFirstDataByte = 4 + 2; // after the scale factor and the command
    rig.line.setFault(kFirstDataByte, {LineFault::Kind::ChangeReply, 1, {}});
    EXPECT_FALSE(rig.link.PulseTrain(5, 10, 10, 0));
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].icon, BoxIcon::Information);
    EXPECT_EQ(rig.person.boxes[0].text, "Error Encountered while Programming Pulse Train.\r\n\r\n"
                                        "PLS Channel will not be Programmed.");
    EXPECT_EQ(rig.link.RSRead("B8159"), "14"); // and the link is in step again
}

TEST(LimitSwitch, ASwitchThatStaysBusyIsTheOperatorsDecision)
{
    SwitchRig rig;
    rig.board.limitSwitch().busyAnswers = 1'000'000;
    rig.person.answers = {BoxAnswer::Retry, BoxAnswer::Cancel};
    const Duration start = rig.clock.now();
    EXPECT_FALSE(rig.link.ClearPLSChan(1));
    const Duration took = rig.clock.now() - start;
    EXPECT_GE(took, 5s); // 3 s, then 2 s more
    EXPECT_LT(took, 5100ms);
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    for (const MessageBox& box : rig.person.boxes) {
        EXPECT_EQ(box.buttons, BoxButtons::RetryCancel);
        EXPECT_EQ(box.title, "WARNING - Communication Error!");
        EXPECT_EQ(box.text, "Cannot Determine PLS READY Mode Within Target Board.");
    }
    EXPECT_TRUE(rig.link.CommError);
}

TEST(LimitSwitch, RecallBringsStateAndPosition)
{
    SwitchRig rig;
    rig.link.SingleSetpoint(9, 258, 300, false);
    rig.trace.clear();
    EXPECT_TRUE(rig.link.RecallChannel(9));
    EXPECT_EQ(rig.trace, "FF <55 09 <55 09 <55 55 <01 55 <02 55 <01");
    EXPECT_EQ(rig.link.ChannelRecallState(), 1);
    EXPECT_EQ(rig.link.ChannelRecallPos(), 258);
    EXPECT_TRUE(rig.link.RecallChannel(8));
    EXPECT_EQ(rig.link.ChannelRecallState(), 0);
}

TEST(LimitSwitch, ARecallBeyondAnyScaleIsInvalid)
{
    SwitchRig rig;
    for (const auto& [position, state] : {std::pair{16 * 256 + 255, 1}, std::pair{17 * 256, 2}}) {
        rig.board.limitSwitch().channels[2] = {false, true, static_cast<std::uint16_t>(position),
                                               0};
        EXPECT_EQ(rig.link.RecallChannel(2), state == 1);
        EXPECT_EQ(rig.link.ChannelRecallState(), state);
        EXPECT_EQ(rig.link.ChannelRecallPos(), 16 * 256 + 255); // the last valid one stays
    }
    rig.line.unplug();
    EXPECT_FALSE(rig.link.RecallChannel(2));
    EXPECT_EQ(rig.link.ChannelRecallState(), 2);
}

TEST_P(Offsets, MakeTheWantedPositionTheCurrentOne)
{
    SwitchRig rig;
    rig.board.pokeWord(kOffset, GetParam().offset);
    rig.line.setTap([&](const WireByte&) { rig.board.pokeWord(kPos, GetParam().position); });
    const bool ok = rig.link.SetPLSOffset(GetParam().wanted);
    EXPECT_EQ(ok, GetParam().written >= 0);
    EXPECT_EQ(rig.board.peekWord(kOffset), ok ? GetParam().written : GetParam().offset);
    if (!ok)
        rig.expectOneBox("Set PLS Offset",
                         "Desired Position cannot be greater than Scale Factor of 360\r\n"
                         "PLS Offset will not be Programmed.");
}

INSTANTIATE_TEST_SUITE_P(Table, Offsets,
                         testing::Values(Offset{"FromNothing", 0, 100, 0, 100},
                                         Offset{"AroundTheTurn", 300, 100, 50, 350},
                                         Offset{"Backwards", 0, 100, 200, 260},
                                         Offset{"AtScale", 0, 100, 360, 100},
                                         Offset{"LowByteIsAttention", 0, 300, 45, 255},
                                         Offset{"BeyondScale", 7, 100, 361, -1}),
                         [](const auto& row) { return row.param.name; });

TEST(LimitSwitch, AConfigurationGoesDownAndComesBack)
{
    SwitchRig rig;
    EXPECT_TRUE(rig.link.PLSConfigDownload(countingConfig(), 720));
    EXPECT_TRUE(rig.trace.starts_with(
        std::string("FF <55 3B <55 E8 <55 E9 <55 EA <55 EB <55 EC <55 ED <55") + kReady +
        " FF <55 4B <55 EE <55"));
    EXPECT_TRUE(rig.trace.ends_with(std::string(" FF <55 1A <55 D0 <55 02 <55") + kReady));
    EXPECT_EQ(rig.board.peekWord(kScale), 720);
    EXPECT_EQ(rig.link.PLSConfigUpload(), countingConfig());
    EXPECT_TRUE(rig.person.boxes.empty());
}

TEST(LimitSwitch, AnEntryThatIsNoByteIsRefusedBeforeAnythingIsSent)
{
    for (const std::int16_t wrong : {std::int16_t{256}, std::int16_t{-1}}) {
        SwitchRig rig;
        PLSConfig config = countingConfig();
        config[23] = wrong;
        EXPECT_FALSE(rig.link.PLSConfigDownload(config, 360));
        EXPECT_EQ(rig.trace, "");
        rig.expectOneBox("PLS Download", "Configuration entry 23 must be between 0 and 255.\r\n\r\n"
                                         "PLS Configuration will not be Programmed.");
    }
}

TEST(LimitSwitch, AnUploadThatFailsIsReported)
{
    SwitchRig rig;
    rig.line.setFault(10, {LineFault::Kind::Unplug, 0, {}});
    rig.link.PLSConfigUpload();
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    EXPECT_EQ(rig.person.boxes[1].title, "PLS Upload");
    EXPECT_EQ(rig.person.boxes[1].text, "Not able to Upload Configuration from PLS.");
}

// Every fault at every byte of a programming: true is only said of what the switch has stored.
TEST(LimitSwitch, EveryFaultAtEveryByteEndsInATrueResult)
{
    using Kind = LineFault::Kind;
    for (const Kind kind : {Kind::LoseRequest, Kind::LoseReply, Kind::DelayReply, Kind::Unplug}) {
        for (std::size_t k = 0; k < 15; ++k) {
            SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " at " + std::to_string(k));
            SwitchRig rig;
            rig.line.setFault(k, {kind, 0, 1500ms});
            const bool ok = rig.link.SingleSetpoint(4, 10, 20, false);
            EXPECT_TRUE(!ok || rig.channel(4).used);
            EXPECT_LT(rig.clock.now(), 30s);
            rig.line.plugIn();
            rig.line.clearFaults();
            rig.clock.pause(1s);
            rig.open();
            EXPECT_TRUE(rig.link.SingleSetpoint(4, 11, 21, false));
            EXPECT_EQ(rig.channel(4).a, 11);
        }
    }
}
