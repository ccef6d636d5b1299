#pragma once

#include <QObject>
#include <QStringList>

namespace tambrix {

/// The set-up files last opened or saved, newest first.
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int kMost = 6;

    /// Keeps the list in this INI file from now on, starting from what is there. Before that it
    /// lasts for the run of the program only.
    void keepIn(const QString& iniFile);

    /// Puts a file to the front.
    void add(const QString& path);

    /// Drops a file, for instance one that is gone.
    void remove(const QString& path);

    const QStringList& paths() const { return m_paths; }

signals:
    void changed();

private:
    void store();

    QString m_iniFile;
    QStringList m_paths;
};

} // namespace tambrix
