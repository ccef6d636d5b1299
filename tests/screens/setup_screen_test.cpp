#include "screens/setup_screen.h"

#include "tests/screens/screen_rig.h"

namespace tambrix {
namespace {

using Writes = std::vector<WireWrite>;

class Setup : public ScreenRig<SetupScreen>
{
};

struct TypedCase
{
    const char* field;
    const char* typed;
    int slot;
    std::int32_t value;
    Writes writes; // of one of the two checks
};

class TypedParameter : public Setup, public testing::WithParamInterface<TypedCase>
{
};

TEST_P(TypedParameter, IsWrittenTwiceAndStoredAmongLabelSix)
{
    const TypedCase& given = GetParam();
    openOnline();
    wire.clear();
    enter(given.field, given.typed);
    Writes twice = given.writes;
    twice.insert(twice.end(), given.writes.begin(), given.writes.end());
    EXPECT_EQ(wire.writes, twice);
    EXPECT_EQ(slot(given.slot), given.value);
    EXPECT_EQ(slot(given.slot - 114), rig.state.gDefaultData.Value[std::size_t(given.slot - 114)]);
    EXPECT_TRUE(rig.person.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Fields, TypedParameter,
    testing::Values(TypedCase{"txtSetup(0)", "300", 122, 300, {{690, 44}, {691, 1}}},
                    TypedCase{"txtSetup(1)", "150", 123, 150, {{692, 150}}},
                    TypedCase{"txtSetup(2)", "65", 124, 65, {{1013, 65}}},
                    TypedCase{"txtSetup(3)", "50", 125, 50, {{1014, 50}}}));

TEST_F(Setup, ATypedValueIsOnTheWireByteForByte)
{
    openOnline();
    rig.state.gLink.RSRead("B65"); // the board is in read mode
    wire.clear();
    type("txtSetup(0)", "300");
    field("txtSetup(0)").commit();
    EXPECT_EQ(wire.bytes,
              (std::vector<std::uint8_t>{0xFF, 0x02, 0x02, 0xB2, 0x2C, 0x02, 0xB3, 0x01}));
}

TEST_F(Setup, ASpinnerStepIsWrittenOnceAndStoredInItsOwnSlot)
{
    openOnline();
    field("txtSetup(0)").setText("300");
    wire.clear();
    clickArrow("txtSetup(0)", true);
    EXPECT_EQ(wire.writes, (Writes{{690, 45}, {691, 1}}));
    EXPECT_EQ(slot(8), 301);
    EXPECT_EQ(slot(122), 200);
}

TEST_F(Setup, OffLineATypedValueGivesWayToItsSlot)
{
    openOfflineEditing();
    enter("txtSetup(0)", "300");
    EXPECT_EQ(slot(8), 500);
    EXPECT_EQ(slot(122), 300);
    pass();
    EXPECT_EQ(text("txtSetup(0)"), "500");
    clickArrow("txtSetup(0)", false);
    EXPECT_EQ(slot(8), 499);
    EXPECT_TRUE(wire.bytes.empty());
}

TEST_F(Setup, AFractionIsWrittenAsTyped)
{
    openOnline();
    wire.clear();
    enter("txtSetup(2)", "12.5");
    EXPECT_EQ(wire.to(1013), (std::vector<int>{125, 125})); // the link drops the point
    EXPECT_EQ(slot(124), 12);
}

TEST_F(Setup, ARefusedValueTouchesNothing)
{
    openOnline();
    const QString before = text("txtSetup(0)");
    wire.clear();
    enter("txtSetup(0)", "abc");
    pass();
    EXPECT_TRUE(wire.writes.empty());
    ASSERT_EQ(rig.person.boxes.size(), 1U);
    EXPECT_EQ(rig.person.boxes[0].title, "Set-up");
    EXPECT_EQ(rig.person.boxes[0].text, "Only a Number Between 140 and 650 can be Entered");
    EXPECT_EQ(text("txtSetup(0)"), before);
    EXPECT_TRUE(field("txtSetup(0)").hasFocus());
}

TEST_F(Setup, AnEditedFieldIsHeldUntilTheSecondEscape)
{
    openOnline();
    type("txtSetup(0)", "31");
    rig.board.pokeWord(690, 444);
    pass();
    EXPECT_EQ(text("txtSetup(0)"), "31");
    QTest::keyClick(&field("txtSetup(0)"), Qt::Key_Escape);
    pass();
    EXPECT_NE(text("txtSetup(0)"), "444");
    QTest::keyClick(&field("txtSetup(0)"), Qt::Key_Escape);
    pass();
    EXPECT_EQ(text("txtSetup(0)"), "444");
    EXPECT_EQ(rig.board.peekWord(690), 444);
}

TEST_F(Setup, AValueOutsideTheLimitsIsShownAsItIs)
{
    rig.board.pokeWord(690, 9000);
    openOnline();
    EXPECT_EQ(text("txtSetup(0)"), "9000");
    EXPECT_EQ(slot(8), 500);
}

TEST_F(Setup, FeedbackBoxesShowAndWriteTheByte)
{
    rig.board.poke(694, 0);
    openOnline();
    wire.clear();
    button("chkFeedback(0)").click();
    button("chkFeedback(2)").click();
    EXPECT_EQ(wire.to(694), (std::vector<int>{1, 5}));
    EXPECT_EQ(slot(12), 5);
    rig.board.poke(694, 0x81);
    pass();
    EXPECT_TRUE(button("chkFeedback(0)").isChecked());
    EXPECT_FALSE(button("chkFeedback(2)").isChecked());
    EXPECT_TRUE(button("chkFeedback(7)").isChecked());
    EXPECT_EQ(wire.to(694).size(), 2U); // showing is not clicking
}

TEST_F(Setup, TheButtonsWriteAllOrNone)
{
    openOnline();
    wire.clear();
    button("cmdEnableFeedbackAll").click();
    EXPECT_EQ(wire.writes, (Writes{{694, 255}}));
    EXPECT_EQ(slot(12), 255);
    pass();
    for (int k = 0; k < kDuctors; ++k)
        EXPECT_TRUE(button(qPrintable(QStringLiteral("chkFeedback(%1)").arg(k))).isChecked());
    button("cmdDisableFeedbackAll").click();
    EXPECT_EQ(wire.to(694), (std::vector<int>{255, 0}));
    EXPECT_EQ(slot(12), 0);
}

TEST_F(Setup, OffLineTheControlsFollowOfflineEditing)
{
    open();
    EXPECT_FALSE(field("txtSetup(0)").isEnabled());
    EXPECT_FALSE(button("cmdEnableFeedbackAll").isEnabled());
    EXPECT_EQ(text("txtSetup(1)"), "200");
    rig.state.gOfflineEditing = true;
    EXPECT_TRUE(PressRig::eventually([this] { return field("txtSetup(0)").isEnabled(); }));
    button("cmdEnableFeedbackAll").click();
    EXPECT_EQ(slot(12), 255);
    pass();
    EXPECT_TRUE(button("chkFeedback(7)").isChecked());
    EXPECT_TRUE(wire.bytes.empty());
}

TEST_F(Setup, GoingOffLineDropsTheEdit)
{
    openOnline();
    type("txtSetup(0)", "7");
    rig.state.gLink.OnlineMode = false;
    rig.state.ApplyOnlineMode();
    EXPECT_TRUE(PressRig::eventually([this] { return text("txtSetup(0)") == "500"; }));
    EXPECT_FALSE(field("txtSetup(0)").isEnabled());
    EXPECT_TRUE(rig.person.boxes.empty());
}

TEST_F(Setup, AnUnpluggedCableTakesTheProgramOffLine)
{
    openOnline();
    rig.line.unplug();
    ASSERT_TRUE(PressRig::eventually([this] { return !rig.state.gLink.OnlineMode; }));
    pass();
    ASSERT_EQ(rig.person.boxes.size(), 1U);
    EXPECT_EQ(rig.person.boxes[0].title, "WARNING - Communication Error!");
    EXPECT_FALSE(field("txtSetup(0)").isEnabled());
}

} // namespace
} // namespace tambrix
