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
    explicit SwitchRig(std::uint16_t scale = 360)
    {
        clock.setLimit(60s);
        board.press().stop();
        board.pokeWord(kScale, scale);
        board.pokeWord(kOffset, 0);
        board.limitSwitch().busyAnswers = 0;
        openQuietly();
    }

    LimitSwitchModel::Channel& channel(std::uint8_t number)
    {
        return board.limitSwitch().channels[number];
    }

    /// The machine stands, so position and speed are set anew for every byte.
    void showResolver(std::uint16_t position, std::uint16_t rpm)
    {
        line.setTap([=, this](const WireByte&) {
            board.pokeWord(kPos, position);
            board.pokeWord(kRpm, rpm);
        });
    }
};

PLSConfig countingConfig(std::int16_t last = 255)
{
    PLSConfig config{};
    std::iota(config.begin(), config.end(), std::int16_t{232});
    config.back() = last;
    return config;
}

} // namespace

TEST(LimitSwitch, ReadsItsParametersByteByByteOrGivesMinus9999)
{
    SwitchRig rig;
    rig.board.pokeWord(kOffset, 515);
    EXPECT_EQ(rig.link.PLSScaleFactor(), "360");
    EXPECT_EQ(rig.link.PLSOffset(), "515");
    rig.link.RSRead("B8159"); // the next register access repeats its handshake
    EXPECT_EQ(rig.trace,
              std::string(kReadScale) + " FF <55 28 <55 55 <03 55 <02 FF <55 01 <55 1F <1F DF <0E");
    SwitchRig moved;
    moved.showResolver(300, 65535);
    EXPECT_EQ(moved.link.PLSPos(), "300");
    EXPECT_EQ(moved.link.PLSRpm(), "65535");
    moved.line.unplug();
    EXPECT_EQ(moved.link.PLSPos(), "-9999");
    EXPECT_FALSE(moved.link.SingleSetpoint(1, 10, 20, false));
    EXPECT_EQ(moved.person.boxes.size(), 1u); // the link's own
}

TEST(LimitSwitch, AChannelIsClearedProgrammedAndPolledUntilItIsStored)
{
    SwitchRig rig;
    rig.board.limitSwitch().busyAnswers = 1;
    const std::string stored = std::string(kBusy) + kReady;
    EXPECT_TRUE(rig.link.SingleSetpoint(3, 359, 258, true));
    const std::string programming =
        " FF <55 1B <55 03 <55 67 <55 01 <55 02 <55 01 <55 01 <55" + stored;
    EXPECT_EQ(rig.trace, std::string(kReadScale) + // the scale factor is what clears it
                             " FF <55 1B <55 03 <55 00 <55 00 <55 68 <55 01 <55 00 <55" + stored +
                             programming);
    EXPECT_TRUE(rig.channel(3).used);
    rig.trace.clear();
    EXPECT_TRUE(rig.link.SingleSetpoint(3, 359, 258, false));
    EXPECT_EQ(rig.trace, kReadScale + programming);
    rig.trace.clear();
    EXPECT_TRUE(rig.link.ClearPLSChan(3));
    EXPECT_EQ(rig.trace, "FF <55 1B <55 03 <55 00 <55 00 <55 00 <55 00 <55 00 <55" + stored);
    EXPECT_FALSE(rig.channel(3).used);
}

TEST(LimitSwitch, WhatDoesNotFitIsRefusedAndNotProgrammed)
{
    const auto setpoint = [](std::int16_t on, std::int16_t off) {
        return [=](RSComm& link) { return link.SingleSetpoint(1, on, off, true); };
    };
    const auto train = [](std::int16_t on, std::int16_t off, std::int16_t start) {
        return [=](RSComm& link) { return link.PulseTrain(1, on, off, start); };
    };
    const auto download = [](std::int16_t lastEntry, std::int16_t scale) {
        return
            [=](RSComm& link) { return link.PLSConfigDownload(countingConfig(lastEntry), scale); };
    };
    // The box: title, a colon, and how its text begins.
    const std::pair<std::function<bool(RSComm&)>, std::string> cases[] = {
        {setpoint(1400, 1500),
         "PLS Single Setpoint: Setpoint setting 1400 is greater than scale factor."},
        {setpoint(10, 1020),
         "PLS Single Setpoint: Setpoint setting 1020 is greater than scale factor."},
        {setpoint(-1, 10), "PLS Single Setpoint: Setpoint setting -1 is less than 0."},
        {train(0, 10, 0), "PLS Pulse Train: ON Division and OFF Division Must be Greater Than 0."},
        {train(10, 0, 0), "PLS Pulse Train: ON Division and OFF Division Must be Greater Than 0."},
        {train(7, 11, 0),
         "PLS Pulse Train: ON Division Plus OFF Division\r\nMust be a Multiple of 1020"},
        {train(256, 254, 0), "PLS Pulse Train: ON Division or OFF Division Must be Less Than 255."},
        {train(10, 10, 1020), "PLS Pulse Train: Start Position Must Not Be Greater Than 1019."},
        {[](RSComm& link) { return link.SetPLSOffset(1021); },
         "Set PLS Offset: Desired Position cannot be greater than Scale Factor of 1020"},
        {download(256, 720), "PLS Download: Configuration entry 23 must be between 0 and 255."},
        {download(255, -1), "PLS Download: The scale factor must be between 0 and 65535."},
    };
    for (const auto& [program, box] : cases) {
        SCOPED_TRACE(box);
        SwitchRig rig(1020);
        EXPECT_FALSE(program(rig.link));
        ASSERT_EQ(rig.person.boxes.size(), 1u);
        const std::string shown = rig.person.boxes[0].title + ": " + rig.person.boxes[0].text;
        EXPECT_TRUE(shown.starts_with(box) && shown.ends_with("rogrammed.")) << shown;
        EXPECT_TRUE(rig.board.limitSwitch().channels.empty());
        EXPECT_EQ(rig.board.limitSwitch().configuration[0], 0);
        EXPECT_EQ(rig.board.peekWord(kOffset), 0);
    }
}

