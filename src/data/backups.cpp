#include "data/backups.h"

#include "data/own_file.h"
#include "data/setup_file.h"
#include "data/whole_file.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace tambrix {

namespace {

constexpr std::size_t kKept = 50;
constexpr qint64 kLongestNote = 64 * 1024;
const QString kSuffix = QStringLiteral(".sdt");
const QString kNote = QStringLiteral("last-restore.txt");

/// A name that every file system takes: what Windows refuses becomes "_".
QString fileNamePart(const QString& text)
{
    static const QRegularExpression refused(QStringLiteral(R"([\\/:*?"<>|\x00-\x1F\x7F])"));
    QString name = text;
    name.replace(refused, QStringLiteral("_"));
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    return name;
}

QString titleOf(const QDateTime& when, const QString& press)
{
    const QString time = when.toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
    return press.isEmpty() ? time : fileNamePart(time + u' ' + press);
}

bool isBackup(const QString& fileName)
{
    static const QRegularExpression ours(
        QStringLiteral(R"(^\d{4}-\d\d-\d\d \d\d-\d\d-\d\d.*\.sdt$)"));
    return ours.match(fileName).hasMatch();
}

/// Whether a backup or its names would replace something, or follow a link.
bool isTaken(const QString& path)
{
    const auto stands = [](const QString& file) { return QFileInfo::exists(file) || isLink(file); };
    return stands(path) || stands(labelNamesFile(path));
}

} // namespace

std::variant<QString, Refusal> Backups::save(const SetupDataRecord& record, const QDateTime& when,
                                             const QString& press, const LabelNames& names) const
{
    if (const auto reason = makeOwnFolder(m_folder))
        return Refusal{*reason};
    const QString path = freePath(titleOf(when, press));
    auto failure = writeWholeFile(path, QByteArray::fromStdString(setupFileBytes(record)));
    if (!failure)
        failure = saveLabelNames(path, names);
    if (failure)
        return Refusal{QStringLiteral("The backup cannot be saved as %1: %2.").arg(path, *failure)};
    removeOldest();
    return path;
}

/// Two backups within one second do not replace each other.
QString Backups::freePath(const QString& title) const
{
    QString path = m_folder.filePath(title + kSuffix);
    for (int copy = 2; isTaken(path); ++copy)
        path = m_folder.filePath(QStringLiteral("%1 (%2)%3").arg(title).arg(copy).arg(kSuffix));
    return path;
}

std::vector<BackupFile> Backups::list() const
{
    std::vector<BackupFile> files;
    for (const QString& name : m_folder.entryList(QDir::Files, QDir::Name | QDir::Reversed)) {
        if (isBackup(name))
            files.push_back({m_folder.filePath(name), QFileInfo(name).completeBaseName()});
    }
    return files;
}

void Backups::removeOldest() const
{
    const auto files = list();
    for (std::size_t i = kKept; i < files.size(); ++i) {
        QFile::remove(files[i].path);
        QFile::remove(labelNamesFile(files[i].path));
    }
}

std::optional<QString> Backups::rememberRestore(const LastRestore& restore) const
{
    QByteArray note = QFileInfo(restore.backup).fileName().toUtf8() + '\n';
    for (const std::string& address : restore.addresses)
        note += QByteArray::fromStdString(address) + '\n';
    return writeOwnFile(m_folder.filePath(kNote), note);
}

std::optional<LastRestore> Backups::lastRestore() const
{
    const auto note = readWholeFile(m_folder.filePath(kNote), kLongestNote);
    if (!note)
        return std::nullopt;
    QStringList lines = QString::fromUtf8(*note).split(u'\n', Qt::SkipEmptyParts);
    if (lines.isEmpty() || !isBackup(lines.front()))
        return std::nullopt;
    LastRestore restore{m_folder.filePath(lines.takeFirst()), {}};
    if (!QFileInfo(restore.backup).isFile())
        return std::nullopt;
    for (const QString& line : lines)
        restore.addresses.push_back(line.trimmed().toStdString());
    return restore;
}

} // namespace tambrix
