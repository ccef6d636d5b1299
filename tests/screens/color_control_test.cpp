#include "screens/color_control_screen.h"

#include "simulator/memory_map.h"
#include "tests/screens/screen_rig.h"

#include <algorithm>

namespace tambrix {
namespace {

namespace map = memory_map;
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
        openWithLabelSelect();
        enter(kLabel, label);
        ASSERT_TRUE(PressRig::eventually([this] { return loadedBytes() >= kFirstBytes; }));
        ASSERT_EQ(text("txtColorCtrl(15)"), "-");
    }

    int loadedBytes() const
    {
        return static_cast<int>(std::ranges::count_if(wire.writes, [](const WireWrite& write) {
            return write.address >= map::workingOn(0) && write.address < map::workingCycle(8);
        }));
    }

    bool loaded(int label)
    {
        const auto last = QString::number(rig.board.peekWord(map::labelCycle(label, 7)));
        return PressRig::eventually([&] { return text("txtColorCtrl(15)") == last; });
    }

    void SetUp() override
    {
        for (int d = 0; d < kDuctors; ++d) { // sound durations, different for both labels
            for (const int label : {5, 6}) {
                rig.board.poke(map::labelOn(label, d), static_cast<std::uint8_t>(10 + label + d));
                rig.board.pokeWord(map::labelCycle(label, d),
                                   static_cast<std::uint16_t>(160 + label + d));
            }
        }
    }
};

TEST_F(ColorControl, ADurationGoesToTheWorkingRegisterAndToTheLabel)
{
    rig.board.pokeWord(map::kMaxCycle, 650); // the working data set says 500
    openWithLabelSelect();
    enter("txtColorCtrl(0)", text("txtColorCtrl(0)").toLatin1());
    EXPECT_TRUE(wire.writes.empty()) << "unchanged";
    enter("txtColorCtrl(0)", "33");
    clickArrow("txtColorCtrl(0)", true);
    const int stored = map::labelOn(0, 0);
    EXPECT_EQ(wire.writes, (Writes{{720, 33}, {stored, 33}, {720, 34}, {stored, 34}}));
    EXPECT_EQ(slot(labelBase(0)), 34);
    EXPECT_TRUE(button("cmdDefault").hasFocus());
    wire.clear();
    enter("txtColorCtrl(9)", "300");
    const int cycle = map::labelCycle(0, 1);
    EXPECT_EQ(wire.writes, (Writes{{732, 44}, {733, 1}, {cycle, 44}, {cycle + 1, 1}}));
    EXPECT_EQ(slot(labelBase(0) + 9), 300);

    rig.board.poke(map::workingOn(0), 120); // limits have moved since the last check
    rig.board.pokeWord(map::workingCycle(0), 600);
    pass();
    wire.clear();
    clickArrow("txtColorCtrl(0)", false);
    clickArrow("txtColorCtrl(8)", true);
    EXPECT_EQ(wire.to(map::workingOn(0)), std::vector<int>{119});
    EXPECT_EQ(wire.to(map::workingCycle(0)), std::vector<int>{601 - 512});
}

TEST_F(ColorControl, ALabelChangeLoadsSixteenDurationsAndReturnsTheFocus)
{
    rig.board.pokeWord(map::kMaxCycle, 500);
    rig.board.poke(map::kMaxOn, 150);
    rig.board.poke(map::labelOn(5, 1), 150);
    rig.board.poke(map::labelOn(5, 2), 151);                                         // too long
    const std::uint16_t cycles[][2] = {{77, 200}, {79, 79}, {500, 500}, {501, 200}}; // ON is 18, 19
    for (int d = 3; d < 7; ++d)
        rig.board.pokeWord(map::labelCycle(5, d), cycles[d - 3][0]);
    openWithLabelSelect();
    enter(kLabel, "5");
    EXPECT_EQ(wire.to(686), std::vector<int>{5});
    EXPECT_EQ(text("txtColorCtrl(0)"), "-");
    ASSERT_TRUE(loaded(5));
    EXPECT_EQ(loadedBytes(), 24);
    EXPECT_EQ(rig.board.peek(map::workingOn(0)), 15);
    EXPECT_EQ(rig.board.peek(map::workingOn(1)), 150);
    EXPECT_EQ(rig.board.peek(map::workingOn(2)), 0);
    for (int d = 3; d < 7; ++d)
        EXPECT_EQ(rig.board.peekWord(map::workingCycle(d)), cycles[d - 3][1]) << d;
    EXPECT_EQ(rig.board.peek(map::labelOn(5, 2)), 151); // the label itself stays as it is
    EXPECT_EQ(label("lblColorCtrl(2)"), "0.0%");
    EXPECT_EQ(slot(13), 5);
    EXPECT_TRUE(PressRig::eventually([this] { return field(kLabel).hasFocus(); }));
}

