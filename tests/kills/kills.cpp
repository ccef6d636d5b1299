// A program that is killed while it saves leaves the old file or the new one.
//   kills [--kills N]      N kills (1,000) of every kind of file, at random moments
//   kills --save K FOLDER  what is killed: saves kind K over and over
//   kills --full FOLDER    every save on a disk that is full at every place; see full_disk.cpp

#include "tests/kills/full_disk.h"
#include "tests/kills/savers.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <random>

using namespace tambrix;

namespace {

constexpr int kLongestRun = 12'000; // us from the first save to the kill

int saveForEver(const Saver& saver, const QDir& folder)
{
    for (int number = saver.version(folder).value_or(0) + 1;; ++number) {
        if (saver.save(folder, number))
            return 1;
        std::puts("saved");
        std::fflush(stdout);
    }
}

/// Returns whether a whole file stands there after a kill, and none went back in time.
bool survives(int kind, const QDir& folder, int& version, int microseconds)
{
    const Saver& saver = savers()[static_cast<std::size_t>(kind)];
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                {"--save", QString::number(kind), folder.path()});
    if (!child.waitForReadyRead())
        return false;
    QElapsedTimer running;
    for (running.start(); running.nsecsElapsed() < 1000LL * microseconds;) {
    }
    child.kill();
    child.waitForFinished();
    const auto found = saver.version(folder);
    const bool older = found && *found < version && !saver.comesAgain;
    version = found.value_or(version);
    return found && !older;
}

int killAll(int kills)
{
    std::minstd_rand random{1};
    int lost = 0;
    for (int kind = 0; kind < static_cast<int>(savers().size()); ++kind) {
        const QTemporaryDir folder;
        int version = 0;
        int bad = 0;
        for (int i = 0; i < kills; ++i)
            bad += survives(kind, QDir(folder.path()), version,
                            static_cast<int>(random() % kLongestRun))
                       ? 0
                       : 1;
        std::printf("%-16s %5d kills, %d files lost\n",
                    savers()[static_cast<std::size_t>(kind)].name, kills, bad);
        lost += bad;
    }
    return lost == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (argc == 4 && arguments[1] == "--save")
        return saveForEver(savers().at(arguments[2].toUInt()), QDir(arguments[3]));
    if (argc == 3 && arguments[1] == "--full")
        return fillDisk(QDir(arguments[2]));
    return killAll(argc == 3 && arguments[1] == "--kills" ? arguments[2].toInt() : 1000);
}
