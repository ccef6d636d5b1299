#include "controls/named_controls.h"
#include "shell/main_window.h"
#include "shell/menu_item.h"
#include "shell/toolbar.h"
#include "shell/transfer_commands.h"

#include <QActionGroup>
#include <QDir>
#include <QMenuBar>

namespace tambrix {

namespace {

constexpr std::array kTransferGroups = {"Set-up Data", "Shift Data", "Label Data"};

constexpr std::array kScreenCaptions = {"&1 Main Display", "&2 Set-up Parameters", "&3 Shift Data",
                                        "&4 Color Control", "&5 I/O States"};

void addTransferMenu(QMenu& menu, const QString& caption, const char* name,
                     const std::function<void(int)>& transfer)
{
    QMenu* groups = menu.addMenu(caption);
    for (int i = 0; i < static_cast<int>(kTransferGroups.size()); ++i)
        addItem(*groups, {QLatin1String(kTransferGroups[static_cast<std::size_t>(i)]),
                          arrayName(name, i),
                          {},
                          [transfer, i] { transfer(i); }});
}

} // namespace

void MainWindow::buildFileMenu(const MenuCommands& commands)
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&File"));
    addItems(*menu, {{QStringLiteral("&New..."), QStringLiteral("mnuFileNew"), QKeySequence::New,
                      [this] { m_files.newFile(); }},
                     {QStringLiteral("&Open..."), QStringLiteral("mnuFileOpen"), QKeySequence::Open,
                      [this] { m_files.open(); }},
                     {QStringLiteral("&Save"), QStringLiteral("mnuFileSave"), QKeySequence::Save,
                      [this] { m_files.save(); }},
                     {QStringLiteral("Save &As..."), QStringLiteral("mnuFileSaveAs"),
                      QKeySequence::SaveAs, [this] { m_files.saveAs(); }}});
    menu->addSeparator();
    addItem(*menu,
            {QStringLiteral("Export Shift Data..."), QStringLiteral("mnuFileExport"), {}, [this] {
                 m_files.exportShiftData();
             }});
    menu->addSeparator();
    addTransferMenu(*menu, QStringLiteral("&Upload (save) Data"), "mnuFileUpload",
                    [this](int group) { uploadData(m_state, *this, group); });
    addItem(*menu, {QStringLiteral("&Download Program"),
                    QStringLiteral("mnuFileDownloadProgram"),
                    {},
                    commands.downloadProgram});
    addTransferMenu(*menu, QStringLiteral("Dow&nload (restore) Data"), "mnuFileDownload",
                    [this](int group) { downloadData(m_state, *this, group); });
    menu->addSeparator();
    addItems(*menu, {{QStringLiteral("&Report Setup"),
                      QStringLiteral("mnuFileReportSetup"),
                      {},
                      commands.reportSetup},
                     {QStringLiteral("&Print Report..."), QStringLiteral("mnuFilePrint"),
                      QKeySequence::Print, commands.printReport}});
    menu->addSeparator();
    m_fileMenu = menu;
    m_belowRecent = addItem(*menu, {QStringLiteral("E&xit"), QStringLiteral("mnuFileExit"),
                                    QKeySequence::Quit, [this] { close(); }});
}

/// The recent files, with a line below them; neither while there are none.
void MainWindow::showRecentFiles()
{
    for (QAction* item : m_recentItems) {
        m_fileMenu->removeAction(item);
        item->setParent(nullptr);
        item->deleteLater(); // it may be the one that brought us here
    }
    m_recentItems.clear();
    for (const QString& path : m_files.recent().paths())
        addRecentFile(path);
    if (!m_recentItems.isEmpty()) {
        m_recentItems.push_back(new QAction(this));
        m_recentItems.back()->setSeparator(true);
    }
    m_fileMenu->insertActions(m_belowRecent, m_recentItems);
}

