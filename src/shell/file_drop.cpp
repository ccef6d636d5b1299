#include "shell/file_drop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

namespace tambrix {

FileDrop::FileDrop(QWidget& window, std::function<void(const QString&)> opened)
    : QObject(&window), m_opened(std::move(opened))
{
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool FileDrop::eventFilter(QObject*, QEvent* event)
{
    const bool dropped = event->type() == QEvent::Drop;
    if (!dropped && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return false;
    auto& drag = static_cast<QDropEvent&>(*event);
    const QString file = draggedSetupFile(*drag.mimeData());
    if (file.isEmpty())
        return false;
    drag.acceptProposedAction();
    if (dropped) // the other program waits for the drop to end: no question before that
        QTimer::singleShot(0, this, [this, file] { m_opened(file); });
    return true;
}

QString draggedSetupFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    const QString file = urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
    return file.endsWith(QLatin1String(".sdt"), Qt::CaseInsensitive) ? file : QString();
}

} // namespace tambrix
