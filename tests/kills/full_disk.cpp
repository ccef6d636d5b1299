#include "tests/kills/full_disk.h"

#include "tests/kills/savers.h"

#include <QFile>
#include <QStorageInfo>

#include <cstdio>

namespace tambrix {

namespace {

constexpr qint64 kPage = 4096;
constexpr int kPages = 100; // more than any of the files takes, twice over

/// Leaves `free` bytes of the disk.
bool leave(const QDir& disk, qint64 free)
{
    QFile ballast(disk.filePath("ballast"));
    ballast.remove();
    const qint64 size = QStorageInfo(disk).bytesAvailable() - free;
    return size >= 0 && ballast.open(QIODevice::WriteOnly) &&
           ballast.write(QByteArray(size, 'x')) == size && ballast.flush();
}

/// Returns whether the old or the new version stands there, as the save says.
bool keptOrSaved(const Saver& saver, const QDir& disk, const QDir& folder, int& refused)
{
    constexpr int number = 2;
    const auto failure = saver.save(folder, number);
    refused += failure ? 1 : 0;
    leave(disk, kPages * kPage); // a database takes room to be read
    return saver.version(folder) == (failure ? 1 : number) && (!failure || !failure->isEmpty());
}

} // namespace

int fillDisk(const QDir& disk)
{
    int lost = 0;
    for (const Saver& saver : savers()) {
        int refused = 0;
        int bad = 0;
        for (int pages = 0; pages < kPages; ++pages) {
            QDir folder(disk.filePath("save"));
            folder.removeRecursively();
            const bool ready = leave(disk, disk.mkpath("save") ? kPages * kPage : 0) &&
                               !saver.save(folder, 1) && leave(disk, pages * kPage);
            bad += ready && keptOrSaved(saver, disk, folder, refused) ? 0 : 1;
        }
        std::printf("%-16s %3d saves, %d refused for want of room, %d files lost\n", saver.name,
                    kPages, refused, bad);
        lost += bad;
    }
    return lost == 0 ? 0 : 1;
}

} // namespace tambrix
