#include "tests/link/checks.h"

using namespace tambrix;
using namespace std::chrono_literals;

TEST(SilentBoard, IsAskedAboutAfterThreeWaitsAndThenLeftAlone)
{
    LinkRig rig;
    rig.openQuietly();
    rig.board.setPowered(false);
    const Duration start = rig.clock.now();
    EXPECT_EQ(rig.link.RSRead("W112"), "0");
    EXPECT_EQ(rig.clock.now() - start, 5s);
    EXPECT_EQ(rig.trace, "FF +1000 FF +2000 FF"); // the request, and attention twice
    expectOnlyBox(rig.person,
                  {BoxIcon::Critical, BoxButtons::RetryCancel, "WARNING - Communication Error!",
                   "Cannot Communicate with Target Board.\r"
                   "Verify RS-232 Cable is Connected Between\r"
                   "COMM Port and PROG Port."});
    EXPECT_TRUE(rig.link.CommError);
    EXPECT_TRUE(rig.link.CommErrorAlert);

    rig.trace.clear();
    EXPECT_EQ(rig.link.RSRead("W112"), "0");
    rig.link.RSWrite("F123", "1");
    rig.link.CloseRSComm();
    EXPECT_EQ(rig.trace, "");
    EXPECT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.clock.now() - start, 5s);

    rig.open(); // one box more, and no "Comm Port Error"
    EXPECT_FALSE(rig.link.portError());
    EXPECT_EQ(rig.person.boxes.size(), 2u);
}

TEST(SilentBoard, IsCalledAgainAfterRetry)
{
    LinkRig rig;
    rig.openQuietly();
    rig.board.setPowered(false);
    rig.person.answers = {BoxAnswer::Retry, BoxAnswer::Retry};
    rig.person.whileShown = [&rig] {
        rig.clock.pause(10s); // the operator looks for the cable
        rig.board.setPowered(rig.person.boxes.size() == 2);
    };
    rig.board.press().stop();
    rig.board.poke(5100, 77);
    EXPECT_EQ(rig.link.RSRead("B5100"), "77");
    // Called three times before the first box, twice after it and once after the second.
    EXPECT_EQ(rig.trace, "FF +1000 FF +2000 FF +12000 FF +2000 FF +12000 FF <55 "
                         "+602 01 <55 13 <13 EC <4D");
    EXPECT_EQ(rig.person.boxes.size(), 2u);
    EXPECT_FALSE(rig.link.CommError);
    EXPECT_FALSE(rig.link.CommErrorAlert);
}

TEST(DisturbedLine, IsQuietBeforeTheNextByte)
{
    using Kind = LineFault::Kind;
    constexpr LineFault kLost{Kind::LoseReply};
    constexpr LineFault kLate{Kind::DelayReply, 0, 900ms};
    struct Case
    {
        std::size_t exchange; ///< 0 and 1 are the handshake, 2 and 3 the frame
        LineFault fault;
        const char* trace; ///< of two reads
    };
    // Attention's answer is neither data nor acknowledgement: the board has left its mode. A late
    // echo has cost it the half frame.
    const Case cases[] = {
        {0, kLost, "FF +1000 FF <55 +602 01 <55 13 <13 EC <09 13 <13 EC <09"},
        {1, {}, "FF <55 01 +1000 FF <55 +602 FF <55 01 <55 13 <13 EC <09 13 <13 EC <09"},
        {1, {Kind::ChangeReply, 4}, "FF <55 01 <51 +52 FF <55 01 <55 13 <13 EC <09 13 <13 EC <09"},
        {2, {Kind::ChangeReply, 1}, "FF <55 01 <55 13 <12 +602 FF <55 01 <55 13 <13 EC <09"},
        {3, kLost, "FF <55 01 <55 13 <13 EC +1000 FF <55 +602 FF <55 01 <55 13 <13 EC <09"},
        {3, kLate, "FF <55 01 <55 13 <13 EC <09 +902 13 <13 EC <09"},
        {2, kLate, "FF <55 01 <55 13 <13 +1502 FF <55 01 <55 13 <13 EC <09 13 <13 EC <09"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.trace);
        LinkRig rig;
        rig.board.press().stop();
        rig.board.poke(5100, 9);
        rig.openQuietly();
        rig.line.setFault(c.exchange, c.fault);
        const bool fails = c.exchange > 1 && c.fault.kind != Kind::DelayReply;
        EXPECT_EQ(rig.link.RSRead("B5100"), fails ? "0" : "9");
        EXPECT_EQ(rig.link.readSucceeded(), !fails);
        EXPECT_EQ(rig.link.RSRead("B5100"), "9");
        EXPECT_EQ(rig.trace, c.trace);
        EXPECT_TRUE(rig.person.boxes.empty());
    }
}

