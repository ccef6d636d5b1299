#include "history/history_tools.h"

#include <QApplication>
#include <QLabel>
#include <QStatusBar>

namespace tambrix {

namespace {

constexpr int kNewsTime = 60'000; // ms

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
      m_recorder(state.gLink, fileOf(state), {clock})
{
    m_recorder.setWriter([this] { return writer(); });
    m_state.recentSpeed = &m_recorder.recentSpeed();
    connect(&m_recorder, &HistoryRecorder::told, &window,
            [&window](const QString& news) { window.statusBar()->showMessage(news, kNewsTime); });
}

HistoryTools::~HistoryTools()
{
    m_state.recentSpeed = nullptr;
}

/// The window in front of all others, or else the screen.
QString HistoryTools::writer() const
{
    if (const QWidget* modal = QApplication::activeModalWidget())
        return modal->windowTitle();
    const auto* title = m_window.findChild<QLabel*>(QStringLiteral("lblScreenTitle"));
    return title == nullptr ? QString() : title->text();
}

} // namespace tambrix
