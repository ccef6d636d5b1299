#include "app/event_loop.h"

#include <QCoreApplication>

namespace tambrix {

void useOwnEventLoop()
{
#ifdef Q_OS_LINUX
    qputenv("QT_NO_GLIB", "1");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
#endif
}

} // namespace tambrix
