#include "shell/window_below.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace tambrix {

using namespace std::chrono_literals;

namespace {

/// At once, and again when the window system has done its own part.
constexpr std::chrono::milliseconds kMoments[] = {0ms, 200ms};

/// A dialog is marked as hidden before it loses the keyboard, and gets its hide event only after.
bool isClosingDialog(const QObject& object)
{
    const auto* widget = qobject_cast<const QWidget*>(&object);
    return widget != nullptr && widget->windowType() == Qt::Dialog && widget->isHidden();
}

} // namespace

WindowBelow::WindowBelow(QWidget& mainWindow) : QObject(&mainWindow), m_mainWindow(mainWindow)
{
    qApp->installEventFilter(this);
}

/// A dialog without the keyboard takes none away: the user may be working in another program.
bool WindowBelow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate && isClosingDialog(*watched)) {
        m_parent = static_cast<const QWidget*>(watched)->parentWidget();
        for (const auto moment : kMoments)
            QTimer::singleShot(moment, this, &WindowBelow::activate);
    }
    return QObject::eventFilter(watched, event);
}

void WindowBelow::activate()
{
    const QWidget* active = QApplication::activeWindow();
    if (active != nullptr && active->isVisible())
        return;
    QWidget* below = QApplication::activeModalWidget();
    if (below == nullptr)
        below = m_parent;
    while (below != nullptr && !below->isVisible()) // it closes as well
        below = below->parentWidget();
    if (below == nullptr)
        below = &m_mainWindow;
    if (below->isVisible() && !below->isMinimized())
        below->window()->activateWindow();
}

} // namespace tambrix
