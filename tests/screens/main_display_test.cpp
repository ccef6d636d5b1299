#include "tests/support/window_rig.h"

#include <QAccessible>
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

/// What a screen reader is told to say at once.
struct Alerts
{
    static inline QStringList told;
    QAccessible::UpdateHandler m_before = QAccessible::installUpdateHandler(hear);

    Alerts()
    {
        told.clear();
        QAccessible::setActive(true);
    }
    ~Alerts()
    {
        QAccessible::setActive(false);
        QAccessible::installUpdateHandler(m_before);
    }
    static void hear(QAccessibleEvent* event)
    {
        if (event->type() == QAccessible::Alert)
            told << event->accessibleInterface()->text(QAccessible::Name);
    }
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

TEST(MainDisplayTest, ChangesOfModeAndAlarmsAreSpoken)
{
    DisplayRig rig;
    const Alerts alerts;
    rig.window->goOnline();
    EXPECT_EQ(Alerts::told.filter("Online").size(), 1);
    rig.board.press().raiseAlarm(2);
    EXPECT_TRUE(PressRig::eventually([] { return !Alerts::told.filter("Ductor 3").isEmpty(); }))
        << Alerts::told.join("; ").toStdString();
    rig.reset().click();
    EXPECT_TRUE(PressRig::eventually([] { return !Alerts::told.filter("No alarm").isEmpty(); }))
        << Alerts::told.join("; ").toStdString();
    rig.window->goOffline();
    EXPECT_EQ(Alerts::told.filter("Offline").size(), 1);
}
