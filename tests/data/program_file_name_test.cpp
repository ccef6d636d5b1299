#include "data/program_file_name.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tambrix;

TEST(ProgramFileName, ChangeTheExtensionOnly)
{
    EXPECT_EQ(ChangeExtension("/press/line.2/job.fnx", "rev"), "/press/line.2/job.rev");
    EXPECT_EQ(ChangeExtension("/press/job.v1.fnx", "hex"), "/press/job.v1.hex");
    EXPECT_EQ(ChangeExtension("/press/job", "lcf"), "/press/job.lcf");
}

TEST(ProgramFileName, ReadTheBoardTypeOfAProgram)
{
    struct Case
    {
        const char* content; ///< of the .FNX file; null: there is none
        int type;
    };
    const Case cases[] = {{nullptr, 68}, {"", 68},      {"A,rest\r\n", 65}, {"2", 50},
                          {",2", 68},    {"\r\n4", 68}, {"\xE9", 233}};
    for (const Case& c : cases) {
        const QTemporaryDir folder;
        if (c.content != nullptr) {
            QFile file(folder.filePath("job.fnx")); // found whatever the case of its name
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(c.content);
        }
        EXPECT_EQ(ProgramFileTypeChar(folder.filePath("job.rev")), c.type)
            << (c.content == nullptr ? "no file" : c.content);
    }
}
