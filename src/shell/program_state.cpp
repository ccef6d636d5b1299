#include "shell/program_state.h"

#include "data/version.h"
#include "shell/data_edit.h"

#include <QFileInfo>

namespace tambrix {

namespace {

std::filesystem::path absolutePath(const QDir& folder)
{
    return QFileInfo(folder.absolutePath()).filesystemAbsoluteFilePath();
}

} // namespace

QDateTime today()
{
    return QDate::currentDate().startOfDay();
}

ProgramState::ProgramState(const ProgramFolders& folders, SerialPort& commPort, Clock& clock,
                           Prompts& person)
    : programFolder(folders.program),
      dataRoot(folders.data),
      prompts(person),
      gCommPort(commPort),
      m_linkBoxes(person),
      gLink(absolutePath(folders.program), clock, m_linkBoxes, absolutePath(folders.settings))
{
}

void ProgramState::InitSetupData()
{
    gProgramVersion = kFileVersion;
    gDefaultData = defaultSetupData(gProgramVersion);
    gWorkingData = gDefaultData;
    gSavedData = gDefaultData;
    gUntitled = true;
}

void ProgramState::ApplyOnlineMode()
{
    if (gLink.OnlineMode)
        gLink.OpenRSComm(gCommPort);
    else
        gLink.CloseRSComm();
    emit onlineModeApplied(gLink.OnlineMode);
    if (gLink.CommError)
        gLink.OnlineMode = false;
}

void ProgramState::setOnline(bool wanted)
{
    if (gLink.isBusy()) {
        emit onlineModeApplied(gLink.OnlineMode);
        return;
    }
    gLink.OnlineMode = wanted;
    ApplyOnlineMode();
}

bool ProgramState::offerOnline()
{
    if (gLink.OnlineMode)
        return true;
    if (prompts.showMessage({BoxIcon::Question, BoxButtons::YesNo, "Program Offline",
                             "Program is Currently OFFLINE\r\n\r\n"
                             "Do You Wish to Switch to ONLINE MODE to Continue?"}) !=
        BoxAnswer::Yes)
        return false;
    setOnline(true);
    return true;
}

void ProgramState::announceNewData()
{
    undoStack.clear();
    emit dataReplaced();
}

bool ProgramState::hasUnsavedChanges() const
{
    return gWorkingData.Version != gProgramVersion || gWorkingData.Value != gSavedData.Value ||
           labelNames != savedLabelNames;
}

void ProgramState::edit(const QString& what, DataChange change)
{
    if (!change.isEmpty())
        undoStack.push(new DataEdit(*this, what, std::move(change)));
}

} // namespace tambrix
