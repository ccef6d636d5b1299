#pragma once

#include "data/alarm_message.h"
#include "shell/file_commands.h"
#include "shell/program_state.h"
#include "shell/screen.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <array>
#include <functional>
#include <memory>

class QAction;
class QMenu;

namespace tambrix {

class ScreenPlace;
class StatusPanels;
class Toolbar;
class ToolsMenu;

/// The child screens, in Window-menu order.
enum class ScreenId { MainDisplay, SetupParameters, ShiftData, ColorControl, IoStates };
inline constexpr int kScreens = 5;

/// Makes one child screen; empty while there is none for that item of the Window menu.
using ScreenFactory = std::function<std::unique_ptr<Screen>(ProgramState&)>;
/// One factory for each `ScreenId`, in that order.
using ScreenTable = std::array<ScreenFactory, kScreens>;

/// What the menu items do whose rooms stand beside the shell. An empty command greys its item.
struct MenuCommands
{
    std::function<void()> reportSetup;
    std::function<void()> printReport;
    std::function<void()> downloadProgram;
    std::function<void()> commPort;
    std::function<void()> targetBoard;
    std::function<void()> helpTopics;
    std::function<void()> about;
};

/// The program's frame: menus, status bar, one child screen at a time, and the 500 ms poll of the
/// controller's alarm word. Closing it closes the port.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(ProgramState& state, ScreenTable screens, const MenuCommands& commands);
    ~MainWindow() override;

    /// Shows this child screen, closing the one shown before.
    void showScreen(ScreenId screen);
    ScreenId currentScreen() const { return m_currentScreen; }

    /// New, Open, Save and the like, and the recent files.
    FileCommands& files() { return m_files; }

    /// View > Online Data and Offline Data. Pass their turn while the link is busy.
    void goOnline() { m_state.setOnline(true); }
    void goOffline() { m_state.setOnline(false); }

    /// The menu of what goes beyond the controller's own screens; hidden while it is empty.
    ToolsMenu& tools() { return *m_tools; }

    /// The bar below the menus; rooms beside the shell add their tools to it.
    Toolbar& toolbar() { return *m_toolbar; }

    /// The background poll; stopped for transfers that need the link to themselves.
    QTimer& backgroundPoll() { return m_poll; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void load();
    void buildFileMenu(const MenuCommands& commands);
    void buildEditMenu(const MenuCommands& commands);
    void buildViewMenu(const MenuCommands& commands);
    void buildWindowMenu();
    void buildHelpMenu(const MenuCommands& commands);
    void buildToolbar();
    void showMode(bool online);
    void poll();
    SystemMessage pollMessage();
    void editPasscode();
    void showCaption();
    void showRecentFiles();
    void addRecentFile(const QString& path);
    void unloadScreen();
    void closeLater();

    ProgramState& m_state;
    FileCommands m_files;
    ScreenTable m_screens;
    StatusPanels* m_panels;
    ScreenPlace* m_place;
    Toolbar* m_toolbar;
    QPointer<Screen> m_screen;
    ScreenId m_currentScreen = ScreenId::MainDisplay;
    bool m_loaded = false;
    QTimer m_poll;
    QMenu* m_fileMenu = nullptr;
    QAction* m_belowRecent = nullptr; ///< the recent files stand above this item
    QList<QAction*> m_recentItems;
    ToolsMenu* m_tools = nullptr;
    QAction* m_online = nullptr;
    QAction* m_offline = nullptr;
    QAction* m_passcode = nullptr;
    std::array<QAction*, kScreens> m_windowItems{};
};

} // namespace tambrix
