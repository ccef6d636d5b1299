#include "screens/setup_screen.h"

#include "tests/screens/screen_rig.h"

namespace tambrix {
namespace {

using Writes = std::vector<WireWrite>;

using SetupTest = ScreenRig<SetupScreen>;

TEST_F(SetupTest, ATypedValueIsWrittenTwiceAndStoredAmongLabelSix)
{
    struct Case
    {
        const char* field;
        const char* typed;
        int slot;
        std::int32_t value;
        Writes writes; // of one of the two checks
    };
    const Case cases[] = {
        {"txtSetup(0)", "300", 122, 300, {{690, 44}, {691, 1}}},
        {"txtSetup(1)", "150", 123, 150, {{692, 150}}},
        {"txtSetup(2)", "65", 124, 65, {{1013, 65}}},
        {"txtSetup(2)", "12.5", 124, 12, {{1013, 125}}}, // the link drops the point
        {"txtSetup(3)", "50", 125, 50, {{1014, 50}}}};
    openOnline();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.field);
        button("cmdDefault").setFocus(); // leaving a field writes it
        wire.clear();
        enter(c.field, c.typed);
        Writes twice = c.writes;
        twice.insert(twice.end(), c.writes.begin(), c.writes.end());
        EXPECT_EQ(wire.writes, twice);
        EXPECT_EQ(slot(c.slot), c.value);
        const int own = c.slot - 114;
        EXPECT_EQ(slot(own), rig.state.gDefaultData.Value[static_cast<std::size_t>(own)]);
    }
    EXPECT_TRUE(rig.person.boxes.empty());
}

TEST_F(SetupTest, EveryFieldHasItsLimitsAndWhatIsRefusedShowsOneBox)
{
    const char* const cases[][3] = {
        {"txtSetup(0)", "139", "Only a Number Between 140 and 650 can be Entered"},
        {"txtSetup(0)", "651", "Only a Number Between 140 and 650 can be Entered"},
        {"txtSetup(1)", "201", "Only a Number Between 0 and 200 can be Entered"},
        {"txtSetup(2)", "66", "Only a Number Between 0 and 65 can be Entered"},
        {"txtSetup(3)", "49", "Only a Number Between 50 and 150 can be Entered"},
        {"txtSetup(3)", "151", "Only a Number Between 50 and 150 can be Entered"},
        {"txtSetup(0)", "+300", "Error:\rOnly Numerical Data Allowed."}, // by the link
        {"txtSetup(3)", "149.5", "Error:\rEntry out of Range (0-255)."}};
    openOnline();
    wire.clear();
    for (const auto& [name, typed, refusal] : cases) {
        SCOPED_TRACE(typed);
        rig.person.boxes.clear();
        enter(name, typed);
        ASSERT_EQ(rig.person.boxes.size(), 1U);
        EXPECT_EQ(rig.person.boxes[0].text, refusal);
        field(name).endEditing();
    }
    EXPECT_TRUE(wire.to(690).empty());
    EXPECT_TRUE(wire.to(1014).empty());
}

TEST_F(SetupTest, AnEditedFieldIsHeldUntilEscapeOrOffLine)
{
    openOnline();
    type("txtSetup(0)", "31");
    rig.board.pokeWord(690, 9000); // outside the limits
    pass();
    EXPECT_EQ(text("txtSetup(0)"), "31");
    QTest::keyClick(&field("txtSetup(0)"), Qt::Key_Escape);
    QTest::keyClick(&field("txtSetup(0)"), Qt::Key_Escape);
    pass();
    EXPECT_EQ(text("txtSetup(0)"), "9000");
    EXPECT_EQ(rig.board.peekWord(690), 9000);

    type("txtSetup(0)", "7");
    wire.clear();
    goOffline(); // perhaps behind a modal window, where the loop stands still
    EXPECT_FALSE(field("txtSetup(0)").isEnabled()) << "shown at once";
    EXPECT_TRUE(button("cmdDefault").hasFocus());
    EXPECT_EQ(text("txtSetup(0)"), "9000");
    pass();
    EXPECT_EQ(text("txtSetup(0)"), "500");
    EXPECT_TRUE(rig.person.boxes.empty()) << "going off line drops the edit";
}

