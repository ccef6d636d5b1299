#include "screens/color_control_screen.h"

#include "simulator/memory_map.h"
#include "tests/screens/screen_rig.h"

namespace tambrix {
namespace {

using memory_map::kLabelNumber;
using memory_map::kManualDuctors;
using memory_map::kMaxCycle;
using memory_map::kMaxOn;
using memory_map::labelCycle;
using memory_map::labelOn;
using memory_map::workingCycle;
using memory_map::workingOn;
using Writes = std::vector<WireWrite>;

constexpr const char* kLabel = "txtColorCtrl(16)";
constexpr const char* kStationEntry = "txtColorCtrl(17)";
constexpr int kFirstBytes = 3; // more durations than these are loaded when a test interrupts

class ColorControl : public ScreenRig<ColorControlScreen>
{
protected:
    void openWithLabelSelect()
    {
        rig.board.press().setLabelSelect(true);
        openOnline();
        wire.clear();
    }

    /// Types a label number and lets its load come as far as a few durations.
    void beginLoad(const char* label)
    {
        enter(kLabel, label);
        ASSERT_TRUE(PressRig::eventually([this] { return loadedBytes() >= kFirstBytes; }));
        ASSERT_EQ(text("txtColorCtrl(15)"), "-");
    }

    int loadedBytes() const
    {
        int count = 0;
        for (const WireWrite& write : wire.writes)
            count += write.address >= workingOn(0) && write.address < workingCycle(8) ? 1 : 0;
        return count;
    }

    void expectWorking(int label)
    {
        for (int d = 0; d < kDuctors; ++d) {
            EXPECT_EQ(rig.board.peek(workingOn(d)), rig.board.peek(labelOn(label, d)));
            EXPECT_EQ(rig.board.peekWord(workingCycle(d)),
                      rig.board.peekWord(labelCycle(label, d)));
        }
    }

    bool loaded(int label)
    {
        return PressRig::eventually([this, label] {
            return rig.board.peekWord(workingCycle(7)) ==
                       rig.board.peekWord(labelCycle(label, 7)) &&
                   text("txtColorCtrl(15)") != "-";
        });
    }

    /// Sound durations, different for every label.
    void fillLabel(int label)
    {
        for (int d = 0; d < kDuctors; ++d) {
            rig.board.poke(labelOn(label, d), static_cast<std::uint8_t>(10 + label + d));
            rig.board.pokeWord(labelCycle(label, d), static_cast<std::uint16_t>(160 + label + d));
        }
    }

