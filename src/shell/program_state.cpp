#include "shell/program_state.h"

#include "data/version.h"

#include <QFileInfo>

namespace tambrix {

QDateTime today()
{
    return QDate::currentDate().startOfDay();
}

ProgramState::ProgramState(const QDir& folder, SerialPort& commPort, Clock& clock, Prompts& person)
    : programFolder(folder),
      prompts(person),
      gCommPort(commPort),
      gLink(QFileInfo(folder.absolutePath()).filesystemAbsoluteFilePath(), clock, person)
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

bool ProgramState::hasUnsavedChanges() const
{
    return gWorkingData.Version != gProgramVersion || gWorkingData.Value != gSavedData.Value;
}

} // namespace tambrix
