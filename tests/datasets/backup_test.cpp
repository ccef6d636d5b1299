#include "data/backups.h"
#include "datasets/backup_dialog.h"
#include "datasets/daily_backup.h"
#include "tests/support/modal_watch.h"
#include "tests/support/press_rig.h"

#include <QSettings>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

struct BackupRig : PressRig
{
    BackupRig()
    {
        board.press().stop();
        line.setBaud(0);
        goOnline();
    }
    std::size_t backups() const { return Backups(state.dataRoot).list().size(); }
};

} // namespace

TEST(BackUpBeforeDownload, LetsTheDownloadBeginOnlyWithABackup)
{
    BackupRig rig;
    EXPECT_TRUE(backUpBeforeDownload(rig.state, nullptr));
    EXPECT_EQ(rig.backups(), 1U);
    {
        ModalWatch<BackupDialog> cancel([](BackupDialog& dialog) { dialog.reject(); });
        EXPECT_FALSE(backUpBeforeDownload(rig.state, nullptr));
        EXPECT_TRUE(rig.person.boxes.empty()) << "the user knows why";
    }
    rig.line.unplug();
    EXPECT_FALSE(backUpBeforeDownload(rig.state, nullptr));
    ASSERT_EQ(rig.person.boxes.size(), 2U) << "the link's own box, then the reason";
    EXPECT_EQ(rig.backups(), 1U);
}

TEST(DailyBackup, IsDueOnceADayAndAMissedOneStaysDue)
{
    const QDate day(2026, 11, 21);
    const auto at = [&](int days, int hour) {
        return QDateTime(day.addDays(days), QTime(hour, 0));
    };
    const QTime six(6, 0);
    EXPECT_FALSE(dailyBackupDue(at(0, 5), six, at(-1, 6)));
    EXPECT_TRUE(dailyBackupDue(at(0, 6), six, at(-1, 6)));
    EXPECT_FALSE(dailyBackupDue(at(0, 7), six, at(0, 6)));
    EXPECT_TRUE(dailyBackupDue(at(3, 1), six, at(0, 6))) << "the PC was off";
    EXPECT_FALSE(dailyBackupDue(at(0, 7), six, {})) << "nobody asked for one";
}

TEST(DailyBackup, RunsByItselfOnLineAndTellsOnlyALine)
{
    BackupRig rig;
    DailyBackup daily(rig.state);
    QStringList lines;
    QObject::connect(&daily, &DailyBackup::told, [&](const QString& line) { lines += line; });
    daily.look();
    EXPECT_FALSE(daily.running()) << "off until somebody wants it";
    daily.setTime(QTime(6, 0));
    daily.look();
    EXPECT_FALSE(daily.running()) << "the first one is the next one";
    QSettings(rig.state.dataRoot.filePath("backups.ini"), QSettings::IniFormat)
        .setValue("DailyBackup/last", QDateTime::currentDateTime().addDays(-2));
    rig.state.setOnline(false);
    daily.look();
    EXPECT_FALSE(daily.running());
    rig.goOnline();
    daily.look();
    EXPECT_TRUE(daily.running());
    for (int turn = 0; lines.isEmpty() && turn < 20'000; ++turn)
        QCoreApplication::processEvents();
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_TRUE(lines.front().startsWith("Daily backup: ")) << lines.front().toStdString();
    EXPECT_EQ(rig.backups(), 1U);
    daily.look();
    EXPECT_FALSE(daily.running()) << "done for today";
    EXPECT_TRUE(rig.person.boxes.empty());
}