void MainWindow::addRecentFile(const QString& path)
{
    const auto index = static_cast<int>(m_recentItems.size());
    const QString name = QDir::toNativeSeparators(path).replace(u'&', QLatin1String("&&"));
    auto* item = new QAction(QStringLiteral("&%1 %2").arg(index + 1).arg(name), this);
    item->setObjectName(arrayName("mnuFileRecent", index));
    connect(item, &QAction::triggered, this, [this, path] { m_files.openFile(path); });
    m_recentItems.push_back(item);
}

void MainWindow::buildEditMenu(const MenuCommands& commands)
{
    // Not Alt+E: that is the set-up screen's "Enable All".
    QMenu* menu = menuBar()->addMenu(QStringLiteral("E&dit"));
    QAction* editing =
        addItem(*menu, {QStringLiteral("Enable &Offline Editing"), QStringLiteral("mnuEditOffline"),
                        QKeySequence(QStringLiteral("Ctrl+E")),
                        [this] { m_state.gOfflineEditing = !m_state.gOfflineEditing; }, true});
    editing->setChecked(m_state.gOfflineEditing);
    menu->addSeparator();
    addItem(
        *menu,
        {QStringLiteral("Co&mm Port"), QStringLiteral("mnuEditCommPort"), {}, commands.commPort});
    menu->addSeparator();
    m_passcode = addItem(*menu, {QStringLiteral("Color Control Passcode"),
                                 QStringLiteral("mnuEditPasscode"),
                                 {},
                                 [this] { editPasscode(); }});
    m_passcode->setEnabled(false);
}

void MainWindow::buildViewMenu(const MenuCommands& commands)
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&View"));
    addItem(*menu, {QStringLiteral("&Target Board Interface"),
                    QStringLiteral("mnuViewTargetBoardStatus"),
                    {},
                    commands.targetBoard});
    menu->addSeparator();
    m_online = addItem(*menu, {QStringLiteral("O&nline Data"), QStringLiteral("mnuViewOnline"),
                               QKeySequence(QStringLiteral("F9")), [this] { goOnline(); }, true});
    m_offline =
        addItem(*menu, {QStringLiteral("O&ffline Data"), QStringLiteral("mnuViewOffline"),
                        QKeySequence(QStringLiteral("Shift+F9")), [this] { goOffline(); }, true});
}

void MainWindow::buildWindowMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Window"));
    auto* oneOfThem = new QActionGroup(this);
    for (int i = 0; i < kScreens; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const bool built = static_cast<bool>(m_screens[index]);
        const auto show = [this, i] { showScreen(static_cast<ScreenId>(i)); };
        QAction* item =
            addItem(*menu, {QLatin1String(kScreenCaptions[index]), arrayName("mnuWindow", i),
                            QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + i)),
                            built ? show : std::function<void()>(), true});
        oneOfThem->addAction(item);
        m_windowItems[index] = item;
    }
}

void MainWindow::buildHelpMenu(const MenuCommands& commands)
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Help"));
    addItem(*menu, {QStringLiteral("&Help Topics"), QStringLiteral("mnuHelpTopics"),
                    QKeySequence::HelpContents, commands.helpTopics});
    menu->addSeparator();
    addItem(*menu,
            {QStringLiteral("&About TAMBRIX"), QStringLiteral("mnuHelpAbout"), {}, commands.about});
}

void MainWindow::buildToolbar()
{
    const auto item = [this](const char* name) -> QAction& {
        return *findChild<QAction*>(QLatin1String(name));
    };
    m_toolbar->addTool(QStringLiteral("open"), QStringLiteral("Open"), item("mnuFileOpen"));
    m_toolbar->addTool(QStringLiteral("save"), QStringLiteral("Save"), item("mnuFileSave"));
    m_toolbar->addLastTool(QStringLiteral("help"), QStringLiteral("Help"), item("mnuHelpTopics"));
    connect(m_toolbar, &Toolbar::modeClicked, this,
            [this] { m_state.setOnline(!m_state.gLink.OnlineMode); });
    addToolBar(m_toolbar);
}

} // namespace tambrix
