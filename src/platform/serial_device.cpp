#include "platform/serial_device.h"

#include <QtGlobal>

namespace tambrix {

QString serialDeviceName(int portNumber)
{
#ifdef Q_OS_WIN
    return QStringLiteral("COM%1").arg(portNumber);
#else
    return QStringLiteral("/dev/ttyS%1").arg(portNumber - 1);
#endif
}

} // namespace tambrix
