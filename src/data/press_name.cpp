#include "data/press_name.h"

#include "data/own_file.h"
#include "data/whole_file.h"

namespace tambrix {

namespace {

constexpr qint64 kLongestFile = 4096;
constexpr int kLongestName = 60;

QString nameFile(const QDir& dataRoot)
{
    return dataRoot.filePath(QStringLiteral("press-name.txt"));
}

QString tidied(const QString& name)
{
    return name.simplified().left(kLongestName).trimmed();
}

} // namespace

QString pressName(const QDir& dataRoot)
{
    const auto content = readWholeFile(nameFile(dataRoot), kLongestFile);
    return content ? tidied(QString::fromUtf8(*content)) : QString();
}

std::optional<QString> setPressName(const QDir& dataRoot, const QString& name)
{
    return writeOwnFile(nameFile(dataRoot), tidied(name).toUtf8() + '\n');
}

} // namespace tambrix
