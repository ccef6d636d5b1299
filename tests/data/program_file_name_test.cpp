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
    const std::pair<QByteArray, int> cases[] = {{{}, 68},     {"", 68},   {"A,rest\r\n", 65},
                                                {"2", 50},    {",2", 68}, {"\r\n4", 68},
                                                {"\xE9", 233}};
    for (const auto& [content, type] : cases) {
        const QTemporaryDir folder;
        if (!content.isNull()) {
            QFile file(folder.filePath("job.fnx")); // found whatever the case of its name
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(content);
        }
        EXPECT_EQ(ProgramFileTypeChar(folder.filePath("job.rev")), type) << content.toStdString();
    }
}
