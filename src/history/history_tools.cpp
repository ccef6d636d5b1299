#include "history/history_tools.h"

#include "data/own_file.h"
#include "history/history_window.h"
#include "shell/news_line.h"
#include "shell/screen.h"
#include "shell/toolbar.h"
#include "shell/tools_menu.h"

#include <QApplication>
#include <QLabel>

#include <algorithm>

namespace tambrix {

namespace {

const QString kUnseenKey = QStringLiteral("RecordWhatIsNotShown");

/// The simulated press has a history of its own.
QString fileOf(const ProgramState& state)
{
    return state.dataRoot.filePath(state.simulated ? QStringLiteral("History/simulated.db")
                                                   : QStringLiteral("History/history.db"));
}

} // namespace

HistoryTools::HistoryTools(ProgramState& state, MainWindow& window, const Clock& clock)
    : QObject(&window),
      m_state(state),
      m_window(window),
      m_recorder(state.gLink, fileOf(state), {clock}),
      m_unseen(state.gLink, m_recorder, [this] { return mayRead(); })
{
    m_recorder.setParent(this); // found among the window's own
    m_recorder.setWriter([this] { return writer(); });
    m_state.recentSpeed = &m_recorder.recentSpeed();
    auto* news = new NewsLine(window, QStringLiteral("History"));
    connect(&m_recorder, &HistoryRecorder::told, news, &NewsLine::tell);
    const QVariant seconds = ownSetting(settings(), kUnseenKey);
    if (seconds.isValid())
        m_unseen.setInterval(seconds.toInt());
    QAction* item = window.tools().addWindow(
        {QStringLiteral("&History..."), QStringLiteral("mnuToolsHistory"), {}, {}},
        [this](QWidget& parent) { return makeWindow(parent); });
    window.toolbar().addTool(QStringLiteral("history"), QStringLiteral("History"), *item);
}

HistoryTools::~HistoryTools()
{
    m_state.recentSpeed = nullptr;
}

/// The window in front of all others, or else the screen. What a screen writes when it comes on
/// line was nobody's wish, and is not to look like one.
QString HistoryTools::writer() const
{
    if (const QWidget* modal = QApplication::activeModalWidget()) {
        const auto* transfer = modal->findChild<QLabel*>(QStringLiteral("lblProcessing"));
        return transfer == nullptr ? modal->windowTitle() : transfer->text();
    }
    const auto* title = m_window.findChild<QLabel*>(QStringLiteral("lblScreenTitle"));
    if (title == nullptr)
        return {};
    const QList<Screen*> screens = m_window.findChildren<Screen*>();
    const bool byItself = std::ranges::any_of(screens, &Screen::comingOnline);
    return byItself ? title->text() + QStringLiteral(" (coming on line)") : title->text();
}

QString HistoryTools::settings() const
{
    return m_state.dataRoot.filePath(QStringLiteral("History/history.ini"));
}

/// A transfer or a window with a loop of its own has the link to itself.
bool HistoryTools::mayRead() const
{
    return m_state.canReachBoard() && !m_state.gLink.isBusy() &&
           QApplication::activeModalWidget() == nullptr;
}

QWidget* HistoryTools::makeWindow(QWidget& parent)
{
    const auto recordUnseen = [this](std::optional<int> wanted) {
        m_unseen.setInterval(wanted);
        keepOwnSetting(settings(), kUnseenKey, wanted ? QVariant(*wanted) : QVariant());
    };
    auto* window = new HistoryWindow({m_recorder, m_unseen.interval(), recordUnseen,
                                      m_state.prompts, m_state.dataRoot.path(), m_state.labelNames},
                                     &parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    return window;
}

} // namespace tambrix
