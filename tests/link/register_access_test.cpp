#include "tests/support/link_rig.h"

using namespace tambrix;

namespace {

struct WriteCase
{
    const char* name;
    const char* addr;
    const char* value;
    const char* bytes; ///< what goes over the line, the mode handshakes included
    const char* box;   ///< text of the refusal, or nothing
};

class RegisterWrite : public testing::TestWithParam<WriteCase>
{
};

constexpr const char* kWriteMode = "FF <55 02 <55 ";

} // namespace

TEST(RegisterRead, SendsOneFrameAByteAndEntersTheModeOnce)
{
    LinkRig rig;
    rig.board.pokeWord(1298, 0x3412);
    rig.openQuietly();
    EXPECT_EQ(rig.link.RSRead("W1298"), std::to_string(0x3412));
    EXPECT_EQ(rig.trace, "FF <55 01 <55 05 <05 12 <12 05 <05 13 <34");
    rig.trace.clear();
    EXPECT_EQ(rig.link.RSRead("w1298"), std::to_string(0x3412));
    EXPECT_EQ(rig.trace, "05 <05 12 <12 05 <05 13 <34");
}

TEST(RegisterRead, FormsTheValueOfEveryKind)
{
    LinkRig rig;
    rig.board.press().stop();
    rig.board.pokeWord(5000, 6789);
    rig.board.pokeWord(5002, 12345);
    rig.board.pokeWord(5004, 65535);
    rig.board.pokeWord(5006, 65535);
    rig.board.poke(5008, 0b0000'1000);
    rig.openQuietly();
    EXPECT_EQ(rig.link.RSRead("D5000"), "123456789");
    EXPECT_EQ(rig.link.RSRead("D5004"), "655415535"); // a low word above 9999 is added as it is
    EXPECT_EQ(rig.link.RSRead("W5004"), "65535");
    EXPECT_EQ(rig.link.RSRead("B5008"), "8");
    EXPECT_EQ(rig.link.RSRead("B5008.3"), "1");
    EXPECT_EQ(rig.link.RSRead("B5008.2"), "0");
    EXPECT_EQ(rig.link.RSRead("1390H"), "8");
}

TEST_P(RegisterWrite, SendsWhatFitsAndRefusesTheRest)
{
    LinkRig rig;
    rig.board.poke(5100, 0b0100'0001);
    rig.openQuietly();
    rig.link.RSWrite(GetParam().addr, GetParam().value);
    EXPECT_EQ(rig.trace, GetParam().bytes);
    if (GetParam().box == nullptr) {
        EXPECT_TRUE(rig.person.boxes.empty());
        return;
    }
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(rig.person.boxes[0].title, "ENTRY ALERT");
    EXPECT_EQ(rig.person.boxes[0].text, GetParam().box);
}

INSTANTIATE_TEST_SUITE_P(
    Values, RegisterWrite,
    testing::Values(
        WriteCase{"byte", "B5100", "255", "FF <55 02 <55 13 <13 EC <EC FF <FF", nullptr},
        WriteCase{"empty_is_zero", "B5100", "", "FF <55 02 <55 13 <13 EC <EC 00 <00", nullptr},
        WriteCase{"grouped_word", "W5100", " 1,200",
                  "FF <55 02 <55 13 <13 EC <EC B0 <B0 13 <13 ED <ED 04 <04", nullptr},
        WriteCase{"point_is_dropped", "B5100", "12.5", "FF <55 02 <55 13 <13 EC <EC 7D <7D",
                  nullptr},
        WriteCase{"percent_and_degree", "B5100", "9%\xC2\xB0", "FF <55 02 <55 13 <13 EC <EC 09 <09",
                  nullptr},
        WriteCase{"double", "D5100", "123456789",
                  "FF <55 02 <55 13 <13 EC <EC 85 <85 13 <13 ED <ED 1A <1A "
                  "13 <13 EE <EE 39 <39 13 <13 EF <EF 30 <30",
                  nullptr},
        WriteCase{"set_bit", "B5100.3", "1",
                  "FF <55 01 <55 13 <13 EC <41 FF <55 02 <55 13 <13 EC <EC 49 <49", nullptr},
        WriteCase{"clear_bit", "B5100.6", "0",
                  "FF <55 01 <55 13 <13 EC <41 FF <55 02 <55 13 <13 EC <EC 01 <01", nullptr},
        WriteCase{"minus", "W5100", "-5", "", "Error:\rOnly Numerical Data Allowed."},
        WriteCase{"letters", "W5100", "12a", "", "Error:\rOnly Numerical Data Allowed."},
        WriteCase{"bit_too_large", "B5100.3", "2", "", "Error:\rEnter 0 or 1 Only."},
        WriteCase{"byte_too_large", "B5100", "256", "", "Error:\rEntry out of Range (0-255)."},
        WriteCase{"word_too_large", "W5100", "65536", "", "Error:\rEntry out of Range (0-65,535)."},
        WriteCase{"double_too_large", "D5100", "655360000", "",
                  "Error:\rEntry out of Range (0-655,359,999)."},
        WriteCase{"beyond_any_number", "W5100", "99999999999999999999", "",
                  "Error:\rEntry out of Range (0-65,535)."}),
    [](const auto& instance) { return instance.param.name; });

TEST(RegisterAccess, StaysInWriteModeAfterACleanWrite)
{
    LinkRig rig;
    rig.openQuietly();
    rig.link.RSWrite("B5100", "1");
    rig.trace.clear();
    rig.link.RSWrite("B5101", "2");
    EXPECT_EQ(rig.trace, "13 <13 ED <ED 02 <02");
}

TEST(RegisterAccess, ARefusedWriteDoesNotSpoilTheReadCache)
{
    LinkRig rig;
    rig.board.pokeWord(5000, 777);
    rig.openQuietly();
    EXPECT_EQ(rig.link.RSRead("W5000"), "777");
    rig.link.RSWrite("B5100", "256");
    EXPECT_FALSE(rig.link.writeSucceeded());
    EXPECT_EQ(rig.link.RSRead("W5000"), "777");
}

TEST(RegisterAccess, WritesTheWholeValueOnceMoreAfterABadEcho)
{
    LinkRig rig;
    rig.openQuietly();
    rig.line.setFault(4, {LineFault::Kind::ChangeReply, 0x01, {}}); // echo of the first data byte
    rig.link.RSWrite("W5100", "258");
    EXPECT_EQ(rig.trace, std::string(kWriteMode) + "13 <13 EC <EC 02 <03 " + kWriteMode +
                             "13 <13 EC <EC 02 <02 13 <13 ED <ED 01 <01");
    EXPECT_EQ(rig.board.peekWord(5100), 258);
    EXPECT_TRUE(rig.link.writeSucceeded());
    EXPECT_TRUE(rig.person.boxes.empty());
}

TEST(RegisterAccess, GivesUpAfterTheSecondBadEcho)
{
    LinkRig rig;
    rig.openQuietly();
    rig.line.setFault(2, {LineFault::Kind::ChangeReply, 0x01, {}});
    rig.line.setFault(5, {LineFault::Kind::ChangeReply, 0x01, {}});
    rig.link.RSWrite("B5100", "9");
    EXPECT_EQ(rig.line.exchanges(), 6u);
    EXPECT_FALSE(rig.link.CommError);
    EXPECT_FALSE(rig.link.writeSucceeded());
}

TEST(RegisterAccess, ABrokenWriteFrameNeverStoresTheAttentionByte)
{
    // The board waits for the low address when the echo of the high one arrives spoilt. Attention
    // at once would be taken for that address, and the next one for data.
    LinkRig rig;
    rig.openQuietly();
    const std::vector<std::uint8_t> before(rig.board.memory().begin(), rig.board.memory().end());
    rig.board.press().stop();
    rig.line.setFault(2, {LineFault::Kind::ChangeReply, 0x01, {}});
    rig.link.RSWrite("B5100", "9");
    EXPECT_EQ(rig.board.peek(5100), 9);
    EXPECT_EQ(rig.board.peek(0x13FF), before[0x13FF]);
}

TEST(RegisterAccess, ABitIsNotWrittenOverAByteThatCouldNotBeRead)
{
    LinkRig rig;
    rig.board.poke(5100, 0xF0);
    rig.openQuietly();
    rig.line.setFault(2, {LineFault::Kind::ChangeReply, 0x80, {}}); // the read before the write
    rig.link.RSWrite("B5100.0", "1");
    EXPECT_EQ(rig.board.peek(5100), 0xF1);
}
