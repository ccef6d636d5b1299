#include "tests/link/checks.h"

#include <functional>
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

TEST(LimitSwitch, ReadsWhatTheResolverShowsOrMinus9999)
{
    SwitchRig rig; // the machine stands: the registers are set anew for every byte
    rig.line.setTap([&rig](const WireByte&) {
        rig.board.pokeWord(kPos, 300);
        rig.board.pokeWord(kRpm, 65535);
    });
    EXPECT_EQ(rig.link.PLSPos(), "300");
    EXPECT_EQ(rig.link.PLSRpm(), "65535");
    rig.line.unplug();
    EXPECT_EQ(rig.link.PLSPos(), "-9999");
    EXPECT_FALSE(rig.link.SingleSetpoint(1, 10, 20, false));
    EXPECT_EQ(rig.person.boxes.size(), 1u); // the link's own
}

TEST(LimitSwitch, AChannelIsClearedProgrammedAndPolledUntilItIsStored)
{
    SwitchRig rig;
    rig.board.limitSwitch().busyAnswers = 1;
    EXPECT_TRUE(rig.link.SingleSetpoint(3, 359, 258, true));
    EXPECT_EQ(rig.trace, std::string(kReadScale) + // the scale factor is what clears it
                             " FF <55 1B <55 03 <55 00 <55 00 <55 68 <55 01 <55 00 <55" + kBusy +
                             kReady + " FF <55 1B <55 03 <55 67 <55 01 <55 02 <55 01 <55 01 <55" +
                             kBusy + kReady);
    EXPECT_TRUE(rig.channel(3).used);
    EXPECT_EQ(rig.channel(3).a, 359);
    EXPECT_EQ(rig.channel(3).b, 258);
    rig.trace.clear();
    EXPECT_TRUE(rig.link.ClearPLSChan(3));
    EXPECT_EQ(rig.trace, std::string("FF <55 1B <55 03 <55 00 <55 00 <55 00 <55 00 <55 00 <55") +
                             kBusy + kReady);
    EXPECT_FALSE(rig.channel(3).used);
}