TEST_F(SetupTest, FeedbackBoxesAndButtonsShowAndWriteTheByte)
{
    rig.board.poke(694, 0);
    openOnline();
    button("chkFeedback(0)").click();
    toggleByReader("chkFeedback(2)");
    EXPECT_EQ(wire.to(694), (std::vector<int>{1, 5}));
    EXPECT_EQ(slot(12), 5);
    rig.board.poke(694, 0x81);
    pass();
    EXPECT_TRUE(button("chkFeedback(0)").isChecked());
    EXPECT_FALSE(button("chkFeedback(2)").isChecked());
    EXPECT_TRUE(button("chkFeedback(7)").isChecked());
    EXPECT_EQ(wire.to(694).size(), 2U) << "showing is not clicking";
    button("cmdEnableFeedbackAll").click();
    EXPECT_EQ(slot(12), 255);
    button("cmdDisableFeedbackAll").click();
    EXPECT_EQ(slot(12), 0);
    EXPECT_EQ(wire.to(694), (std::vector<int>{1, 5, 255, 0}));
}

TEST_F(SetupTest, AnEntryUnderWayIsCheckedBeforeAButtonActs)
{
    openOnline();
    wire.clear();
    const bool ticked = button("chkFeedback(0)").isChecked();
    const std::function<void()> actions[] = {
        [this] { clickAtOnce("cmdDisableFeedbackAll"); },
        [this] { button("cmdEnableFeedbackAll").click(); }, // as its access key does
        [this] { button("chkFeedback(0)").click(); }};
    for (const auto& action : actions) {
        rig.person.boxes.clear();
        type("txtSetup(0)", "999");
        action();
        QCoreApplication::processEvents();
        EXPECT_TRUE(wire.writes.empty());
        EXPECT_EQ(button("chkFeedback(0)").isChecked(), ticked);
        EXPECT_EQ(rig.person.boxes.size(), 1U);
    }
    type("txtSetup(0)", "300");
    button("cmdEnableFeedbackAll").click();
    EXPECT_EQ(wire.to(690), (std::vector<int>{44, 44}));
    EXPECT_EQ(wire.to(694), std::vector<int>{255});
}

TEST_F(SetupTest, OffLineTheControlsFollowOfflineEditing)
{
    open();
    EXPECT_FALSE(field("txtSetup(0)").isEnabled());
    EXPECT_FALSE(button("cmdEnableFeedbackAll").isEnabled());
    rig.state.gOfflineEditing = true;
    EXPECT_TRUE(PressRig::eventually([this] { return field("txtSetup(0)").isEnabled(); }));
    button("cmdEnableFeedbackAll").click();
    EXPECT_EQ(slot(12), 255);
    enter("txtSetup(0)", "300");
    EXPECT_EQ(slot(122), 300);
    pass();
    EXPECT_TRUE(button("chkFeedback(7)").isChecked());
    EXPECT_EQ(text("txtSetup(0)"), "500") << "the typed value gives way to its slot";
    clickArrow("txtSetup(0)", false);
    EXPECT_EQ(slot(8), 499);
    EXPECT_EQ(slot(122), 300);
    EXPECT_TRUE(wire.bytes.empty());
    rig.goOnline();
    EXPECT_TRUE(wire.writes.empty()) << "what the view reads and writes waits for the loop";
    clickArrow("txtSetup(0)", true); // before the first pass: from the controller's value
    EXPECT_EQ(wire.writes, (Writes{{690, 501 - 256}, {691, 1}}));
    EXPECT_TRUE(button("cmdDefault").hasFocus());
}

} // namespace
} // namespace tambrix