TEST_F(ColorControl, AStoredDurationThatCannotBeReadIsTriedAgainAndThenLeft)
{
    openWithLabelSelect();
    for (const int lost : {2, 3}) {
        SCOPED_TRACE(lost);
        rig.board.poke(map::workingOn(0), 77);
        enter(kLabel, "5");
        wire.loseReads(map::labelOn(5, 0) / 256, lost);
        ASSERT_TRUE(loaded(5));
        EXPECT_EQ(rig.board.peek(map::workingOn(0)), lost == 2 ? 15 : 77);
        EXPECT_EQ(rig.board.peek(map::workingOn(1)), 16);
        EXPECT_EQ(rig.board.peekWord(map::workingCycle(0)), 165);
        enter(kLabel, "6");
        ASSERT_TRUE(loaded(6));
    }
    ASSERT_EQ(rig.person.boxes.size(), 1U);
    EXPECT_TRUE(rig.person.boxes[0].text.ends_with("ON Duration ductor 1"));
}

/// One lost answer at a time, at every place from label select to the first durations.
TEST_F(ColorControl, AFailedReadChangesNothing)
{
    rig.board.press().stop();
    rig.board.pokeWord(map::kLabelNumber, 6);
    rig.board.poke(map::workingOn(0), 33);
    openWithLabelSelect();
    for (std::size_t at = 0; at < 24; ++at) {
        SCOPED_TRACE(at);
        rig.line.setFault(rig.line.exchanges() + at, {.kind = LineFault::Kind::LoseReply});
        for (int turn = 0; turn < 40; ++turn) {
            PressRig::turns(1);
            ASSERT_EQ(text(kLabel), "6");
            ASSERT_EQ(slot(13), 6);
            ASSERT_EQ(text("txtColorCtrl(0)"), "33");
            ASSERT_TRUE(field(kLabel).isEnabled());
        }
    }
}

TEST_F(ColorControl, TheFocusStaysAwayFromWhatTheUserDidNotChoose)
{
    openWithLabelSelect();
    enter(kLabel, "0"); // unchanged: nothing is loaded, no focus comes back
    clickArrow(kLabel, true);
    ASSERT_TRUE(PressRig::eventually([this] { return text("txtColorCtrl(15)") != "-"; }));
    EXPECT_TRUE(button("cmdDefault").hasFocus());
    wire.clear();
    type(kLabel, "4");
    rig.board.press().setLabelSelect(false);
    ASSERT_TRUE(PressRig::eventually([this] { return !field(kLabel).isEnabled(); }));
    EXPECT_TRUE(button("cmdDefault").hasFocus());
    for (const auto key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right}) {
        QTest::keyClick(&button("cmdDefault"), key);
        EXPECT_TRUE(button("cmdDefault").hasFocus());
    }
    EXPECT_EQ(text(kLabel), "1");
    EXPECT_TRUE(wire.writes.empty());
}

TEST_F(ColorControl, AnotherDataSetIsShownAsIfTheScreenWereNew)
{
    rig.state.gOfflineEditing = true;
    open();
    enter(kLabel, "12");
    type("txtColorCtrl(0)", "5");
    rig.state.gWorkingData = rig.state.gDefaultData;
    rig.state.gWorkingData.Value[13] = 33;
    rig.state.gWorkingData.Value[static_cast<std::size_t>(labelBase(33))] = 77;
    const auto opened = rig.state.gWorkingData.Value;
    screen().reload();
    pass();
    EXPECT_EQ(text(kLabel), "33");
    field("txtColorCtrl(0)").setFocus();
    QTest::keyClick(&field("txtColorCtrl(0)"), Qt::Key_Escape);
    EXPECT_EQ(text("txtColorCtrl(0)"), "77");
    EXPECT_EQ(rig.state.gWorkingData.Value, opened);
}