TEST(LimitSwitch, WhatDoesNotFitIsRefusedAndNotProgrammed)
{
    struct Case
    {
        std::function<bool(RSComm&)> program;
        const char* title;
        const char* text;
    };
    const auto setpoint = [](std::int16_t on, std::int16_t off) {
        return [=](RSComm& link) { return link.SingleSetpoint(1, on, off, true); };
    };
    const auto train = [](std::int16_t on, std::int16_t off, std::int16_t start) {
        return [=](RSComm& link) { return link.PulseTrain(1, on, off, start); };
    };
    const auto download = [](std::int16_t lastEntry, std::int16_t scale) {
        return [=](RSComm& link) {
            PLSConfig config = countingConfig();
            config[23] = lastEntry;
            return link.PLSConfigDownload(config, scale);
        };
    };
    const char* const single = "PLS Single Setpoint";
    const char* const pulses = "PLS Pulse Train";
    const char* const config = "PLS Download";
    const Case cases[] = {
        {setpoint(1020, 10), single, "Setpoint setting 1020 is greater than scale factor."},
        {setpoint(1400, 1500), single, "Setpoint setting 1400 is greater than scale factor."},
        {setpoint(10, 1020), single, "Setpoint setting 1020 is greater than scale factor."},
        {setpoint(-1, 10), single, "Setpoint setting -1 is less than 0."},
        {train(0, 10, 0), pulses, "ON Division and OFF Division Must be Greater Than 0."},
        {train(10, 0, 0), pulses, "ON Division and OFF Division Must be Greater Than 0."},
        {train(7, 11, 0), pulses, "ON Division Plus OFF Division\r\nMust be a Multiple of 1020"},
        {train(256, 254, 0), pulses, "ON Division or OFF Division Must be Less Than 255."},
        {train(10, 10, 1020), pulses, "Start Position Must Not Be Greater Than 1019."},
        {[](RSComm& link) { return link.SetPLSOffset(1021); }, "Set PLS Offset",
         "Desired Position cannot be greater than Scale Factor of 1020"},
        {download(256, 720), config, "Configuration entry 23 must be between 0 and 255."},
        {download(-1, 720), config, "Configuration entry 23 must be between 0 and 255."},
        {download(255, -1), config, "The scale factor must be between 0 and 65535."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        SwitchRig rig;
        rig.board.pokeWord(kScale, 1020);
        EXPECT_FALSE(c.program(rig.link));
        ASSERT_EQ(rig.person.boxes.size(), 1u);
        EXPECT_EQ(rig.person.boxes[0].title, c.title);
        const std::string& text = rig.person.boxes[0].text;
        EXPECT_TRUE(text.starts_with(c.text)) << text;
        EXPECT_TRUE(text.ends_with("rogrammed.")) << text;
        EXPECT_TRUE(rig.board.limitSwitch().channels.empty());
        EXPECT_EQ(rig.board.limitSwitch().configuration[0], 0);
        EXPECT_EQ(rig.board.peekWord(kOffset), 0);
    }
}

TEST(LimitSwitch, APulseTrainIsProgrammedOrReported)
{
    SwitchRig rig;
    rig.board.pokeWord(kScale, 1020);
    EXPECT_TRUE(rig.link.PulseTrain(5, 255, 255, 1019));
    EXPECT_TRUE(rig.link.PulseTrain(6, 10, 20, 0));
    EXPECT_TRUE(rig.channel(5).train);
    EXPECT_EQ(rig.channel(5).a, 1019);
    EXPECT_EQ(rig.channel(6).b, 20 * 256 + 10);

    constexpr std::size_t kFirstDataByte = 4 + 2; // after the scale factor and the command
    rig.line.clearFaults();
    rig.line.setFault(kFirstDataByte, {LineFault::Kind::ChangeReply, 1, {}});
    EXPECT_FALSE(rig.link.PulseTrain(5, 10, 10, 0));
    expectOnlyBox(rig.person, {BoxIcon::Information, BoxButtons::Ok, "PLS Pulse Train",
                               "Error Encountered while Programming Pulse Train.\r\n\r\n"
                               "PLS Channel will not be Programmed."});
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
    for (const OperatorBox& box : rig.person.boxes)
        expectBox(box,
                  {BoxIcon::Critical, BoxButtons::RetryCancel, "WARNING - Communication Error!",
                   "Cannot Determine PLS READY Mode Within Target Board."});
    EXPECT_TRUE(rig.link.CommError);
}

TEST(LimitSwitch, RecallBringsStateAndPositionWithinAnyScale)
{
    SwitchRig rig;
    rig.link.SingleSetpoint(9, 258, 300, false);
    EXPECT_EQ(rig.line.exchanges(), 4u + 2 + 6 + 3); // ClearChan false clears nothing
    rig.trace.clear();
    EXPECT_TRUE(rig.link.RecallChannel(9));
    EXPECT_EQ(rig.trace, "FF <55 09 <55 09 <55 55 <01 55 <02 55 <01");
    EXPECT_EQ(rig.link.ChannelRecallState(), 1);
    EXPECT_EQ(rig.link.ChannelRecallPos(), 258);
    EXPECT_TRUE(rig.link.RecallChannel(8));
    EXPECT_EQ(rig.link.ChannelRecallState(), 0);

    constexpr std::uint16_t kHighest = 16 * 256 + 255;
    rig.board.limitSwitch().channels[2] = {false, true, kHighest, 0};
    EXPECT_TRUE(rig.link.RecallChannel(2));
    rig.board.limitSwitch().channels[3] = {false, true, 7, 0};
    rig.line.clearFaults();
    rig.line.setFault(3, {LineFault::Kind::ChangeReply, 1 ^ 2, {}}); // the state reads as 2
    EXPECT_FALSE(rig.link.RecallChannel(3));
    EXPECT_EQ(rig.link.ChannelRecallPos(), 7); // and its position is taken all the same
    EXPECT_TRUE(rig.link.RecallChannel(2));
    rig.board.limitSwitch().channels[2] = {false, true, kHighest + 1, 0};
    EXPECT_FALSE(rig.link.RecallChannel(2));
    EXPECT_EQ(rig.link.ChannelRecallState(), 2);
    EXPECT_EQ(rig.link.ChannelRecallPos(), kHighest); // the last valid one stays
    EXPECT_TRUE(rig.link.RecallChannel(9));
    rig.line.unplug();
    EXPECT_FALSE(rig.link.RecallChannel(9));
    EXPECT_EQ(rig.link.ChannelRecallState(), 2);
}

TEST(LimitSwitch, TheOffsetMakesTheWantedPositionTheCurrentOne)
{
    const std::uint16_t cases[][4] = {{300, 100, 50, 350}, {0, 100, 200, 260}, {0, 100, 360, 100}};
    for (const auto& [offset, position, wanted, written] : cases) {
        SwitchRig rig;
        rig.board.pokeWord(kOffset, offset);
        rig.line.setTap(
            [&rig, place = position](const WireByte&) { rig.board.pokeWord(kPos, place); });
        EXPECT_TRUE(rig.link.SetPLSOffset(static_cast<std::int16_t>(wanted))) << wanted;
        EXPECT_EQ(rig.board.peekWord(kOffset), written) << wanted;
    }
}

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
    rig.line.clearFaults();
    rig.line.setFault(10, {LineFault::Kind::Unplug, 0, {}}); // in the midst of the upload
    rig.link.PLSConfigUpload();
    ASSERT_EQ(rig.person.boxes.size(), 2u); // the link's own, and
    expectBox(rig.person.boxes[1], {BoxIcon::Warning, BoxButtons::Ok, "PLS Upload",
                                    "Not able to Upload Configuration from PLS."});
}

// Every fault at every byte of a programming: true is only said of what the switch has stored.
TEST(LimitSwitch, EveryFaultAtEveryByteEndsInATrueResult)
{
    const auto program = [](SwitchRig& rig) {
        const std::string scale = rig.link.PLSScaleFactor();
        EXPECT_TRUE(scale == "360" || scale == "-9999") << scale;
        return rig.link.SingleSetpoint(4, 10, 359, false);
    };
    SwitchRig clean;
    EXPECT_TRUE(program(clean));
    sweepFaults(clean.line.exchanges(), [&](std::size_t k, const NamedFault& fault) {
        if (fault.bringsWrongByte() && k < 4)
            return; // a changed or doubled byte of the scale factor shows no sign of it
        SwitchRig rig;
        rig.clock.setLimit(60s);
        rig.line.setFault(k, fault.fault);
        const bool ok = program(rig);
        EXPECT_TRUE(!ok || (rig.channel(4).used && rig.channel(4).b == 359));
        startAfresh(rig);
        EXPECT_TRUE(rig.link.SingleSetpoint(4, 11, 21, false));
        EXPECT_EQ(rig.channel(4).a, 11);
    });
}
