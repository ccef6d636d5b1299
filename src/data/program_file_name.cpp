#include "data/program_file_name.h"

#include "link/bounded_file.h"

#include <QDir>
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
    const QFileInfo file(existingFile(ChangeExtension(path, QStringLiteral("FNX"))));
    const std::string first = readStart(file.filesystemFilePath(), 1).value_or(std::string());
    const bool emptyField = first.find_first_not_of(",\r\n") == std::string::npos;
    return emptyField ? kDefaultBoardType : static_cast<unsigned char>(first.front());
}

} // namespace tambrix