TEST(ModeRequest, ThatTheBoardKeepsRefusingEndsInABoxAndClosesThePort)
{
    LinkRig rig;
    rig.openQuietly();
    for (std::size_t exchange = 0; exchange < 5000; ++exchange)
        rig.line.setFault(exchange, {LineFault::Kind::ChangeReply, 0x01, {}});
    const Duration start = rig.clock.now();
    rig.person.answers = {BoxAnswer::Retry, BoxAnswer::Cancel};
    EXPECT_EQ(rig.link.RSRead("B5100"), "0");
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    expectBox(rig.person.boxes[1],
              {BoxIcon::Critical, BoxButtons::RetryCancel, "WARNING - Communication Error!",
               "Cannot Set PLC Mode Within Target Board."});
    const auto took = rig.clock.now() - start;
    EXPECT_TRUE(took >= 4s && took < 4200ms) << took.count(); // two waits, and the last pause
    EXPECT_TRUE(rig.link.CommError);
    EXPECT_FALSE(rig.link.OnlineMode);
    EXPECT_FALSE(rig.port.isOpen());
}

TEST(MissingPort, IsReportedWithNumberSourceAndDescription)
{
    LinkRig rig;
    rig.line.unplug();
    rig.open();
    expectOnlyBox(rig.person, {BoxIcon::Critical, BoxButtons::Ok, "Comm Port Error",
                               "Error Number = 1\r\nError Source = Simulated port 1\r\n\r\n"
                               "The device is missing."});
    EXPECT_TRUE(rig.link.CommError);
    EXPECT_TRUE(rig.link.portError());
    startAfresh(rig);
    EXPECT_TRUE(rig.link.OnlineMode);
    EXPECT_FALSE(rig.link.portError());
}

TEST(OpenedAgain, TheLinkClosesFirstAndTheBoardLeavesItsMode)
{
    LinkRig rig;
    EXPECT_EQ(rig.link.RSRead("W112"), "0");
    EXPECT_TRUE(rig.link.CommError);
    for (int i = 0; i < 2; ++i) { // the second time on an open port
        rig.trace.clear();
        rig.open();
        EXPECT_EQ(rig.trace, "FF <55");
    }
    rig.link.RSRead("W112");
    rig.trace.clear();
    rig.link.CloseRSComm();
    EXPECT_EQ(rig.trace, "FF <55");
    EXPECT_EQ(rig.board.mode(), 0);
    EXPECT_FALSE(rig.port.isOpen());
}

TEST(BoxInsideAnExchange, LetsNobodyElseIn)
{
    LinkRig rig;
    rig.openQuietly();
    rig.board.setPowered(false);
    rig.person.whileShown = [&rig] {
        EXPECT_TRUE(rig.link.isBusy());
        const std::string before = rig.trace;
        EXPECT_EQ(rig.link.RSRead("B65"), "0");
        rig.link.RSWrite("F123", "1");
        rig.link.CloseRSComm();
        rig.link.OpenRSComm(rig.port);
        EXPECT_EQ(rig.trace, before);
        EXPECT_TRUE(rig.port.isOpen());
    };
    rig.link.RSRead("W112");
    EXPECT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_FALSE(rig.link.isBusy());
}
