#include "tests/support/window_rig.h"

#include <QPlainTextEdit>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

struct DisplayRig : WindowRig
{
    DisplayRig() : WindowRig(ScreenTable{display, display, {}, {}, {}}) {}

    static std::unique_ptr<Screen> display(ProgramState& shared)
    {
        return std::make_unique<MainDisplay>(shared);
    }

    QString speed() const { return control<QLabel>("lblDisplay").text(); }
    QPushButton& reset() const { return control<QPushButton>("cmdAlarmReset"); }
    QString messages() const { return control<QPlainTextEdit>("txtMessageDisplay").toPlainText(); }
};

} // namespace

TEST(MainDisplayTest, ShowsEightAlarmsAndResetsThem)
{
    DisplayRig rig;
    rig.window->goOnline();
    for (int d = 0; d < 8; ++d)
        rig.board.press().raiseAlarm(d);
    ASSERT_TRUE(PressRig::eventually([&] { return rig.messages().count("Feedback Fault") == 8; }));
    rig.reset().click();
    EXPECT_TRUE(PressRig::eventually([&] { return rig.messages().contains("System Normal"); }));
    EXPECT_EQ(rig.board.peek(65), 0);
}

TEST(MainDisplayTest, ABrokenLineDropsTheWholeProgramOffLineWithOneBox)
{
    DisplayRig rig;
    EXPECT_TRUE(rig.messages().contains("OFFLINE"));
    rig.board.press().stop();
    rig.line.setBaud(0); // no time passes, so the controller's scan changes nothing
    rig.board.pokeWord(112, 65535);
    rig.window->goOnline();
    ASSERT_TRUE(PressRig::eventually([&] { return rig.speed() == "65535"; }));
    rig.line.setBaud(9600);
    EXPECT_TRUE(rig.reset().isEnabled());
    rig.line.unplug();
    ASSERT_TRUE(PressRig::eventually([&] { return rig.mode() == "OFFLINE"; }));
    ASSERT_TRUE(PressRig::eventually([&] { return rig.speed() == "-"; }));
    EXPECT_FALSE(rig.reset().isEnabled());
    EXPECT_EQ(rig.person.boxes.size(), 1u);
    const std::size_t exchanges = rig.line.exchanges();
    rig.reset().setEnabled(true);
    rig.reset().click();
    EXPECT_EQ(rig.line.exchanges(), exchanges);
}
