#include "app/line_tools.h"

#include "data/trace_text.h"
#include "link/settings_file.h"
#include "maintenance/connection_dialog.h"
#include "maintenance/line_check_dialog.h"
#include "maintenance/line_monitor.h"
#include "platform/serial_device.h"
#include "shell/main_window.h"
#include "shell/toolbar.h"
#include "shell/tools_menu.h"

#include <QAction>
#include <QDateTime>
#include <QLabel>
#include <QToolBar>
#include <QToolButton>

namespace tambrix {

namespace {

std::unique_ptr<PortSearch> makeSearch(ChosenPort* real)
{
    if (real == nullptr)
        return std::make_unique<PortAlwaysThere>();
    return std::make_unique<PortFinder>(*real);
}

} // namespace

LineTools::LineTools(ProgramState& state, MainWindow& window, const Line& line, QString startedWith)
    : m_state(state),
      m_window(window),
      m_line(line),
      m_startedWith(std::move(startedWith)),
      m_probe(line.port, line.recorder),
      m_search(makeSearch(line.real)),
      m_reconnect(state, m_probe, line.clock, *m_search,
                  {[this] { return mayGoOnline(); }, [this] { m_window.goOnline(); },
                   [] { BoxWatch::cancelBox(); }}),
      m_noteBar(new QToolBar(&window)),
      m_note(new QLabel)
{
    m_noteBar->setObjectName(QStringLiteral("barReconnect"));
    m_noteBar->setMovable(false);
    m_noteBar->toggleViewAction()->setVisible(false);
    m_note->setObjectName(QStringLiteral("lblReconnect"));
    m_note->setMargin(4);
    m_noteBar->addWidget(m_note);
    m_window.addToolBar(Qt::BottomToolBarArea, m_noteBar);
    m_noteBar->hide();
    QObject::connect(&m_reconnect, &Reconnect::noted, m_note,
                     [this](const QString& text) { showNote(text); });
    addItems();
    followUser();
    m_line.boxes.lost = [this] {
        keepTrace();
        m_reconnect.boardLost();
    };
    m_line.boxes.answered = [this](BoxAnswer answer) { m_reconnect.boxAnswered(answer); };
}

LineTools::~LineTools()
{
    m_line.boxes.lost = {};
    m_line.boxes.answered = {};
    delete m_monitor; // it uses the recorder
}

void LineTools::addItems()
{
    ToolsMenu& tools = m_window.tools();
    tools.addCommand(
        {QStringLiteral("C&onnection..."), QStringLiteral("mnuToolsConnection"), {}, [this] {
             showConnection();
         }});
    tools.addWindow(
        {QStringLiteral("&Line Monitor..."), QStringLiteral("mnuToolsLineMonitor"), {}, {}},
        [this](QWidget& parent) { return makeMonitor(parent); });
    tools.addCommand(
        {QStringLiteral("Chec&k the Line..."), QStringLiteral("mnuToolsCheckLine"), {}, [this] {
             showCheck();
         }});
    tools.addOption(
        {QStringLiteral("Reconnect Automatically"), QStringLiteral("mnuToolsReconnect"), {}, {}},
        [this](bool wanted) { m_reconnect.setEnabled(wanted); });
}

/// Whatever he does with the mode ends the reconnecting.
void LineTools::followUser()
{
    const auto acted = [this] { m_reconnect.userActed(); };
    for (const char* item : {"mnuViewOnline", "mnuViewOffline"})
        QObject::connect(m_window.findChild<QAction*>(QLatin1String(item)), &QAction::triggered,
                         &m_reconnect, acted);
    QObject::connect(m_window.findChild<QToolButton*>(QStringLiteral("MODE")),
                     &QToolButton::clicked, &m_reconnect, acted);
    QObject::connect(&m_window.toolbar(), &Toolbar::modeClicked, &m_reconnect, acted);
}

QString LineTools::usedInsteadOfNumber() const
{
    if (m_line.real == nullptr)
        return QStringLiteral("the simulated controller");
    return connectionText(m_line.real->connection());
}

void LineTools::showConnection()
{
    ConnectionChoice choice;
    choice.file = connectionFile(m_state.dataRoot);
    choice.overriddenBy = m_startedWith;
    choice.use = [this](const Connection& connection) {
        m_reconnect.userActed();
        m_line.real->use(connection);
        m_state.portName = connectionText(connection);
    };
    ConnectionDialog(m_state, choice, &m_window).exec();
}

QWidget* LineTools::makeMonitor(QWidget& parent)
{
    m_monitor = new LineMonitor(m_line.recorder, m_line.clock, m_state.prompts,
                                m_state.dataRoot.path(), &parent);
    m_monitor->setAttribute(Qt::WA_DeleteOnClose);
    return m_monitor;
}

void LineTools::showCheck()
{
    LineCheckDialog([this] { return check(); }, &m_window).exec();
}

LineFinding LineTools::check()
{
    LineRecorder& recorder = m_line.recorder;
    if (m_state.canReachBoard()) {
        LineFinding finding = checkOnline(m_state.gLink, m_line.clock, recorder.baud(),
                                          [&recorder] { return recorder.errors(); });
        if (m_state.gLink.CommError) // the screens' own loops stand still behind this window
            m_state.dropOffline();
        return finding;
    }
    std::error_code error;
    const auto settings = readOrCreateCommSettings(m_state.gLink.CommSettingsFile(), error);
    Connection connection;
    if (m_line.real != nullptr)
        connection = m_line.real->connection();
    const QString device = connection.kind == Connection::Kind::CommPort
                               ? serialDeviceName(settings.port)
                               : connectionText(connection);
    return checkLine({m_state.gCommPort, m_line.clock, settings, connection, device,
                      [device] { return portAccess(device); }});
}

bool LineTools::mayGoOnline() const
{
    return m_window.currentScreen() != ScreenId::ColorControl; // it writes the station number
}

void LineTools::showNote(const QString& text)
{
    m_note->setText(text);
    m_noteBar->setVisible(!text.isEmpty());
}

/// Once for a loss, however often the user answers its box with Retry.
void LineTools::keepTrace()
{
    constexpr std::uint64_t kExchangesOfARetry = 10;
    const std::uint64_t end = m_line.recorder.trace().end();
    const bool sameLoss = m_keptUpTo && end < *m_keptUpTo + kExchangesOfARetry;
    m_keptUpTo = end;
    if (sameLoss)
        return;
    const QDir folder(m_state.dataRoot.filePath(QStringLiteral("Traces")));
    if (const auto reason =
            tambrix::keepTrace(m_line.recorder.trace(), folder, QDateTime::currentDateTime()))
        showNote(QStringLiteral("The trace of the failure could not be saved: %1").arg(*reason));
}

} // namespace tambrix
