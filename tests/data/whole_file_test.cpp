#include "data/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>

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

} // namespace
} // namespace tambrix
