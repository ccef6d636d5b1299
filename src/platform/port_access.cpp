#include "platform/port_access.h"

#include "platform/machine_ports.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tambrix {

namespace {

bool hasOpen(const QString& process, const QString& device)
{
    const QDir handles(process + QStringLiteral("/fd"));
    const QFileInfoList files = handles.entryInfoList(QDir::Files | QDir::System);
    return std::ranges::any_of(
        files, [&](const QFileInfo& file) { return file.symLinkTarget() == device; });
}

/// Linux tells by its process files; other systems have none, and tell nothing here.
QString holderOf(const QString& device)
{
    const QDir processes(QStringLiteral("/proc"));
    const QString own = QString::number(QCoreApplication::applicationPid());
    for (const QString& number : processes.entryList({QStringLiteral("[0-9]*")}, QDir::Dirs)) {
        const QString process = processes.filePath(number);
        if (number == own || !hasOpen(process, device))
            continue;
        QFile name(process + QStringLiteral("/comm"));
        const QString program = name.open(QIODevice::ReadOnly)
                                    ? QString::fromLocal8Bit(name.readAll()).trimmed()
                                    : QStringLiteral("a program");
        return QStringLiteral("%1 (process %2)").arg(program, number);
    }
    return {};
}

} // namespace

PortAccess portAccess(const QString& device)
{
    PortAccess access;
    const QFileInfo file(device);
    if (file.exists()) {
        access = {true, file.isReadable() && file.isWritable(), file.group(),
                  holderOf(file.canonicalFilePath())};
        return access;
    }
    access.exists = std::ranges::any_of(machinePorts(), [&](const MachinePort& port) {
        return port.name == device || port.location == device;
    });
    access.permitted = access.exists;
    return access;
}

} // namespace tambrix
