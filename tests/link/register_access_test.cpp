#include "tests/link/checks.h"

using namespace tambrix;

namespace {

constexpr const char* kWriteMode = "FF <55 02 <55 ";

} // namespace

TEST(RegisterRead, SendsOneFrameAByteAndEntersTheModeOnce)
{
    LinkRig rig;
    rig.board.press().stop();
    rig.board.pokeWord(5000, 6789);
    rig.board.pokeWord(5002, 12345);
    rig.board.pokeWord(5004, 65535);
    rig.board.pokeWord(5006, 65535);
    rig.board.poke(5008, 0b0000'1000);
    rig.openQuietly();
    EXPECT_EQ(rig.link.RSRead("W5002"), "12345");
    EXPECT_EQ(rig.trace, "FF <55 01 <55 13 <13 8A <39 13 <13 8B <30");
    rig.trace.clear();
    EXPECT_EQ(rig.link.RSRead("w5002"), "12345");
    EXPECT_EQ(rig.trace, "13 <13 8A <39 13 <13 8B <30");
    EXPECT_EQ(rig.link.RSRead("D5000"), "123456789");
    EXPECT_EQ(rig.link.RSRead("D5004"), "655415535"); // a low word above 9999 is added as it is
    EXPECT_EQ(rig.link.RSRead("W5004"), "65535");
    EXPECT_EQ(rig.link.RSRead("B5008"), "8");
    EXPECT_EQ(rig.link.RSRead("B5008.3"), "1");
    EXPECT_EQ(rig.link.RSRead("B5008.2"), "0");
    EXPECT_EQ(rig.link.RSRead("1390H"), "8");
}

TEST(RegisterWrite, SendsWhatFitsAndRefusesTheRest)
{
    struct Case
    {
        const char* addr;
        const char* value;
        std::string bytes;     ///< what goes over the line
        std::string complaint; ///< why nothing does
    };
    const std::string to5100 = std::string(kWriteMode) + "13 <13 EC <EC ";
    const std::string read5100 = "13 <13 EC <41 ";
    const Case cases[] = {
        {"B5100", "255", to5100 + "FF <FF", ""},
        {"B5100", "", to5100 + "00 <00", ""},
        {"W5100", " 1,200", to5100 + "B0 <B0 13 <13 ED <ED 04 <04", ""},
        {"B5100", "12.5", to5100 + "7D <7D", ""}, // the point is dropped
        {"D5100", "123456789",
         to5100 + "85 <85 13 <13 ED <ED 1A <1A 13 <13 EE <EE 39 <39 13 <13 EF <EF 30 <30", ""},
        {"B5100.3", "1", read5100 + to5100 + "49 <49", ""},
        {"B5100.6", "0", read5100 + to5100 + "01 <01", ""},
        {"W5100", "-5", "", "Only Numerical Data Allowed."},
        {"W5100", "12a", "", "Only Numerical Data Allowed."},
        {"B5100.3", "2", "", "Enter 0 or 1 Only."},
        {"B5100", "256", "", "Entry out of Range (0-255)."},
        {"W5100", "65536", "", "Entry out of Range (0-65,535)."},
        {"D5100", "655360000", "", "Entry out of Range (0-655,359,999)."},
        {"W5100", "99999999999999999999", "", "Entry out of Range (0-65,535)."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.value) + " to " + c.addr);
        LinkRig rig;
        rig.board.poke(5100, 0b0100'0001);
        rig.board.pokeWord(5000, 777);
        rig.open();
        EXPECT_EQ(rig.link.RSRead("W5000"), "777");
        rig.trace.clear();
        rig.link.RSWrite(c.addr, c.value);
        EXPECT_EQ(rig.trace, c.bytes);
        EXPECT_EQ(rig.link.writeSucceeded(), c.complaint.empty());
        EXPECT_EQ(rig.person.boxes.empty(), c.complaint.empty());
        if (!c.complaint.empty())
            expectOnlyBox(rig.person, {BoxIcon::Critical, BoxButtons::Ok, "ENTRY ALERT",
                                       "Error:\r" + c.complaint});
        EXPECT_EQ(rig.link.RSRead("W5000"), "777"); // a write leaves no address behind
    }
}

TEST(RegisterAccess, WritesTheWholeValueOnceMoreAfterABadEcho)
{
    LinkRig rig;
    rig.openQuietly();
    rig.line.setFault(4, {LineFault::Kind::ChangeReply, 0x01, {}}); // echo of the first data byte
    rig.link.RSWrite("W5100", "258");
    EXPECT_EQ(rig.trace, std::string(kWriteMode) + "13 <13 EC <EC 02 <03 +602 " + kWriteMode +
                             "13 <13 EC <EC 02 <02 13 <13 ED <ED 01 <01");
    EXPECT_EQ(rig.board.peekWord(5100), 258);
    EXPECT_TRUE(rig.link.writeSucceeded());
    EXPECT_TRUE(rig.person.boxes.empty());
    rig.trace.clear();
    rig.link.RSWrite("B5101", "2"); // after a clean write the board is still in write mode
    EXPECT_EQ(rig.trace, "13 <13 ED <ED 02 <02");
}

TEST(RegisterAccess, WhatTheWireCannotNameIsNeitherReadNorWritten)
{
    LinkRig rig;
    rig.openQuietly();
    for (const char* addr : {"B65536", "12345H", "W65535", "D65533", "B65536.1", "F999999999"}) {
        EXPECT_EQ(rig.link.RSRead(addr), "0");
        EXPECT_FALSE(rig.link.readSucceeded()) << addr;
        rig.link.RSWrite(addr, "1");
        EXPECT_FALSE(rig.link.writeSucceeded()) << addr;
    }
    EXPECT_EQ(rig.trace, "");
    EXPECT_TRUE(rig.person.boxes.empty());
    rig.link.RSRead("D65532");
    EXPECT_NE(rig.trace, "");
}

TEST(RegisterAccess, ABitsNeighboursAreReadAgainWhenTheLineWasOutOfStep)
{
    // Counted from the read's handshake on: 2 and 3 are the read's frame, 4 the next attention.
    const std::pair<std::size_t, LineFault> cases[] = {
        {2, {LineFault::Kind::DoubleReply, 0, {}}}, // the echo passes for the byte
        {3, {LineFault::Kind::LoseReply, 0, {}}},
        {4, {LineFault::Kind::ChangeReply, 0x04, {}}},
        {5, {LineFault::Kind::LoseReply, 0, {}}},
    };
    for (const auto& [exchange, fault] : cases) {
        LinkRig rig;
        rig.board.press().stop();
        rig.board.poke(5100, 0b0100'0001);
        rig.openQuietly();
        rig.line.setFault(exchange, fault);
        rig.link.RSWrite("B5100.3", "1");
        EXPECT_TRUE(rig.link.writeSucceeded()) << exchange;
        EXPECT_EQ(rig.board.peek(5100), 0b0100'1001) << exchange;
        std::size_t reads = 0;
        for (auto at = rig.trace.find("01 <55"); at != std::string::npos; ++reads)
            at = rig.trace.find("01 <55", at + 1);
        EXPECT_EQ(reads, 2u) << exchange;
    }
    LinkRig rig;
    rig.openQuietly();
    for (std::size_t k = 0; k < 100; ++k) // a line on which no echo comes back right
        rig.line.setFault(2 + 3 * k, {LineFault::Kind::ChangeReply, 0x80, {}});
    rig.link.RSWrite("B5100.3", "1");
    EXPECT_FALSE(rig.link.writeSucceeded());
    EXPECT_EQ(rig.trace.find("02 <55"), std::string::npos); // nothing is written over it
}

TEST(RegisterAccess, ABrokenFrameIsRepeatedOnceAndStoresNothingWrong)
{
    // The board waits for the low address when the echo of the high one arrives spoilt. Attention
    // at once would be taken for that address, and the next one for data.
    LinkRig rig;
    rig.board.press().stop();
    rig.openQuietly();
    const auto before = rig.board.peek(0x13FF);
    rig.board.poke(5100, 0);
    rig.line.setFault(2, {LineFault::Kind::ChangeReply, 0x01, {}});
    rig.line.setFault(5, {LineFault::Kind::ChangeReply, 0x01, {}}); // and when it is repeated
    rig.link.RSWrite("B5100", "8");
    EXPECT_EQ(rig.line.exchanges(), 6u); // there is no third time
    EXPECT_FALSE(rig.link.CommError);
    EXPECT_FALSE(rig.link.writeSucceeded());
    EXPECT_EQ(rig.board.peek(5100), 0);
    rig.link.RSWrite("B5100", "9");
    EXPECT_EQ(rig.board.peek(5100), 9);
    EXPECT_EQ(rig.board.peek(0x13FF), before);
}
