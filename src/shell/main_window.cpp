#include "shell/main_window.h"

#include "controls/forms.h"
#include "controls/frame_limit.h"
#include "data/link_text.h"
#include "data/parameters.h"
#include "shell/file_drop.h"
#include "shell/screen_place.h"
#include "shell/status_panels.h"
#include "shell/toolbar.h"
#include "shell/tools_menu.h"
#include "shell/window_below.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenuBar>
#include <QStatusBar>

namespace tambrix {

namespace {

constexpr int kPollInterval = 500; // ms
constexpr int kNextTry = 50;       // ms
constexpr QSize kFirstSize(1280, 690);
constexpr QSize kSmallestSize(900, 540); // below it the screens cannot be read
const QString kDesignedCaption = QStringLiteral("TAMBRIX - ");

} // namespace

MainWindow::MainWindow(ProgramState& state, ScreenTable screens, const MenuCommands& commands)
    : m_state(state),
      m_files(state),
      m_screens(std::move(screens)),
      m_panels(new StatusPanels(*statusBar())),
      m_place(new ScreenPlace),
      m_toolbar(new Toolbar(state))
{
    setObjectName(QStringLiteral("frmTambrix"));
    resizeInto(*this, kFirstSize);
    setMinimumSize(kSmallestSize.boundedTo(size()));
    setCentralWidget(m_place);
    setAnimated(false); // nothing moves by itself, and the layout would prepare for it

    buildFileMenu(commands);
    buildEditMenu(commands);
    buildViewMenu(commands);
    buildWindowMenu();
    m_tools = new ToolsMenu(*menuBar()->addMenu(QStringLiteral("&Tools")), *this);
    buildHelpMenu(commands);
    buildToolbar();

    connect(m_panels, &StatusPanels::modeClicked, this,
            [this] { m_state.setOnline(!m_state.gLink.OnlineMode); });
    connect(&m_files, &FileCommands::captionChanged, this, &MainWindow::showCaption);
    connect(&m_files.recent(), &RecentFiles::changed, this, &MainWindow::showRecentFiles);
    new FrameLimit(*this, m_state.lineWaits); // the window owns it
    new WindowBelow(*this);
    new FileDrop(*this, [this](const QString& file) { m_files.openFile(file); });
    connect(&m_state, &ProgramState::onlineModeApplied, this, &MainWindow::showMode);
    for (auto change : {&ProgramState::dataReplaced, &ProgramState::dataEdited}) {
        connect(&m_state, change, this, [this] {
            if (m_screen != nullptr)
                m_screen->reload();
        });
    }
    m_poll.setObjectName(QStringLiteral("tmrBackgroungUpdate")); // kept: the control's own name
    m_poll.setInterval(kPollInterval);
    connect(&m_poll, &QTimer::timeout, this, &MainWindow::poll);

    load();
}

MainWindow::~MainWindow()
{
    unloadScreen();
}

/// The start-up sequence: what exists before the first screen is shown.
void MainWindow::load()
{
    m_state.helpFile = m_state.programFolder.filePath(QStringLiteral("Help/TMBRX.hlp"));
    m_state.gFileNameCaption = QStringLiteral("[unnamed]");
    m_state.InitSetupData();
    m_state.report = {};
    m_state.gFileNamePath = m_state.programFolder.filePath(QStringLiteral("*.sdt"));
    m_files.newFile();
    showMode(m_state.gLink.OnlineMode);
    poll();
    showScreen(ScreenId::MainDisplay);
    m_loaded = true;
    m_poll.start();
}

void MainWindow::showCaption()
{
    setWindowTitle(kDesignedCaption + m_state.gFileNameCaption);
}

void MainWindow::showScreen(ScreenId screen)
{
    const auto slot = static_cast<std::size_t>(screen);
    const bool shown = screen == m_currentScreen && m_loaded;
    if (shown || !m_screens[slot] || m_state.gLink.isBusy()) {
        m_windowItems[static_cast<std::size_t>(m_currentScreen)]->setChecked(true);
        return;
    }
    unloadScreen();
    m_currentScreen = screen;
    m_windowItems[slot]->setChecked(true);
    m_screen = m_screens[slot](m_state).release();
    m_place->put(*m_screen);
    m_screen->activate();
}

void MainWindow::unloadScreen()
{
    if (m_screen == nullptr)
        return;
    m_screen->deactivate();
    m_place->take(*m_screen);
    m_screen->deleteLater(); // it may be its own shortcut or button that brought us here
    m_screen.clear();
}

void MainWindow::showMode(bool online)
{
    m_panels->showMode(online);
    m_toolbar->showMode(online);
    m_online->setChecked(online);
    m_offline->setChecked(!online);
    m_passcode->setEnabled(online);
}

void MainWindow::poll()
{
    if (m_state.gLink.isBusy()) // a box inside an exchange: wait for the next tick
        return;
    const SystemMessage message = pollMessage();
    m_state.gSystemMessage = message.display;
    m_panels->showStatus(message.status);
    m_toolbar->refresh();
}

SystemMessage MainWindow::pollMessage()
{
    RSComm& link = m_state.gLink;
    if (!link.OnlineMode) {
        m_state.alarmWord.reset();
        return offlineMessage(link.CommError);
    }
    if (!link.CommError) {
        const int word = std::stoi(link.RSRead(reg::kAlarms.address));
        // kept: a read that failed gives "0"; that is no all-clear, the last alarms stay.
        if (link.readSucceeded())
            m_state.alarmWord = word;
    }
    if (link.CommError)
        m_state.alarmWord.reset();
    return onlineMessage(m_state.alarmWord.value_or(0));
}

void MainWindow::editPasscode()
{
    RSComm& link = m_state.gLink;
    QString passcode;
    if (!link.CommError)
        passcode = fromLink(link.RSRead(reg::kPasscode.address));
    const QString answer =
        m_state.prompts
            .askText(QStringLiteral("Color Control Passcode"),
                     QStringLiteral("Please Enter New Passcode (0-65535)"), passcode)
            .value_or(QString());
    if (!answer.isEmpty() && !link.CommError)
        link.RSWrite(reg::kPasscode.address, answer.toStdString());
}

/// The window was to be closed while the link waited for the board: it is as soon as it may be.
void MainWindow::closeLater()
{
    QTimer::singleShot(kNextTry, this, [this] { close(); });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_state.gLink.isBusy()) {
        event->ignore();
        closeLater();
        return;
    }
    if (!m_files.mayDropData()) {
        event->ignore();
        return;
    }
    m_poll.stop();
    if (m_screen != nullptr)
        m_screen->deactivate();
    m_state.gLink.CloseRSComm();
    unloadScreen();
    event->accept();
}

} // namespace tambrix
