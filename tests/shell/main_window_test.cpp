#include "shell/tools_menu.h"
#include "tests/support/window_rig.h"

#include <QMenuBar>
#include <QPointer>
#include <QStatusBar>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

/// A screen that only counts what is done with it.
class CountingScreen : public Screen
{
public:
    CountingScreen(ProgramState& shared, int& alive) : Screen(shared), m_alive(alive) { ++m_alive; }
    ~CountingScreen() override { --m_alive; }

    int loads = 0;
    int onlineViews = 0;
    int offlineViews = 0;

protected:
    void load() override { ++loads; }
    void applyOnlineView() override { ++onlineViews; }
    void applyOfflineView() override { ++offlineViews; }
    Task onlinePass() override
    {
        return readRegisters(m_registers, [](std::size_t, const QString&) {});
    }

private:
    int& m_alive;
    std::array<std::string, 3> m_registers = {"W112", "B100", "D940"};
};

struct ShellRig
{
    int alive = 0;
    CountingScreen* counting = nullptr; ///< the one made last
    WindowRig rig{screens()};

    ScreenTable screens()
    {
        ScreenTable table = WindowRig::defaultScreens();
        table[2] = [this](ProgramState& shared) {
            auto made = std::make_unique<CountingScreen>(shared, alive);
            counting = made.get();
            return made;
        };
        return table;
    }

    CountingScreen* showCounting()
    {
        rig.window->showScreen(ScreenId::ShiftData);
        return counting;
    }
};

} // namespace

TEST(MainWindowTest, FollowsTheMode)
{
    WindowRig rig;
    EXPECT_EQ(rig.status(), "System Message:  Program is Currently OFFLINE");
    EXPECT_FALSE(rig.item("mnuEditPasscode").isEnabled());
    EXPECT_FALSE(rig.item("mnuFileDownloadProgram").isEnabled()); // no command was given for it
    rig.item("mnuViewOnline").trigger();
    EXPECT_EQ(rig.mode(), "ONLINE");
    EXPECT_TRUE(rig.item("mnuViewOnline").isChecked());
    EXPECT_FALSE(rig.item("mnuViewOffline").isChecked());
    EXPECT_TRUE(rig.item("mnuEditPasscode").isEnabled());
    rig.item("mnuViewOnline").trigger(); // already on line: the check mark stays
    EXPECT_TRUE(rig.item("mnuViewOnline").isChecked());
    rig.control<QToolButton>("MODE").click();
    EXPECT_EQ(rig.mode(), "OFFLINE");
    EXPECT_FALSE(rig.port.isOpen());
    EXPECT_EQ(rig.board.mode(), 0);
}

TEST(MainWindowTest, EditsThePasscodeOnLine)
{
    WindowRig rig;
    rig.window->goOnline();
    rig.state.gLink.RSWrite("W1298", "4711");
    rig.item("mnuEditPasscode").trigger();
    EXPECT_EQ(rig.person.textPresets.back(), "4711");
    EXPECT_EQ(rig.board.mode(), 1) << "cancelled: nothing was written";
    rig.person.textAnswer = "123";
    rig.item("mnuEditPasscode").trigger();
    EXPECT_EQ(rig.board.peekWord(1298), 123);
    rig.person.textAnswer = "65536";
    rig.item("mnuEditPasscode").trigger();
    EXPECT_EQ(rig.person.boxes.back().title, "ENTRY ALERT");
    EXPECT_EQ(rig.board.peekWord(1298), 123);
}

TEST(MainWindowTest, ShowsOneScreenAtATime)
{
    ShellRig shell;
    EXPECT_NE(shell.rig.window->findChild<MainDisplay*>(), nullptr);
    const CountingScreen* counting = shell.showCounting();
    EXPECT_EQ(shell.alive, 1);
    EXPECT_TRUE(shell.rig.item("mnuWindow(2)").isChecked());
    EXPECT_FALSE(shell.rig.item("mnuWindow(0)").isChecked());
    EXPECT_EQ(shell.showCounting(), counting);               // already shown: nothing happens
    shell.rig.window->showScreen(ScreenId::SetupParameters); // not there
    EXPECT_EQ(shell.rig.window->currentScreen(), ScreenId::ShiftData);
    shell.rig.window->showScreen(ScreenId::MainDisplay);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(shell.alive, 0);
    EXPECT_EQ(shell.rig.window->findChildren<Screen*>().size(), 1);
}

