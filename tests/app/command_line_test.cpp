#include "app/command_line.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

CommandLine parse(const QStringList& arguments)
{
    return parseCommandLine(QStringList("tambrix") + arguments);
}

} // namespace

TEST(CommandLineTest, TakesAFileAndWhereToFindThings)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("night shift.sdt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));

    const CommandLine line = parse(
        {"--serial-device", "/dev/ttyUSB7", "--program-folder", folder.path(), file.fileName()});
    EXPECT_EQ(line.text, "");
    EXPECT_EQ(line.serialDevice, "/dev/ttyUSB7");
    EXPECT_EQ(line.programFolder, folder.path());
    EXPECT_EQ(line.setupFile, QDir(folder.path()).absoluteFilePath("night shift.sdt"));
    EXPECT_FALSE(line.simulate);

    EXPECT_TRUE(parse({"--simulate"}).simulate);
    EXPECT_TRUE(parse({"--demo", folder.path()}).simulate);
}

TEST(CommandLineTest, SaysWhatItCannotDoAndHelps)
{
    const QString here = QDir::tempPath();
    const std::pair<QStringList, const char*> cases[] = {
        {{"--sim"}, "sim"},
        {{"a.sdt", "b.sdt"}, "Unexpected argument 'b.sdt'."},
        {{"no such file.sdt"}, "The file 'no such file.sdt' does not exist."},
        {{here}, "does not exist."}, // a folder is no set-up file
        {{"--program-folder", "/no/such"}, "The program folder '/no/such' does not exist."},
        {{"--simulate", "--serial-device", "COM3"}, "cannot be combined"},
        {{"--serial-device", ""}, "--serial-device needs a value."},
        {{"--serial-device", "tcp://press4"}, "must read tcp://HOST:PORT"},
        {{"--demo", ""}, "--demo needs a value."},
        {{"--demo"}, "demo"},
    };
    for (const auto& [arguments, said] : cases) {
        const CommandLine line = parse(arguments);
        EXPECT_EQ(line.exitCode, 2) << said;
        EXPECT_TRUE(line.text.contains(QLatin1String(said))) << qPrintable(line.text);
        EXPECT_TRUE(line.text.endsWith("Try 'tambrix --help'.\n")) << qPrintable(line.text);
    }
    EXPECT_EQ(parse({"-platform", "offscreen", "--style=Fusion"}).text, "");
    EXPECT_EQ(parse({"--help"}).exitCode, 0);
    EXPECT_TRUE(parse({"-h"}).text.contains("--serial-device <PATH>"));
    EXPECT_EQ(parse({"-v"}).exitCode, 0);
    EXPECT_TRUE(parse({"--version"}).text.startsWith("TAMBRIX "));
}
