#include "screens/io_status_screen.h"
#include "screens/shift_data_screen.h"

#include "simulator/memory_map.h"
#include "tests/screens/screen_rig.h"

namespace tambrix {
namespace {

using Writes = std::vector<WireWrite>;

class ShiftData : public ScreenRig<ShiftDataScreen>
{
protected:
    void poke(int ductor, std::uint32_t count)
    {
        const std::uint16_t address = memory_map::shiftCount(ductor);
        rig.board.pokeWord(address, static_cast<std::uint16_t>(count % 10000));
        rig.board.pokeWord(static_cast<std::uint16_t>(address + 2),
                           static_cast<std::uint16_t>(count / 10000));
    }

    void SetUp() override { rig.board.press().stop(); }
};

TEST_F(ShiftData, CountsAreShownInThousands)
{
    rig.state.gWorkingData.Value[2] = 4321;
    open();
    EXPECT_EQ(label("lblData(3)"), "4,321");
    EXPECT_FALSE(button("cmdResetCounts").isEnabled());
    EXPECT_TRUE(wire.bytes.empty());

    poke(0, 1234567);
    poke(7, 655359999);
    rig.goOnline();
    EXPECT_TRUE(PressRig::eventually([this] { return label("lblData(1)") == "1,234,567"; }));
    pass();
    EXPECT_EQ(label("lblData(8)"), "655,359,999");
}

TEST_F(ShiftData, OneDuctorOrAllAreReset)
{
    openOnline();
    poke(1, 77);
    poke(2, 88);
    wire.clear();
    enter("txtData", "-2"); // passes, and means no ductor
    button("cmdResetCounts").click();
    enter("txtData", "2");
    clickArrow("txtData", true); // only chooses the ductor
    EXPECT_FALSE(field("txtData").beingEdited());
    button("cmdResetCounts").click();
    EXPECT_EQ(wire.writes, (Writes{{43, 0}, {43, 4}}));
    pass();
    EXPECT_EQ(label("lblData(3)"), "0");
    EXPECT_EQ(label("lblData(2)"), "77");
    type("txtData", "0"); // by its access key: the focus has not left the number
    button("cmdResetCounts").click();
    EXPECT_EQ(wire.to(43).back(), 255);
    pass();
    EXPECT_EQ(label("lblData(2)"), "0");
    EXPECT_TRUE(rig.person.boxes.empty());
    type("txtData", "9");
    button("cmdResetCounts").click();
    PressRig::turns(3);
    ASSERT_EQ(rig.person.boxes.size(), 1U);
    EXPECT_EQ(rig.person.boxes[0].title, "Spindle #1 Trip Offset:");
    EXPECT_EQ(rig.person.boxes[0].text, "Only a Number Between 0 and 8 can be Entered");
    EXPECT_EQ(wire.to(43).size(), 3U) << "a refused number resets nothing";
}

TEST(ResetMask, FollowsTheDuctorNumber)
{
    const std::pair<const char*, int> cases[] = {{"0", 255}, {"1", 1},   {"8", 128}, {"-1", 0},
                                                 {"9", 0},   {"2.5", 2}, {"0.4", 0}, {" 4 ", 8}};
    for (const auto& [text, mask] : cases)
        EXPECT_EQ(resetMask(text), mask) << text;
}

class IoStatus : public ScreenRig<IoStatusScreen>
{
protected:
    std::string states(const char* name, int first, int count)
    {
        std::string states;
        for (int row = first; row < first + count; ++row)
            states +=
                label(qPrintable(QStringLiteral("%1(%2)").arg(name).arg(row))) == "ON" ? '1' : '0';
        return states;
    }
};

/// Words of the module, each with its address as value; W170 is read and not shown.
constexpr std::pair<std::uint16_t, std::uint16_t> kWords[] = {
    {162, 162}, {164, 164}, {170, 170}, {180, 180}, {112, 112}, {184, 184}, {186, 186}, {188, 188}};

TEST_F(IoStatus, EveryBitHasItsLampAndTheModuleItsRegisters)
{
    rig.board.press().stop();
    rig.line.setBaud(0); // no time passes, so the controller's scan changes nothing
    rig.goOnline();
    rig.board.poke(100, 5);
    rig.board.poke(131, 0x81);
    rig.board.pokeWord(110, 256);
    rig.board.poke(42, 3); // IN0 and IN1 on
    for (const auto& [address, value] : kWords)
        rig.board.pokeWord(address, value);
    rig.board.poke(166, 66); // bytes, side by side
    rig.board.poke(167, 67);
    open();
    EXPECT_EQ(states("lblSlot00State", 0, 8), "10100000");
    EXPECT_EQ(states("lblSlot00State", 8, 8), "10000001");
    EXPECT_EQ(states("lblSlot01State", 0, 16), "0000000010000000");
    const auto color = [this](const char* name) {
        return control<QLabel>(name).palette().windowText().color().name();
    };
    EXPECT_EQ(color("lblSlot00State(0)"), "#0000ff");
    EXPECT_EQ(color("lblSlot00State(1)"), "#c00000");
    EXPECT_EQ(label("lblSlot00State(1)"), "off");
    EXPECT_EQ(label("lblq910State(0)"), "off");
    EXPECT_EQ(label("lblq910State(1)"), "off");
    const char* module[] = {"162", "164", "66", "67", "180", "112", "184", "186", "188"};
    for (int row = 2; row <= 10; ++row)
        EXPECT_EQ(label(qPrintable(QStringLiteral("lblq910State(%1)").arg(row))), module[row - 2]);
    EXPECT_EQ(spoken("lblq910State(10)"), "Offset: 188");
    EXPECT_EQ(spoken("lblSlot00State(0)"), "Ductor Control - Auto: ON");
    EXPECT_TRUE(wire.writes.empty());
    goOffline();
    for (const char* name : {"lblq910State(10)", "lblSlot00State(0)", "lblSlot01State(15)"}) {
        EXPECT_EQ(label(name), "-");
        EXPECT_FALSE(control<QLabel>(name).isEnabled());
    }
}

} // namespace
} // namespace tambrix
