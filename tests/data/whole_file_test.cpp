#include "data/whole_file.h"

#include "tests/data/save_loop.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

namespace tambrix {
namespace {

constexpr qint64 kLongest = 1 << 20;
constexpr int kPatience = 20'000; // ms that a helper program may take to start or to say something

struct WholeFile : testing::Test
{
    QTemporaryDir folder;
    QString path = folder.filePath("press.sdt");

    QByteArray content() const { return readWholeFile(path, kLongest).value_or("unreadable"); }

    /// How often the save loop is killed; a longer run may ask for more.
    static int kills()
    {
        const int asked = qEnvironmentVariableIntValue("TAMBRIX_KILLS");
        return asked > 0 ? asked : 20;
    }
};

TEST_F(WholeFile, ReadsOnlyPlainFilesOfReasonableLength)
{
    EXPECT_FALSE(readWholeFile(path, kLongest));
    EXPECT_FALSE(readWholeFile(folder.path(), kLongest));
    writeWholeFile(path, "12345");
    EXPECT_EQ(readWholeFile(path, 5), "12345");
    EXPECT_FALSE(readWholeFile(path, 4));
    QFile huge(path);
    ASSERT_TRUE(huge.resize(qint64{1} << 40)); // a sparse file: nothing of it may be read
    EXPECT_FALSE(readWholeFile(path, kLongest));
}

TEST_F(WholeFile, FullDiskLeavesTheOldFile)
{
#ifdef Q_OS_WIN
    GTEST_SKIP() << "no way to limit a file's length here";
#endif
    writeWholeFile(path, savedContent(0));
    QProcess helper;
    // Room for the first half of the file; then every write fails as on a full disk.
    helper.start("/bin/sh",
                 {"-c", "trap '' XFSZ; ulimit -f 8; exec \"$0\" \"$1\" 2", SAVE_LOOP, path});
    ASSERT_TRUE(helper.waitForFinished(kPatience));
    EXPECT_EQ(helper.exitCode(), 1) << "the failed save was not noticed";
    EXPECT_EQ(content(), savedContent(0));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("press.sdt"));
}

TEST_F(WholeFile, KilledSaveLeavesTheOldOrTheNewFile)
{
    std::mt19937 random(std::random_device{}());
    for (int kill = 0; kill < kills(); ++kill) {
        QProcess helper;
        helper.start(SAVE_LOOP, {path});
        ASSERT_TRUE(helper.waitForReadyRead(kPatience)); // the file is there
        helper.waitForFinished(static_cast<int>(random() % 12));
        helper.kill();
        ASSERT_TRUE(helper.waitForFinished(kPatience));
        const QByteArray found = content();
        EXPECT_TRUE(found == savedContent(0) || found == savedContent(1)) << "kill " << kill;
    }
}

} // namespace
} // namespace tambrix
