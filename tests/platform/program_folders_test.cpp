#include "platform/program_folders.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tambrix;

TEST(ProgramFolders, StayWithTheProgramWhereItCanBeWritten)
{
    const QTemporaryDir program;
    const QTemporaryDir user;
    const ProgramFolders own = chooseFolders(QDir(program.path()), QDir(user.path()));
    EXPECT_EQ(own.program.path(), program.path());
    EXPECT_EQ(own.data.path(), program.path());
    EXPECT_EQ(own.settings.path(), program.filePath("Support"));
    EXPECT_TRUE(QDir(program.path()).isEmpty()) << "a choice leaves nothing behind";

    const QDir installed(program.filePath("not there"));
    const ProgramFolders moved = chooseFolders(installed, QDir(user.path()));
    EXPECT_EQ(moved.program.path(), installed.path());
    EXPECT_EQ(moved.data.path(), user.path());
    EXPECT_EQ(moved.settings.path(), user.filePath("Support"));
}