TEST_F(ColorControl, StepsOffLineAreUndoneAndOnLineThereAreNone)
{
    rig.state.gOfflineEditing = true;
    rig.state.labelNames.set(12, "Beer gold");
    open();
    enter(kLabel, "11");
    enter(kLabel, "12");
    enter("txtColorCtrl(0)", "5");
    enter("txtColorCtrl(0)", "7");
    pass();
    EXPECT_EQ(label("lblLabelName"), "Beer gold");
    QUndoStack& steps = rig.state.undoStack;
    ASSERT_EQ(steps.count(), 3) << "choosing labels is one";
    EXPECT_EQ(steps.undoText(), "Label 12 ON Duration, Ductor 1");
    steps.undo();
    EXPECT_EQ(slot(labelBase(12)), 5);
    steps.undo();
    steps.undo();
    EXPECT_EQ(slot(labelBase(12)), 0);
    EXPECT_EQ(slot(13), 0);
    steps.clear();
    rig.goOnline();
    pass();
    enter("txtColorCtrl(0)", "9");
    EXPECT_EQ(steps.count(), 0);
}

TEST_F(ColorControl, ASpinnerClickRestartsTheLoad)
{
    beginLoad("5");
    clickArrow(kLabel, true);
    EXPECT_EQ(wire.to(686).back(), 6);
    EXPECT_EQ(text("txtColorCtrl(0)"), "-");
    ASSERT_TRUE(loaded(6));
    pass();
    for (int d = 0; d < kDuctors; ++d)
        EXPECT_EQ(rig.board.peek(map::workingOn(d)), rig.board.peek(map::labelOn(6, d)));
    EXPECT_EQ(slot(13), 6);
    EXPECT_EQ(text("txtColorCtrl(0)"), "16");
}

TEST_F(ColorControl, APulledCableEndsTheLoad)
{
    beginLoad("5");
    rig.line.unplug();
    ASSERT_TRUE(PressRig::eventually([this] { return !rig.state.gLink.OnlineMode; }));
    EXPECT_EQ(rig.person.boxes.size(), 1U);
}

TEST_F(ColorControl, OfflineDataEndsTheLoad)
{
    beginLoad("5");
    goOffline();
    wire.clear();
    EXPECT_TRUE(PressRig::eventually([this] { return text("txtColorCtrl(15)") == "200"; }));
    EXPECT_TRUE(wire.bytes.empty());
    const auto labelSelected = [this] { return field(kLabel).isEnabled(); };
    rig.goOnline();
    ASSERT_TRUE(PressRig::eventually(labelSelected));
    enter(kLabel, "6");
    goOffline(); // before the load has begun
    pass();
    wire.clear();
    rig.goOnline();
    ASSERT_TRUE(PressRig::eventually(labelSelected));
    pass();
    EXPECT_EQ(loadedBytes(), 0) << "nor does it begin now";
    EXPECT_TRUE(rig.person.boxes.empty());
}

TEST_F(ColorControl, TheStationHasTwoEncodings)
{
    openOnline();
    enter(kStationEntry, "9");
    EXPECT_EQ(rig.person.boxes.size(), 1U);
    enter(kStationEntry, "3");
    EXPECT_EQ(wire.to(63), (std::vector<int>{1, 4, 4})) << "as shown when it opens, then as a bit";
    type(kStationEntry, "77");
    goOffline();
    rig.goOnline();
    pass();
    EXPECT_EQ(wire.to(63).back(), 3) << "what was not entered is not sent";
}

