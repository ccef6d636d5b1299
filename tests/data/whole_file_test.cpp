#include "data/backups.h"
#include "data/own_file.h"
#include "data/press_name.h"
#include "data/trace_text.h"
#include "data/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace tambrix {
namespace {

constexpr qint64 kLongest = 1 << 20;

struct WholeFile : testing::Test
{
    QTemporaryDir folder;
    QString path = folder.filePath("press.sdt");

    QByteArray content() const { return readWholeFile(path, kLongest).value_or("unreadable"); }
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

TEST_F(WholeFile, OldContentIsUntouchedUntilTheNewFileTakesItsPlace)
{
    writeWholeFile(path, "old");
    const QString other = folder.filePath("also.sdt");
    std::filesystem::create_hard_link(QFileInfo(path).filesystemFilePath(),
                                      QFileInfo(other).filesystemFilePath());
    EXPECT_FALSE(writeWholeFile(path, "new"));
    EXPECT_EQ(content(), "new");
    EXPECT_EQ(readWholeFile(other, kLongest), "old") << "written over, not replaced";
    EXPECT_TRUE(writeWholeFile(folder.filePath("gone/press.sdt"), "new"));
}

TEST_F(WholeFile, ALockThatNamesNobodyIsRemovedAndAHeldOneIsNot)
{
    const QString name = path + ".lock";
    QLockFile lock(name);
    EXPECT_FALSE(removeNamelessLock(lock)) << "there is none";
    writeWholeFile(name, {});
    EXPECT_TRUE(removeNamelessLock(lock));
    QLockFile held(name);
    ASSERT_TRUE(held.tryLock(0));
    EXPECT_FALSE(removeNamelessLock(lock));
}

TEST_F(WholeFile, WhatTheProgramKeepsFollowsNoLink)
{
    const QDir root(folder.filePath("root"));
    const QDir elsewhere(folder.filePath("elsewhere"));
    const QDateTime now = QDateTime::currentDateTime();
    const std::pair<const char*, std::function<bool()>> places[] = {
        {"press-name.txt", [&] { return setPressName(root, "p").has_value(); }},
        {"options.ini",
         [&] { return keepOwnSetting(root.filePath("options.ini"), "a", 1).has_value(); }},
        {"Traces",
         [&] { return keepTrace(LineTrace(1), root.filePath("Traces"), now).has_value(); }},
        {"Backups",
         [&] { return Backups(root).save(defaultSetupData("V"), now, "p").index() == 1; }},
    };
    for (const auto& [place, refused] : places) {
        SCOPED_TRACE(place);
        const bool isFolder = !QString(place).contains(u'.');
        ASSERT_TRUE(root.mkpath(".") && elsewhere.mkpath(isFolder ? place : "."));
        std::filesystem::create_symlink(QFileInfo(elsewhere.filePath(place)).filesystemFilePath(),
                                        QFileInfo(root.filePath(place)).filesystemFilePath());
        EXPECT_TRUE(refused());
        EXPECT_TRUE(isFolder ? QDir(elsewhere.filePath(place)).isEmpty() : elsewhere.isEmpty());
        QDir(elsewhere).removeRecursively();
    }
}

} // namespace
} // namespace tambrix
