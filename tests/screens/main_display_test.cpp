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

TEST(MainDisplayTest, FitsEightAlarmsIntoTheirFrameAndResetsThem)
{
    DisplayRig rig;
    rig.window->resize(1366, 768);
    rig.window->goOnline();
    for (int d = 0; d < 8; ++d)
        rig.board.press().raiseAlarm(d);
    ASSERT_TRUE(PressRig::eventually([&] { return rig.messages().count("Feedback Fault") == 8; }));
    const auto& view = rig.control<QPlainTextEdit>("txtMessageDisplay");
    const QSize needed = QFontMetrics(view.font()).size(Qt::TextExpandTabs, view.toPlainText());
    EXPECT_LE(needed.height(), view.viewport()->height());
    EXPECT_LE(needed.width(), view.viewport()->width());
    rig.reset().click();
    EXPECT_TRUE(PressRig::eventually([&] { return rig.messages().contains("System Normal"); }));
    EXPECT_EQ(rig.board.peek(65), 0);
}

TEST(MainDisplayTest, EverySpeedFitsOnEveryShowing)
{
    DisplayRig rig;
    rig.board.press().stop();
    rig.line.setBaud(0); // no time passes, so the controller's scan changes nothing
    const auto fits = [&](const char* speed) {
        const auto& label = rig.control<QLabel>("lblDisplay");
        return rig.speed() == speed &&
               QFontMetrics(label.font()).horizontalAdvance(label.text()) < label.width();
    };
    rig.window->goOnline();
    for (const char* speed : {"1234", "65535", "7"}) {
        rig.board.pokeWord(112, static_cast<std::uint16_t>(std::atoi(speed)));
        EXPECT_TRUE(PressRig::eventually([&] { return fits(speed); })) << speed;
    }
    rig.board.pokeWord(112, 65535);
    rig.window->showScreen(ScreenId::SetupParameters);
    rig.window->showScreen(ScreenId::MainDisplay);
    EXPECT_TRUE(PressRig::eventually([&] { return fits("65535"); }));
    EXPECT_EQ(rig.control<QLabel>("lblDisplay").accessibleName(), "Machine CPM: 65535");
}

TEST(MainDisplayTest, ABrokenLineDropsTheWholeProgramOffLineWithOneBox)
{
    DisplayRig rig;
    EXPECT_TRUE(rig.messages().contains("OFFLINE"));
    rig.window->goOnline();
    ASSERT_TRUE(PressRig::eventually([&] { return rig.speed().toInt() > 0; }));
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
