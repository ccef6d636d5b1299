#pragma once

#include "data/label_names.h"
#include "data/refusal.h"
#include "data/setup_data.h"

#include <QDateTime>
#include <QDir>
#include <QString>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tambrix {

/// One file of the backups' folder.
struct BackupFile
{
    QString path;
    QString title; ///< file name without extension: date, time, press name
};

/// What the last restore wrote, for "Undo Last Restore".
struct LastRestore
{
    QString backup;                     ///< path of the backup that was made before it
    std::vector<std::string> addresses; ///< the registers it wrote, or may have
};

/// Complete copies of the controller's data: ordinary set-up files in the folder Backups below
/// the data root, named by date, time and press name ("2026-11-21 16-04-02 press 2.sdt"). The
/// last 50 are kept; files with other names are nobody's business here.
class Backups
{
public:
    explicit Backups(const QDir& dataRoot) : m_folder(dataRoot.filePath(QStringLiteral("Backups")))
    {
    }

    /// Saves `record`, and the names beside it, and returns the new file's path. The oldest files
    /// go where there are too many, but only after the new one is safe on the disk.
    std::variant<QString, Refusal> save(const SetupDataRecord& record, const QDateTime& when,
                                        const QString& press, const LabelNames& names = {}) const;

    /// All backups, the latest first.
    std::vector<BackupFile> list() const;

    /// Returns the reason when it failed.
    std::optional<QString> rememberRestore(const LastRestore& restore) const;
    /// Nothing when there was none, or its backup is gone.
    std::optional<LastRestore> lastRestore() const;

    const QDir& folder() const { return m_folder; }

private:
    QString freePath(const QString& title) const;
    void removeOldest() const;

    QDir m_folder;
};

} // namespace tambrix
