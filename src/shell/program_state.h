#pragma once

#include "controls/frame_limit.h"
#include "data/data_change.h"
#include "link/rs_comm.h"
#include "platform/program_folders.h"
#include "shell/link_boxes.h"
#include "shell/prompts.h"

#include <QDateTime>
#include <QDir>
#include <QObject>
#include <QString>
#include <QUndoStack>

#include <functional>
#include <optional>

namespace tambrix {

class RecentSpeed;

/// Which parts the printed report holds.
struct ReportSettings
{
    bool printLabelData = true;
    bool printShiftData = true;
    bool printSetupData = true;
    bool allLabels = true;
    int firstLabel = 0; ///< 0 to 99
    int lastLabel = 99; ///< 0 to 99
};

/// Today's date, without a time, as date stamp of a data set.
QDateTime today();

/// Everything that the screens share for the whole run of the program: the one link, the data
/// sets, the names of the current files. Made once by the application and passed by reference.
class ProgramState : public QObject
{
    Q_OBJECT

public:
    ProgramState(const ProgramFolders& folders, SerialPort& commPort, Clock& clock,
                 Prompts& person);

    /// Builds the default data set and copies it to the working and the saved one.
    void InitSetupData();

    /// Makes the port follow `gLink.OnlineMode`: opens or closes it, and tells everybody who shows
    /// the mode what came of it.
    void ApplyOnlineMode();

    /// Changes the mode, for everybody who wants it changed: sets `gLink.OnlineMode` and applies
    /// it. While the link is busy nothing is changed, and the mode is only told again.
    void setOnline(bool wanted);

    /// What a loop does that finds a communication error: the whole program goes off line.
    void dropOffline() { setOnline(false); }

    /// Asks to go on line where the program is not, and goes. False when the user does not want
    /// to; a port that does not open has its own box, and `gLink.OnlineMode` tells.
    bool offerOnline();

    /// Whether the working data or the labels' names hold anything that has not been saved.
    bool hasUnsavedChanges() const;

    /// On line, and the link is not broken: what every write to the controller asks first.
    bool canReachBoard() const { return gLink.OnlineMode && !gLink.CommError; }

    const QDir programFolder; ///< with Support, Help and the set-up files below it
    const QDir dataRoot;      ///< what the program keeps for itself lies below it
    Prompts& prompts;
    SerialPort& gCommPort;

private:
    LinkBoxes m_linkBoxes; // before the link, which shows its boxes through it

public:
    RSComm gLink;

    std::string gProgramVersion; ///< "TAMBRIX_R" and major.minor.revision
    SetupDataRecord gDefaultData;
    SetupDataRecord gWorkingData;
    SetupDataRecord gSavedData;
    SetupDataRecord gFileBuffer;
    LabelNames labelNames;      ///< what this PC calls the labels of the working data
    LabelNames savedLabelNames; ///< as they are beside the file
    bool gUntitled = true;      ///< the working data has no file name yet

    QString gSystemMessage;       ///< what the main display shows; lines end in CR LF
    std::optional<int> alarmWord; ///< bit 0 for ductor 1; none: alarms are not known
    bool gOfflineEditing = false; ///< screens edit the working data while off line

    QString gFileNameCaption; ///< "[" file title "]"
    QString gFileNamePath;    ///< current set-up file
    QString gFileNameTitle;   ///< its name without the folder
    QString gFileExportPath;  ///< last shift-data export
    QString gProgramFilePath; ///< last controller program file
    QDateTime gUploadNOW;     ///< date stamp of the data set
    QString helpFile;

    bool everConnected = true; ///< a controller has answered on this machine at some time
    bool simulated = false;    ///< the controller is the built-in one
    QString portName;          ///< of the device in use; empty: the settings' number says it
    const RecentSpeed* recentSpeed = nullptr; ///< of the last minutes; none: not recorded
    LineWaits lineWaits;  ///< the times for what needs some and sends nothing, as painting
    QUndoStack undoStack; ///< off-line edits of the working data that can be taken back

    /// Asked before a download to the controller begins, on line and confirmed; false: it must
    /// not. Empty: it may.
    std::function<bool()> beforeDownload;
    bool mayDownload() const { return !beforeDownload || beforeDownload(); }

    ReportSettings report;

    int transferRequest = 0;          ///< code of the last bulk transfer
    bool labelRangeCancelled = false; ///< the label range dialog ended without a range

    /// The working data have been replaced by other ones (New, Open): what shows or keeps parts of
    /// the old ones forgets them, and there is nothing to undo any more.
    void announceNewData();

    /// Changes the working data in one step that can be undone, called `what`. Nothing where there
    /// is nothing to change.
    void edit(const QString& what, DataChange change);
    /// A step of editing was made, undone or redone: what shows the working data looks again.
    void announceEdit() { emit dataEdited(); }

signals:
    /// The port has been opened or closed; `online` is the mode to show.
    void onlineModeApplied(bool online);
    void dataReplaced();
    void dataEdited();
};

} // namespace tambrix
