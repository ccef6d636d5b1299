#include "platform/program_folders.h"

#include <QFileInfo>
#include <QTemporaryFile>

namespace tambrix {

namespace {

const QString kSupport = QStringLiteral("Support");

/// Tried out: what the system says about rights is not always what it then allows.
bool filesCanBeMade(const QDir& folder)
{
    return folder.exists() && QTemporaryFile(folder.filePath(QStringLiteral("try-XXXXXX"))).open();
}

} // namespace

ProgramFolders::ProgramFolders(const QDir& folder)
    : program(folder), data(folder), settings(folder.filePath(kSupport))
{
}

ProgramFolders chooseFolders(const QDir& program, const QDir& user)
{
    ProgramFolders folders(program);
    const bool ownFolder = filesCanBeMade(program);
    if (!ownFolder)
        folders.data = user;
    const bool ownSupport =
        QFileInfo::exists(folders.settings.path()) ? filesCanBeMade(folders.settings) : ownFolder;
    if (!ownSupport)
        folders.settings = QDir(folders.data.filePath(kSupport));
    return folders;
}

} // namespace tambrix
