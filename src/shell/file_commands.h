#pragma once

#include "shell/program_state.h"
#include "shell/recent_files.h"

#include <QObject>

namespace tambrix {

/// The File menu's New, Open, Save, Save As and Export Shift Data: they keep the working data set
/// in set-up files (*.sdt), the labels' names beside them, and write its shift counts as text.
class FileCommands : public QObject
{
    Q_OBJECT

public:
    explicit FileCommands(ProgramState& state) : m_state(state) {}

    /// The default data set under no name.
    void newFile();

    /// Asks for a set-up file and takes its data over. A file that cannot be read, or is none,
    /// changes nothing and is not mentioned; one of another program version is taken only after
    /// a question.
    void open();

    /// The same for a file that is known already: from the command line, dropped, or recent.
    void openFile(const QString& path);

    /// Saves under the current name, or under one asked for while there is none. Returns whether
    /// the data are in the file; nothing in memory has changed when they are not.
    bool save();

    /// Asks for a name and saves under it. A failure is not mentioned, but one with the names is.
    bool saveAs();

    /// Writes the shift cycling counts of the working data as text, under a name asked for.
    void exportShiftData();

    /// Asks whether to save unsaved changes, and saves them. False when the working data must
    /// stay: after Cancel, and when they were to be saved but were not.
    bool mayDropData();

    RecentFiles& recent() { return m_recent; }

signals:
    /// `gFileNameCaption` has been set.
    void captionChanged();

private:
    bool load(const QString& path);
    void sayGone(const QString& path);
    void acceptFile();
    QString saveFolder() const;
    void setFileName(const QString& path);
    void setCaption(const QString& caption);
    void loadNames();
    bool saveNames();
    std::optional<QString> writeFile();

    ProgramState& m_state;
    RecentFiles m_recent;
};

/// Asks whether a file of another program version is to be used all the same.
BoxAnswer askForOtherVersion(Prompts& prompts, const std::string& version);

/// The text of a shift-data export; lines end in CR LF.
QString shiftDataReport(const ProgramState& state);

} // namespace tambrix
