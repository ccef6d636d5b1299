#include "tests/support/link_rig.h"

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

const MessageBox kCannotCommunicate = {
    BoxIcon::Critical, BoxButtons::RetryCancel, "WARNING - Communication Error!",
    "Cannot Communicate with Target Board.\rVerify RS-232 Cable is Connected Between\r"
    "COMM Port and PROG Port."};
const MessageBox kCannotSetMode = {BoxIcon::Critical, BoxButtons::RetryCancel,
                                   "WARNING - Communication Error!",
                                   "Cannot Set PLC Mode Within Target Board."};

void expectBox(const MessageBox& box, const MessageBox& expected)
{
    EXPECT_EQ(box.icon, expected.icon);
    EXPECT_EQ(box.buttons, expected.buttons);
    EXPECT_EQ(box.title, expected.title);
    EXPECT_EQ(box.text, expected.text);
}

} // namespace

TEST(SilentBoard, IsAskedAboutAfterThreeWaitsAndThenLeftAlone)
{
    LinkRig rig;
    rig.openQuietly();
    rig.board.setPowered(false);
    const Duration start = rig.clock.now();
    EXPECT_EQ(rig.link.RSRead("W112"), "0");
    EXPECT_EQ(rig.clock.now() - start, 5s);
    EXPECT_EQ(rig.trace, "FF FF FF"); // the request, and attention twice
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    expectBox(rig.person.boxes[0], kCannotCommunicate);
    EXPECT_TRUE(rig.link.CommError);
    EXPECT_TRUE(rig.link.CommErrorAlert);

    rig.trace.clear();
    EXPECT_EQ(rig.link.RSRead("W112"), "0");
    rig.link.RSWrite("F123", "1");
    rig.link.CloseRSComm();
    EXPECT_EQ(rig.trace, "");
    EXPECT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.clock.now() - start, 5s);

    rig.board.setPowered(true);
    rig.open();
    EXPECT_TRUE(rig.link.OnlineMode);
    EXPECT_FALSE(rig.link.CommError);
    EXPECT_NE(rig.link.RSRead("W112"), "0");
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
    EXPECT_EQ(rig.person.boxes.size(), 2u);
    EXPECT_FALSE(rig.link.CommError);
    EXPECT_FALSE(rig.link.CommErrorAlert);
}

TEST(SilentBoard, AtOpeningLeavesTheProgramOffLine)
{
    LinkRig rig;
    rig.board.setPowered(false);
    rig.link.OnlineMode = true;
    rig.open();
    EXPECT_FALSE(rig.link.OnlineMode);
    EXPECT_TRUE(rig.link.CommError);
    EXPECT_FALSE(rig.link.portError());
    EXPECT_EQ(rig.person.boxes.size(), 1u);
}

TEST(BrokenWait, ItsAttentionReplyIsNoAnswerToTheByteSent)
{
    // The low address is lost; attention, sent after the first second, is answered 0x55. That is
    // neither the register's data nor an echo, and the board has left its mode.
    LinkRig rig;
    rig.board.poke(5100, 9);
    rig.openQuietly();
    rig.line.setFault(3, {LineFault::Kind::LoseRequest, 0, {}});
    EXPECT_EQ(rig.link.RSRead("B5100"), "0");
    EXPECT_FALSE(rig.link.readSucceeded());
    EXPECT_FALSE(rig.link.CommError);
    rig.trace.clear();
    EXPECT_EQ(rig.link.RSRead("B5100"), "9");
    EXPECT_TRUE(rig.link.readSucceeded());
    EXPECT_EQ(rig.trace, "FF <55 01 <55 13 <13 EC <09");
}

TEST(BrokenWait, OnAModeCommandDoesNotCountAsItsAcknowledge)
{
    LinkRig rig;
    rig.board.poke(5100, 9);
    rig.openQuietly();
    rig.line.setFault(1, {LineFault::Kind::LoseRequest, 0, {}});
    EXPECT_EQ(rig.link.RSRead("B5100"), "9");
    EXPECT_EQ(rig.trace, "FF <55 01 FF <55 FF <55 01 <55 13 <13 EC <09");
    EXPECT_TRUE(rig.person.boxes.empty());
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
    expectBox(rig.person.boxes[1], kCannotSetMode);
    EXPECT_GE(rig.clock.now() - start, 4s);
    EXPECT_TRUE(rig.link.CommError);
    EXPECT_FALSE(rig.link.OnlineMode);
    EXPECT_FALSE(rig.port.isOpen());
}

TEST(MissingPort, IsReportedWithNumberSourceAndDescription)
{
    LinkRig rig;
    rig.folder.write("Support/RSPort.cfg", "7,9600\r\n");
    rig.line.unplug();
    rig.open();
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(rig.person.boxes[0].buttons, BoxButtons::Ok);
    EXPECT_EQ(rig.person.boxes[0].title, "Comm Port Error");
    EXPECT_EQ(rig.person.boxes[0].text,
              "Error Number = 1\r\nError Source = Simulated port 7\r\n\r\nThe device is missing.");
    EXPECT_TRUE(rig.link.CommError);
    EXPECT_TRUE(rig.link.portError());
    rig.line.plugIn();
    rig.open();
    EXPECT_TRUE(rig.link.OnlineMode);
    EXPECT_FALSE(rig.link.portError());
}

TEST(ClosedLink, AnswersNothingAndIsOpenedAgain)
{
    LinkRig rig;
    EXPECT_EQ(rig.link.RSRead("W112"), "0");
    EXPECT_TRUE(rig.link.CommError);
    rig.open();
    rig.link.RSRead("W112");
    rig.trace.clear();
    rig.open(); // on an open port: closes it first
    EXPECT_EQ(rig.trace, "FF <55");
    EXPECT_TRUE(rig.link.OnlineMode);
    rig.link.RSRead("W112");
    rig.trace.clear();
    rig.link.CloseRSComm();
    EXPECT_EQ(rig.trace, "FF <55"); // the board leaves read mode
    EXPECT_EQ(rig.board.mode(), 0);
    EXPECT_FALSE(rig.port.isOpen());
    EXPECT_FALSE(rig.link.OnlineMode);
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