TEST(LimitSwitch, APulseTrainIsProgrammedOrReported)
{
    SwitchRig rig(1020);
    EXPECT_TRUE(rig.link.PulseTrain(5, 255, 255, 1019));
    EXPECT_TRUE(rig.link.PulseTrain(6, 10, 20, 0));
    EXPECT_TRUE(rig.channel(5).train);
    EXPECT_EQ(rig.channel(5).a, 1019);
    EXPECT_EQ(rig.channel(6).b, 20 * 256 + 10);
    rig.line.clearFaults();
    rig.line.setFault(4 + 2, {LineFault::Kind::ChangeReply, 1, {}}); // the first data byte
    EXPECT_FALSE(rig.link.PulseTrain(5, 10, 10, 0));
    expectOnlyBox(rig.person, {BoxIcon::Information, BoxButtons::Ok, "PLS Pulse Train",
                               "Error Encountered while Programming Pulse Train.\r\n\r\n"
                               "PLS Channel will not be Programmed."});
}

TEST(LimitSwitch, ASwitchThatStaysBusyIsTheOperatorsDecision)
{
    SwitchRig rig;
    rig.board.limitSwitch().busyAnswers = 1'000'000;
    rig.person.answers = {BoxAnswer::Retry, BoxAnswer::Cancel};
    const Duration start = rig.clock.now();
    EXPECT_FALSE(rig.link.ClearPLSChan(1));
    const Duration took = rig.clock.now() - start;
    EXPECT_TRUE(took >= 5s && took < 5100ms) << took.count(); // 3 s, then 2 s more
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    expectBox(rig.person.boxes[1],
              {BoxIcon::Critical, BoxButtons::RetryCancel, "WARNING - Communication Error!",
               "Cannot Determine PLS READY Mode Within Target Board."});
    EXPECT_TRUE(rig.link.CommError);
}

TEST(LimitSwitch, RecallBringsStateAndPositionWithinAnyScale)
{
    SwitchRig rig;
    const auto expectRecall = [&rig](bool done, int state, int position) {
        EXPECT_EQ(rig.link.RecallChannel(9), done) << position;
        EXPECT_EQ(rig.link.ChannelRecallState(), state) << position;
        EXPECT_EQ(rig.link.ChannelRecallPos(), position);
    };
    rig.channel(9) = {false, true, 258, 0};
    expectRecall(true, 1, 258);
    EXPECT_EQ(rig.trace, "FF <55 09 <55 09 <55 55 <01 55 <02 55 <01");
    constexpr std::uint16_t kHighest = 16 * 256 + 255;
    rig.channel(9) = {false, false, kHighest, 0};
    expectRecall(true, 0, kHighest);
    rig.channel(9).a = kHighest + 1;
    expectRecall(false, 2, kHighest); // the last valid one stays
    rig.channel(9).a = 7;
    rig.line.clearFaults();
    rig.line.setFault(3, {LineFault::Kind::ChangeReply, 2, {}}); // the state reads as 2
    expectRecall(false, 2, 7); // and its position is taken all the same
    rig.line.unplug();
    expectRecall(false, 2, 7);
}

TEST(LimitSwitch, TheOffsetMakesTheWantedPositionTheCurrentOne)
{
    const std::uint16_t cases[][4] = {{300, 100, 50, 350}, {0, 100, 200, 260}, {0, 100, 360, 100}};
    for (const auto& [offset, position, wanted, written] : cases) {
        SwitchRig rig;
        rig.board.pokeWord(kOffset, offset);
        rig.showResolver(position, 0);
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
    SwitchRig clean;
    EXPECT_TRUE(clean.link.SingleSetpoint(4, 10, 359, false));
    sweepFaults(clean.line.exchanges(), [&](std::size_t k, const NamedFault& fault) {
        SwitchRig rig;
        rig.line.setFault(k, fault.fault);
        const bool ok = rig.link.SingleSetpoint(4, 10, 359, false);
        EXPECT_TRUE(!ok || (rig.channel(4).used && rig.channel(4).b == 359));
        rig.channel(4).used = false;
        EXPECT_EQ(rig.board.limitSwitch().channels.size(), 1u); // and no other
        startAfresh(rig);
        rig.line.setFault(1 + k % 4, fault.fault);
        const std::string scale = rig.link.PLSScaleFactor();
        // A changed or doubled byte of it shows no sign.
        EXPECT_TRUE(scale == "360" || scale == "-9999" || fault.bringsWrongByte()) << scale;
    });
}