TEST_F(ColorControl, WithLabelSelectAndInManualEveryChangedBoxIsWritten)
{
    rig.board.press().setOperationalMode(PressModel::OperationalMode::Manual);
    rig.board.press().setLabelSelect(false);
    openOnline();
    EXPECT_TRUE(field("txtColorCtrl(0)").isEnabled());
    EXPECT_FALSE(field(kLabel).isEnabled()) << "label select is the controller's to give";
    EXPECT_FALSE(button("chkDuctorManual(1)").isEnabled());
    rig.board.press().setLabelSelect(true);
    pass();
    EXPECT_TRUE(field(kLabel).isEnabled());
    EXPECT_EQ(label("lblStatus(2)"), "MAN");
    EXPECT_EQ(label("lblStatus(3)"), "OFF");
    button("chkDuctorManual(1)").click();
    EXPECT_EQ(wire.to(61), std::vector<int>{2});
    button("cmdDuctorsManualON").click();
    EXPECT_EQ(wire.to(61), (std::vector<int>{2, 3, 7, 15, 31, 63, 127, 255}));
    pass();
    wire.clear();
    type("txtColorCtrl(0)", "999");
    clickAtOnce("cmdDuctorsManualOFF");
    QCoreApplication::processEvents();
    EXPECT_TRUE(wire.writes.empty()) << "an entry was refused";
    EXPECT_EQ(rig.person.boxes.size(), 1U);
    field("txtColorCtrl(0)").endEditing();
    button("cmdDuctorsManualOFF").click();
    EXPECT_EQ(wire.to(61), (std::vector<int>{254, 252, 248, 240, 224, 192, 128, 0}));

    rig.board.press().setOperationalMode(PressModel::OperationalMode::Auto);
    pass();
    EXPECT_EQ(label("lblStatus(2)"), "AUTO");
    EXPECT_EQ(label("lblStatus(3)"), "ON");
    EXPECT_FALSE(button("chkDuctorManual(0)").isEnabled());
    EXPECT_EQ(spoken("lblStatus(2)"), "Operational Mode: AUTO");
    EXPECT_EQ(spoken("cmdDuctorsManualOFF"), "Ductors OFF All");

    rig.board.poke(map::kManualDuctors, 2);
    pass();
    int changes = 0;
    QObject::connect(&button("chkDuctorManual(1)"), &QAbstractButton::toggled, [&] { ++changes; });
    pass();
    EXPECT_EQ(changes, 0) << "the boxes do not flicker";
}

TEST_F(ColorControl, ANumberThatNoLabelHasIsShownAndHasNoStorage)
{
    rig.board.pokeWord(map::kLabelNumber, 150);
    rig.board.poke(map::kMaxOn, 0); // no density is a part of nothing
    openWithLabelSelect();
    EXPECT_EQ(label("lblColorCtrl(0)"), "-");
    const auto values = rig.state.gWorkingData.Value;
    EXPECT_EQ(text(kLabel), "150");
    enter("txtColorCtrl(8)", "444");
    EXPECT_EQ(wire.writes, (Writes{{730, 444 - 256}, {731, 1}}));
    goOffline();
    rig.state.gOfflineEditing = true;
    pass();
    EXPECT_EQ(text("txtColorCtrl(8)"), "-");
    EXPECT_FALSE(field("txtColorCtrl(8)").isEnabled());
    EXPECT_EQ(slot(13), 150);
    EXPECT_EQ(rig.state.gWorkingData.Value, values);
    enter(kLabel, "99");
    pass();
    EXPECT_TRUE(field("txtColorCtrl(8)").isEnabled());
}

TEST_F(ColorControl, OffLineTheLabelsOfTheWorkingDataAreEditedIfAllowed)
{
    open();
    EXPECT_EQ(text("txtColorCtrl(8)"), "200");
    EXPECT_FALSE(field("txtColorCtrl(0)").isEnabled());
    EXPECT_FALSE(field(kLabel).isEnabled());
    rig.state.gOfflineEditing = true;
    pass();
    EXPECT_FALSE(field(kStationEntry).isEnabled());
    EXPECT_FALSE(button("chkDuctorManual(0)").isEnabled());
    enter(kLabel, "5");
    EXPECT_EQ(slot(13), 5);
    enter("txtColorCtrl(0)", "20");
    EXPECT_EQ(slot(labelBase(5)), 20);
    EXPECT_TRUE(wire.bytes.empty());

    enter("txtColorCtrl(8)", "180"); // the durations of a ductor limit each other
    const std::pair<const char*, const char*> limits[] = {{"txtColorCtrl(0)", "0 and 120"},
                                                          {"txtColorCtrl(7)", "0 and 140"},
                                                          {"txtColorCtrl(8)", "80 and 500"},
                                                          {"txtColorCtrl(15)", "60 and 500"},
                                                          {kLabel, "0 and 99"}};
    for (const auto& [name, range] : limits) {
        rig.person.boxes.clear();
        enter(name, "9999");
        ASSERT_EQ(rig.person.boxes.size(), 1U);
        EXPECT_EQ(rig.person.boxes[0].title, "Color Control");
        EXPECT_EQ(rig.person.boxes[0].text,
                  std::string("Only a Number Between ") + range + " can be Entered");
        field(name).endEditing();
    }
}

} // namespace
} // namespace tambrix
