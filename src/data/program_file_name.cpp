#include "data/program_file_name.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tambrix {

namespace {

constexpr int kDefaultBoardType = 68; // Q900(PLC)

QString folderAndBase(const QString& path)
{
    const QFileInfo info(path);
    return QDir(info.path()).filePath(info.completeBaseName());
}

/// File names are matched as Windows does it, also where the file system tells cases apart.
QString existingFile(const QString& path)
{
    const QFileInfo wanted(path);
    if (wanted.exists())
        return path;
    const QDir folder(wanted.path());
    for (const QString& name : folder.entryList(QDir::Files)) {
        if (name.compare(wanted.fileName(), Qt::CaseInsensitive) == 0)
            return folder.filePath(name);
    }
    return path;
}

} // namespace

QString ChangeExtension(const QString& path, const QString& extension)
{
    return folderAndBase(path) + u'.' + extension;
}

int ProgramFileTypeChar(const QString& path)
{
    QFile file(existingFile(ChangeExtension(path, QStringLiteral("FNX"))));
    if (!file.open(QIODevice::ReadOnly))
        return kDefaultBoardType;
    const QByteArray first = file.read(1);
    const bool emptyField = first.isEmpty() || QByteArray(",\r\n").contains(first.front());
    return emptyField ? kDefaultBoardType : static_cast<unsigned char>(first.front());
}

} // namespace tambrix