    void SetUp() override
    {
        fillLabel(5);
        fillLabel(6);
    }
};

TEST_F(ColorControl, ADurationGoesToTheWorkingRegisterAndToTheLabel)
{
    openWithLabelSelect();
    enter("txtColorCtrl(0)", "33");
    EXPECT_EQ(wire.writes, (Writes{{720, 33}, {labelOn(0, 0), 33}}));
    EXPECT_EQ(slot(labelBase(0)), 33);
    wire.clear();
    enter("txtColorCtrl(9)", "300");
    EXPECT_EQ(wire.writes,
              (Writes{{732, 44}, {733, 1}, {labelCycle(0, 1), 44}, {labelCycle(0, 1) + 1, 1}}));
    EXPECT_EQ(slot(labelBase(0) + 9), 300);
}

TEST_F(ColorControl, AnUnchangedDurationWritesNothing)
{
    openWithLabelSelect();
    enter("txtColorCtrl(0)", text("txtColorCtrl(0)").toLatin1());
    EXPECT_TRUE(wire.writes.empty());
    EXPECT_EQ(slot(labelBase(0)), 0);
}

TEST_F(ColorControl, ASpinnerStepIsCheckedAndWritten)
{
    openWithLabelSelect();
    const int before = rig.board.peek(workingOn(0));
    clickArrow("txtColorCtrl(0)", true);
    EXPECT_EQ(wire.writes, (Writes{{720, before + 1}, {labelOn(0, 0), before + 1}}));
    EXPECT_EQ(slot(labelBase(0)), before + 1);
    EXPECT_TRUE(screen().findChild<QPushButton*>("cmdDefault")->hasFocus());
}

TEST_F(ColorControl, TheDurationsOfADuctorLimitEachOther)
{
    openWithLabelSelect();
    enter("txtColorCtrl(8)", "180");
    enter("txtColorCtrl(0)", "121");
    ASSERT_EQ(rig.person.boxes.size(), 1U);
    EXPECT_EQ(rig.person.boxes[0].title, "Color Control");
    EXPECT_EQ(rig.person.boxes[0].text, "Only a Number Between 0 and 120 can be Entered");
    EXPECT_TRUE(field("txtColorCtrl(0)").hasFocus());
}

TEST_F(ColorControl, ALabelChangeLoadsSixteenDurationsAndReturnsTheFocus)
{
    rig.board.pokeWord(kMaxCycle, 500);
    rig.board.poke(kMaxOn, 150);
    rig.board.poke(labelOn(5, 2), 180);       // too long
    rig.board.pokeWord(labelCycle(5, 3), 60); // shorter than its ON and 60
    openWithLabelSelect();
    enter(kLabel, "5");
    EXPECT_EQ(wire.to(686), std::vector<int>{5});
    EXPECT_EQ(text("txtColorCtrl(0)"), "-");
    ASSERT_TRUE(loaded(5));
    EXPECT_EQ(loadedBytes(), 24);
    EXPECT_EQ(rig.board.peek(workingOn(0)), 15);
    EXPECT_EQ(rig.board.peek(workingOn(2)), 0);
    EXPECT_EQ(rig.board.peekWord(workingCycle(3)), 200);
    EXPECT_EQ(rig.board.peek(labelOn(5, 2)), 180); // the label itself stays as it is
    EXPECT_EQ(label("lblColorCtrl(2)"), "0.0%");
    EXPECT_EQ(slot(13), 5);
    EXPECT_TRUE(PressRig::eventually([this] { return field(kLabel).hasFocus(); }));
}

TEST_F(ColorControl, ASpinnerClickRestartsTheLoad)
{
    openWithLabelSelect();
    beginLoad("5");
    clickArrow(kLabel, true);
    EXPECT_EQ(wire.to(686).back(), 6);
    EXPECT_EQ(text("txtColorCtrl(0)"), "-");
    ASSERT_TRUE(loaded(6));
    pass();
    expectWorking(6);
    EXPECT_EQ(slot(13), 6);
    EXPECT_EQ(text("txtColorCtrl(0)"), "16");
}

TEST_F(ColorControl, APulledCableEndsTheLoad)
{
    openWithLabelSelect();
    beginLoad("5");
    rig.line.unplug();
    ASSERT_TRUE(PressRig::eventually([this] { return !rig.state.gLink.OnlineMode; }));
    EXPECT_EQ(rig.person.boxes.size(), 1U);
    EXPECT_FALSE(field(kLabel).isEnabled());

    rig.line.plugIn();
    rig.goOnline();
    EXPECT_TRUE(PressRig::eventually([this] { return text("txtColorCtrl(0)") == "15"; }));
}

TEST_F(ColorControl, AScreenClosedWhileLoadingWritesNoMore)
{
    openWithLabelSelect();
    beginLoad("5");
    closeScreen();
    wire.clear();
    PressRig::turns(50);
    EXPECT_TRUE(wire.bytes.empty());
}

TEST_F(ColorControl, OfflineDataEndsTheLoad)
{
    openWithLabelSelect();
    beginLoad("5");
    rig.state.gLink.OnlineMode = false;
    rig.state.ApplyOnlineMode();
    wire.clear();
    EXPECT_TRUE(PressRig::eventually([this] { return text("txtColorCtrl(15)") == "200"; }));
    EXPECT_TRUE(wire.bytes.empty());
    EXPECT_TRUE(rig.person.boxes.empty());

    rig.goOnline();
    EXPECT_TRUE(PressRig::eventually([this] {
        return text("txtColorCtrl(15)").toInt() == rig.board.peekWord(workingCycle(7));
    }));
}

TEST_F(ColorControl, TheStationHasTwoEncodings)
{
    openWithLabelSelect();
    enter(kStationEntry, "3");
    EXPECT_EQ(wire.to(63), (std::vector<int>{4, 4}));
    wire.clear();
    rig.state.gLink.OnlineMode = false;
    rig.state.ApplyOnlineMode();
    pass();
    rig.goOnline();
    ASSERT_TRUE(PressRig::eventually([this] { return !wire.to(63).empty(); }));
    EXPECT_EQ(wire.to(63), std::vector<int>{3});
}

TEST_F(ColorControl, LabelSelectIsTheControllersToGive)
{
    rig.board.press().setLabelSelect(false);
    openOnline();
    EXPECT_FALSE(field(kLabel).isEnabled());
    EXPECT_TRUE(field("txtColorCtrl(0)").isEnabled());
    rig.board.press().setLabelSelect(true);
    pass();
    EXPECT_TRUE(field(kLabel).isEnabled());
}

TEST_F(ColorControl, InManualEveryChangedBoxIsWritten)
{
    rig.board.press().setOperationalMode(PressModel::OperationalMode::Manual);
    openWithLabelSelect();
    EXPECT_EQ(label("lblStatus(2)"), "MAN");
    EXPECT_EQ(label("lblStatus(3)"), "OFF");
    button("chkDuctorManual(1)").click();
    EXPECT_EQ(wire.to(61), std::vector<int>{2});
    button("cmdDuctorsManualON").click();
    EXPECT_EQ(wire.to(61), (std::vector<int>{2, 3, 7, 15, 31, 63, 127, 255}));
    pass();
    wire.clear();
    button("cmdDuctorsManualOFF").click();
    EXPECT_EQ(wire.to(61), (std::vector<int>{254, 252, 248, 240, 224, 192, 128, 0}));
}

TEST_F(ColorControl, InAutoTheBoxesAreClearedAndGreyed)
{
    rig.board.poke(kManualDuctors, 0);
    rig.board.press().setOperationalMode(PressModel::OperationalMode::Auto);
    openWithLabelSelect();
    EXPECT_EQ(label("lblStatus(2)"), "AUTO");
    EXPECT_EQ(label("lblStatus(3)"), "ON");
    EXPECT_FALSE(button("chkDuctorManual(0)").isEnabled());
    EXPECT_FALSE(button("cmdDuctorsManualON").isEnabled());
}

TEST_F(ColorControl, AMaximumOnOfZeroShowsNoDensity)
{
    rig.board.poke(kMaxOn, 0);
    openWithLabelSelect();
    for (int d = 0; d < kDuctors; ++d)
        EXPECT_EQ(label(qPrintable(QStringLiteral("lblColorCtrl(%1)").arg(d))), "-");
    EXPECT_TRUE(rig.person.boxes.empty());
}

TEST_F(ColorControl, ALabelNumberOutOfRangeDoesNotReachBeyondTheData)
{
    rig.board.pokeWord(kLabelNumber, 65535);
    openWithLabelSelect();
    EXPECT_EQ(text(kLabel), "65535");
    enter("txtColorCtrl(0)", "7");
    EXPECT_EQ(slot(labelBase(99)), 7);
}

TEST_F(ColorControl, OffLineTheLabelsOfTheWorkingDataAreEdited)
{
    openOfflineEditing();
    EXPECT_FALSE(field(kStationEntry).isEnabled());
    EXPECT_FALSE(button("chkDuctorManual(0)").isEnabled());
    enter(kLabel, "5");
    EXPECT_EQ(slot(13), 5);
    enter("txtColorCtrl(0)", "20");
    EXPECT_EQ(slot(labelBase(5)), 20);
    enter("txtColorCtrl(8)", "79");
    ASSERT_EQ(rig.person.boxes.size(), 1U);
    EXPECT_EQ(rig.person.boxes[0].text, "Only a Number Between 80 and 500 can be Entered");
    EXPECT_TRUE(wire.bytes.empty());
}

TEST_F(ColorControl, OffLineWithoutOfflineEditingAllIsGreyed)
{
    open();
    EXPECT_FALSE(field("txtColorCtrl(0)").isEnabled());
    EXPECT_FALSE(field(kLabel).isEnabled());
    EXPECT_FALSE(field(kStationEntry).isEnabled());
    EXPECT_EQ(text("txtColorCtrl(8)"), "200");
}

} // namespace
} // namespace tambrix