TEST(ScreenTest, AppliesEachViewOnceAndLoadsOtherDataOffLineOnly)
{
    ShellRig shell;
    CountingScreen* screen = shell.showCounting();
    ASSERT_TRUE(PressRig::eventually([&] { return screen->offlineViews == 1; }));
    shell.rig.item("mnuFileNew").trigger();
    EXPECT_EQ(screen->loads, 1);
    shell.rig.item("mnuEditOffline").trigger();
    EXPECT_TRUE(PressRig::eventually([&] { return screen->offlineViews == 2; }));
    shell.rig.window->goOnline();
    EXPECT_TRUE(PressRig::eventually([&] { return screen->onlineViews == 1; }));
    PressRig::turns(50);
    shell.rig.item("mnuFileNew").trigger();
    EXPECT_EQ(screen->loads, 1);
    EXPECT_EQ(screen->onlineViews, 1);
    EXPECT_EQ(screen->offlineViews, 2);

    for (int i = 0; i < 21; ++i) { // in the middle of a pass, too
        shell.rig.control<QToolButton>("MODE").click();
        PressRig::turns(i % 5);
    }
    EXPECT_GT(screen->offlineViews, 2) << "shown at once";
    EXPECT_TRUE(shell.rig.person.boxes.empty());
}

TEST(ScreenTest, IsClosedInTheMiddleOfAPassAndSoIsTheProgram)
{
    ShellRig shell;
    shell.showCounting();
    shell.rig.window->goOnline();
    for (int i = 0; i < 6; ++i) {
        PressRig::turns(i + 1);
        shell.rig.window->showScreen(ScreenId::MainDisplay);
        const std::size_t exchanges = shell.rig.line.exchanges();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(shell.alive, 0);
        EXPECT_EQ(shell.rig.line.exchanges(), exchanges);
        shell.showCounting();
    }
    PressRig::turns(7);
    EXPECT_TRUE(shell.rig.window->close());
    EXPECT_FALSE(shell.rig.port.isOpen());
    EXPECT_EQ(shell.rig.board.mode(), 0);
    PressRig::turns(20);
    EXPECT_EQ(shell.alive, 0);
}

TEST(ScreenTest, AndPollWaitWhileABoxIsOpenInsideAnExchange)
{
    ShellRig shell;
    shell.showCounting();
    shell.rig.window->goOnline();
    PressRig::turns(5);
    int ticks = 0;
    std::size_t exchanges = 0;
    QTimer& poll = shell.rig.window->backgroundPoll();
    QObject::connect(&poll, &QTimer::timeout, [&] { ++ticks; });
    shell.rig.person.whileShown = [&] {
        exchanges = shell.rig.line.exchanges();
        ticks = 0;
        poll.setInterval(1);
        ASSERT_TRUE(PressRig::eventually([&] { return ticks > 5; }));
        shell.rig.window->showScreen(ScreenId::MainDisplay); // pass their turn as well
        shell.rig.window->goOffline();
        EXPECT_EQ(shell.rig.mode(), "ONLINE");
    };
    poll.setInterval(60'000); // it is the screen that shall meet the silence: a tick does not nest
    shell.rig.board.setPowered(false);
    ASSERT_TRUE(PressRig::eventually([&] { return !shell.rig.person.boxes.empty(); }));
    EXPECT_TRUE(PressRig::eventually([&] { return shell.rig.mode() == "OFFLINE"; }));
    EXPECT_EQ(shell.rig.person.boxes.size(), 1u);
    EXPECT_EQ(shell.rig.line.exchanges(), exchanges);
    EXPECT_EQ(shell.rig.window->currentScreen(), ScreenId::ShiftData);
}

TEST(MainWindowTest, ClosesAsSoonAsTheWaitForTheBoardIsOver)
{
    WindowRig rig;
    rig.window->goOnline();
    rig.person.whileShown = [&] { EXPECT_FALSE(rig.window->close()); };
    rig.board.setPowered(false);
    EXPECT_TRUE(PressRig::eventually([&] { return !rig.window->isVisible(); }));
    EXPECT_EQ(rig.person.boxes.size(), 1u);
}

TEST(ToolsMenuTest, ShowsOnceItHasSomethingAndKeepsItsOptions)
{
    const WindowRig rig;
    const QString ini = rig.folder.filePath("tools.ini");
    ToolsMenu& tools = rig.window->tools();
    QAction* menu = rig.window->menuBar()->actions().at(4);
    EXPECT_EQ(menu->text(), "&Tools");
    EXPECT_FALSE(menu->isVisible());
    int made = 0;
    QAction* window = tools.addWindow({"Window", "mnuToolsWindow", {}, {}}, [&](QWidget& parent) {
        ++made;
        return new QWidget(&parent, Qt::Window);
    });
    EXPECT_TRUE(menu->isVisible());
    window->trigger();
    window->trigger();
    EXPECT_EQ(made, 1);

    bool on = false;
    QAction* option =
        tools.addOption({"Option", "mnuToolsOption", {}, {}}, [&](bool b) { on = b; });
    EXPECT_FALSE(option->isChecked());
    tools.keepIn(ini);
    option->trigger();
    EXPECT_TRUE(on);
    const WindowRig next;
    on = false;
    next.window->tools().addOption({"Option", "mnuToolsOption", {}, {}}, [&](bool b) { on = b; });
    next.window->tools().keepIn(ini);
    EXPECT_TRUE(on);
}
