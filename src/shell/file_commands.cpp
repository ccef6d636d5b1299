#include "shell/file_commands.h"

#include "data/link_text.h"
#include "data/setup_file.h"
#include "data/setup_file_source.h"
#include "data/whole_file.h"

#include <QFileInfo>
#include <QLocale>

namespace tambrix {

namespace {

const QString kSetupFilter = QStringLiteral("Setup Files(*.sdt)|*.sdt|");
const QString kTextFilter = QStringLiteral("Text Files(*.txt)|*.txt|");
const QString kUnnamed = QStringLiteral("[unnamed]");

} // namespace

bool FileCommands::mayDropData()
{
    if (!m_state.hasUnsavedChanges())
        return true;
    const BoxAnswer answer = m_state.prompts.showMessage(
        {BoxIcon::Warning, BoxButtons::YesNoCancel, "TAMBRIX", "Save Changes to File?"});
    return answer == BoxAnswer::Yes ? save() : answer == BoxAnswer::No;
}

void FileCommands::newFile()
{
    if (!mayDropData())
        return;
    m_state.gWorkingData = m_state.gDefaultData;
    m_state.gSavedData = m_state.gWorkingData;
    m_state.labelNames = m_state.savedLabelNames = {};
    m_state.gUntitled = true;
    setCaption(kUnnamed);
    m_state.announceNewData();
}

void FileCommands::open()
{
    std::optional<QString> path;
    do {
        if (!mayDropData())
            return;
        const QFileInfo current(m_state.gFileNamePath);
        path = m_state.prompts.askOpenFile({QStringLiteral("Open"), kSetupFilter, current.path(),
                                            current.fileName(), QStringLiteral("sdt")});
    } while (path && !load(*path));
}

void FileCommands::openFile(const QString& path)
{
    if (!QFileInfo::exists(path))
        return sayGone(path);
    if (mayDropData() && !load(path))
        open();
}

void FileCommands::sayGone(const QString& path)
{
    m_recent.remove(path);
    m_state.prompts.showMessage({BoxIcon::Warning, BoxButtons::Ok, "TAMBRIX",
                                 "The file is not there any more:\r\n" + path.toStdString()});
}

/// Returns false when the user wants to choose another file.
bool FileCommands::load(const QString& path)
{
    auto loaded = loadSetupData(path);
    auto* record = std::get_if<SetupDataRecord>(&loaded);
    if (record == nullptr)
        return true;
    m_state.gFileBuffer = std::move(*record);
    setFileName(path);
    m_state.gUploadNOW = today();
    const BoxAnswer answer = m_state.gFileBuffer.Version == m_state.gProgramVersion
                                 ? BoxAnswer::Yes
                                 : askForOtherVersion(m_state.prompts, m_state.gFileBuffer.Version);
    if (answer == BoxAnswer::Yes)
        acceptFile();
    return answer != BoxAnswer::No;
}

void FileCommands::acceptFile()
{
    m_state.gWorkingData = m_state.gFileBuffer;
    m_state.gSavedData = m_state.gWorkingData;
    m_state.gUntitled = false;
    setCaption(u'[' + m_state.gFileNameTitle + u']');
    m_recent.add(m_state.gFileNamePath);
    loadNames();
    m_state.announceNewData();
}

/// A names file that cannot be used costs the names, never the data.
void FileCommands::loadNames()
{
    const LoadedNames loaded = loadLabelNames(m_state.gFileNamePath);
    m_state.labelNames = m_state.savedLabelNames = loaded.names;
    if (loaded.fault.isEmpty())
        return;
    const QString text = QStringLiteral("The names of the labels cannot be used:\r\n%1\r\n%2"
                                        "\r\n\r\nThe set-up data are complete.")
                             .arg(labelNamesFile(m_state.gFileNamePath), loaded.fault);
    m_state.prompts.showMessage(
        {BoxIcon::Warning, BoxButtons::Ok, "Label Names", text.toStdString()});
}

/// False when they could not be saved, which is told.
bool FileCommands::saveNames()
{
    const auto reason = saveLabelNames(m_state.gFileNamePath, m_state.labelNames);
    if (!reason)
        m_state.savedLabelNames = m_state.labelNames;
    else
        m_state.prompts.showMessage({BoxIcon::Warning, BoxButtons::Ok, "Label Names",
                                     "The set-up data are saved, the names of the labels are "
                                     "not.\r\n\r\n" +
                                         reason->toStdString()});
    return !reason;
}

bool FileCommands::save()
{
    if (m_state.gUntitled)
        return saveAs();
    const auto error = writeFile();
    if (error)
        m_state.prompts.showMessage({BoxIcon::Warning, BoxButtons::Ok, "TAMBRIX",
                                     "Cannot Save File\r\n" + m_state.gFileNamePath.toStdString() +
                                         "\r\n\r\n" + error->toStdString()});
    return !error && saveNames();
}

bool FileCommands::saveAs()
{
    const auto path = m_state.prompts.askSaveFile(
        {QStringLiteral("Save As"), kSetupFilter, saveFolder(), {}, QStringLiteral("sdt")});
    if (!path)
        return false;
    m_state.gUntitled = false;
    setFileName(*path);
    return !writeFile() && saveNames();
}

QString FileCommands::saveFolder() const
{
    return m_state.gFileNamePath.isEmpty() ? m_state.programFolder.path()
                                           : QFileInfo(m_state.gFileNamePath).path();
}

/// Returns the reason when it failed; then nothing in memory has changed.
std::optional<QString> FileCommands::writeFile()
{
    SetupDataRecord record = m_state.gWorkingData;
    record.Version = m_state.gProgramVersion;
    const auto error =
        writeWholeFile(m_state.gFileNamePath, QByteArray::fromStdString(setupFileBytes(record)));
    if (error)
        return error;
    m_state.gWorkingData = std::move(record);
    m_state.gSavedData = m_state.gWorkingData;
    setCaption(u'[' + m_state.gFileNameTitle + u']');
    m_recent.add(m_state.gFileNamePath);
    return std::nullopt;
}

void FileCommands::exportShiftData()
{
    const QFileInfo last(m_state.gFileExportPath);
    const bool first = m_state.gFileExportPath.isEmpty();
    const auto path =
        m_state.prompts.askSaveFile({QStringLiteral("Export Shift Data"), kTextFilter,
                                     first ? m_state.programFolder.path() : last.path(),
                                     first ? QString() : last.fileName(), QStringLiteral("txt")});
    if (!path)
        return;
    m_state.gFileExportPath = *path;
    writeWholeFile(*path, shiftDataReport(m_state).toLocal8Bit());
}

void FileCommands::setFileName(const QString& path)
{
    m_state.gFileNamePath = path;
    m_state.gFileNameTitle = QFileInfo(path).fileName();
}

void FileCommands::setCaption(const QString& caption)
{
    m_state.gFileNameCaption = caption;
    emit captionChanged();
}

BoxAnswer askForOtherVersion(Prompts& prompts, const std::string& version)
{
    return prompts.showMessage(
        {BoxIcon::Question, BoxButtons::YesNoCancel, "TAMBRIX",
         "File created by set-up program version: " + QString::fromLatin1(version).toStdString() +
             "\r\nData tables may not be properly aligned.\r\n\r\nDo you wish to continue?"});
}

QString shiftDataReport(const ProgramState& state)
{
    const QString& title = state.gFileNameTitle;
    const QString date = QLocale().toString(state.gUploadNOW.date(), QLocale::ShortFormat);
    QStringList lines = {title.isEmpty() ? QStringLiteral("untitled") : title,
                         QStringLiteral("Date: ") + date, QStringLiteral(" "),
                         QStringLiteral("Cycling Counts (1-8):")};
    for (std::size_t d = 0; d < kDuctors; ++d)
        lines += fromLink(valueText(state.gWorkingData.Value[kShiftCountSlot + d]));
    return lines.join(QLatin1String("\r\n")) + QLatin1String("\r\n");
}

} // namespace tambrix
