// The built program, as a script sees it: arguments, exit code, output, and what stands on the
// simulated controller afterwards.

#include "data/label_names.h"
#include "simulator/sample_program.h"
#include "tests/commands/command_rig.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

constexpr std::size_t kMaximumCycle = 8; // entries of the data set
constexpr std::size_t kMaximumOn = 9;

} // namespace

TEST(Cli, SaysWhatItCannotDo)
{
    const CommandRig rig;
    struct Case
    {
        const char* line;
        int code;
        const char* text; ///< on the error stream
    };
    const Case cases[] = {
        {"", 2, "Usage"},
        {"fly", 2, "no command 'fly'"},
        {"read", 2, "usage: tambrix-cli read"},
        {"read W690 --fly", 2, "fly"},
        {"read X12", 2, "names no register"},
        {"read W65535", 2, "behind the controller's memory"},
        {"read W690 --baud 1200", 2, "9600 or 19200"},
        {"write W690=700", 2, "takes 140 to 650, not 700"},
        {"write B692=256", 2, "takes 0 to 255"},
        {"write W690=150 B5999=1", 2, "none of the parameters"},
        {"download missing.sdt", 5, "missing.sdt"},
        {"upload missing/out.sdt", 5, "missing/out.sdt"},
        {"find W690 .", 2, "no comparison"},
        {"compare missing.sdt", 5, "missing.sdt"},
        {"program missing.fnx --yes", 5, "missing.fnx"},
        {"read W690 --serial-device no-such-device", 3, "Comm Port Error"},
    };
    for (const Case& c : cases) {
        const Ended run = rig.run(c.line);
        EXPECT_EQ(run.code, c.code) << c.line << "\n" << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(c.text)) << c.line << "\n" << run.err.toStdString();
        EXPECT_TRUE(c.line[0] == 0 || run.err.count('\n') == 1) << run.err.toStdString();
    }
    EXPECT_EQ(rig.run("read W690").out, "W690=500\n") << "a refused write wrote nothing";
}

TEST(Cli, ReadsAndWritesRegisters)
{
    const CommandRig rig;
    EXPECT_EQ(rig.run("write W690=510 B692=180").out, "W690=510\nB692=180\n");
    EXPECT_EQ(rig.run("write B5999=7 --force").code, 0);
    const Ended run = rig.run("read w690 B5999 B5999.0 --json");
    EXPECT_EQ(run.code, 0);
    const QJsonObject values = QJsonDocument::fromJson(run.out.toUtf8()).object();
    EXPECT_EQ(values, (QJsonObject{{"W690", 510}, {"B5999", 7}, {"B5999.0", 1}}));
}

TEST(Cli, MovesWholeDataSets)
{
    const CommandRig rig({"--unpaced", "--manual"});
    ASSERT_EQ(rig.run("upload a.sdt").code, 0);
    EXPECT_EQ(rig.run("compare a.sdt").code, 0);
    SetupDataRecord changed = rig.load("a.sdt");
    ASSERT_EQ(changed.Value.size(), 1614u);
    changed.Value[kMaximumCycle] = 490;
    changed.Value[14 + 16 * 5 + 2] = 33; // label 5, ON of ductor 3
    rig.save("b.sdt", changed);

    const Ended compared = rig.run("compare b.sdt a.sdt");
    EXPECT_EQ(compared.code, 1);
    EXPECT_TRUE(compared.out.contains("Maximum Cycle Duration")) << compared.out.toStdString();
    EXPECT_EQ(rig.run("find \"label 5 ON3=33\" .").out, "./b.sdt: label 5\n");

    LabelNames names;
    names.set(5, "=Beer \"gold\"");
    ASSERT_FALSE(saveLabelNames(rig.folder.filePath("b.sdt"), names));
    EXPECT_EQ(rig.run("convert b.sdt b.json").code, 0);
    EXPECT_EQ(rig.run("convert b.json b.csv").code, 0);
    EXPECT_EQ(rig.run("convert b.csv c.sdt").code, 0);
    EXPECT_EQ(rig.load("c.sdt"), changed);
    EXPECT_EQ(loadLabelNames(rig.folder.filePath("c.sdt")).names, names);

    EXPECT_EQ(rig.run("download b.sdt --dry-run").code, 1);
    EXPECT_EQ(rig.run("compare a.sdt").code, 0) << "a dry run writes nothing";
    EXPECT_EQ(rig.run("download b.sdt --labels 6-9 --group labels").code, 0)
        << "nothing there differs";
    EXPECT_EQ(rig.run("download b.sdt --backup before.sdt").code, 0);
    EXPECT_EQ(rig.run("compare b.sdt").code, 0);
    EXPECT_EQ(rig.run("compare a.sdt before.sdt").code, 0);
}

TEST(Cli, RefusesWhatWouldHarmThePress)
{
    const CommandRig rig;
    ASSERT_EQ(rig.run("upload a.sdt --quiet").code, 0);
    const SetupDataRecord before = rig.load("a.sdt");
    struct Case
    {
        std::size_t entry;
        int value;
        const char* options;
        int code;
    };
    const Case cases[] = {{kMaximumOn, 300, "--force", 2}, // the register cannot hold it
                          {kMaximumCycle, 700, "", 2},     // no screen would take it
                          {kMaximumCycle, 700, "--force", 0}};
    for (const Case& c : cases) {
        SetupDataRecord wrong = before;
        wrong.Value[c.entry] = c.value;
        rig.save("wrong.sdt", wrong);
        EXPECT_EQ(rig.run(QString("download wrong.sdt ") + c.options).code, c.code)
            << c.value << c.options;
    }
    EXPECT_EQ(rig.run("read B692 W690").out, "B692=200\nW690=700\n");
    SetupDataRecord older = before;
    older.Version = "TAMBRIX_R0.9.0";
    rig.save("older.sdt", older);
    EXPECT_EQ(rig.run("download older.sdt").code, 7);
    EXPECT_EQ(rig.run("download older.sdt --accept-version").code, 0);
    EXPECT_EQ(rig.run("clock --set").code, 7) << "the machine runs";
}

TEST(Cli, TellsWhatTheBoardIs)
{
    const CommandRig rig;
    EXPECT_TRUE(rig.run("faults").out.contains("Current Fault: 00H"));
    const Ended identity = rig.run("identify --json");
    EXPECT_TRUE(QJsonDocument::fromJson(identity.out.toUtf8()).object().contains("checksum"));
    EXPECT_TRUE(rig.run("clock").out.startsWith("Board time: 20"));
    EXPECT_EQ(rig.run("read W112 --simulate --serial-device x").code, 2);
}

TEST(Cli, WatchesUntilItsReaderIsGone)
{
    const CommandRig rig;
    QProcess watch;
    QProcess reader; // goes after a few lines
    watch.setStandardOutputProcess(&reader);
    rig.start(watch, {"watch"});
    reader.start("head", {"-n", "8"});
    EXPECT_EQ(CommandRig::finished(watch).code, 5);
    const Ended read = CommandRig::finished(reader);
    EXPECT_TRUE(read.out.contains("\"speed\"") && read.out.contains("\"counts\""));
    int number = 0;
    for (const QString& line : read.out.trimmed().split('\n'))
        EXPECT_EQ(QJsonDocument::fromJson(line.toUtf8()).object().value("n").toInt(), ++number);
    EXPECT_EQ(number, 8);
}

TEST(Cli, InterruptedBetweenTwoValues)
{
    CommandRig rig({"--baud", "9600"}); // paced: long enough to come in between
    QProcess upload;
    rig.start(upload, {"upload", "half.sdt"});
    QTest::qWait(300);
    upload.terminate();
    const Ended run = CommandRig::finished(upload);
    EXPECT_EQ(run.code, 6) << run.err.toStdString();
    EXPECT_FALSE(QFile::exists(rig.file("half.sdt")));
    EXPECT_EQ(rig.run("read W690").code, 0) << "the board has left its mode";
}

TEST(Cli, InterruptedBetweenTwoWrites)
{
    CommandRig rig({"--unpaced", "--manual"});
    ASSERT_EQ(rig.run("upload a.sdt").code, 0);
    SetupDataRecord changed = rig.load("a.sdt");
    Ended run;
    const auto inBetween = [&run] {
        return run.code == 6 && run.err.contains("values written and verified");
    };
    for (int tries = 0; !inBetween() && tries < 10; ++tries) { // else too early, or too late
        for (std::size_t i = 14; i < changed.Value.size(); ++i)
            changed.Value[i] = (i - 14) % 16 < 8 ? 10 + tries : 100 + tries; // ON, CYCLE
        rig.save("b.sdt", changed);
        QFile::remove(rig.file("before.sdt"));
        QProcess download;
        rig.start(download, {"download", "b.sdt", "--backup", "before.sdt", "--group", "labels"});
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(rig.file("before.sdt")); }, 20'000));
        download.terminate();
        run = CommandRig::finished(download);
    }
    EXPECT_TRUE(inBetween()) << run.code << run.err.toStdString();
    EXPECT_EQ(rig.run("compare b.sdt").code, 1) << "the board has left its mode, and has a part";
}

TEST(Cli, FullDiskLeavesFileAndPressAsTheyWere)
{
    const CommandRig rig({"--unpaced", "--manual"});
    ASSERT_EQ(rig.run("upload a.sdt").code, 0);
    SetupDataRecord changed = rig.load("a.sdt");
    changed.Value[kMaximumCycle] = 490;
    rig.save("b.sdt", changed);
    for (const char* line : {"upload b.sdt", "download b.sdt", "download b.sdt --backup a.sdt",
                             "convert b.sdt a.csv"}) {
        const Ended run = rig.runOnFullDisk(line);
        EXPECT_EQ(run.code, 5) << line << run.err.toStdString();
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.toStdString();
    }
    EXPECT_EQ(rig.load("b.sdt").Value[kMaximumCycle], 490);
    EXPECT_EQ(rig.run("compare a.sdt").code, 0) << "the press holds what it held";
    EXPECT_FALSE(QFile::exists(rig.file("a.csv")));
}

TEST(Cli, SetsTheClock)
{
    const CommandRig rig;
    const QDateTime before = QDateTime::currentDateTime().addSecs(-2);
    const Ended run = rig.run("clock --set --while-running --json");
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    const QString told =
        QJsonDocument::fromJson(run.out.toUtf8()).object().value("time").toString();
    const QDateTime board = QDateTime::fromString(told, "yyyy-MM-dd HH:mm:ss");
    EXPECT_TRUE(board >= before && board <= QDateTime::currentDateTime().addSecs(2))
        << told.toStdString();
}

// The board takes 2 s to start a program; others wait for a dead line.
TEST(CliSlow, LoadsAProgramOnlyWhenToldTo)
{
    const CommandRig rig;
    writeSampleProgram({}, rig.folder.path().toStdString(), "ink");
    struct Case
    {
        const char* options;
        int code;
        const char* text;
    };
    const Case cases[] = {{"--yes", 7, "the machine runs"},
                          {"--while-running", 7, "give --yes"},
                          {"--while-running --yes", 0, "Complete"}};
    for (const Case& c : cases) {
        const Ended run = rig.run(QString("program ink.fnx ") + c.options);
        EXPECT_EQ(run.code, c.code) << c.options;
        EXPECT_TRUE(run.err.contains(c.text)) << run.err.toStdString();
    }
    const CommandRig garbled({"--unpaced", "--garble-record", "2"});
    writeSampleProgram({}, garbled.folder.path().toStdString(), "ink");
    EXPECT_EQ(garbled.run("program ink.fnx --yes --while-running").code, 4);
}

TEST(CliSlow, CablePulledInTheMiddle)
{
    CommandRig rig({"--baud", "9600", "--unplug-after", "1"});
    const Ended run = rig.run("upload out.sdt");
    EXPECT_EQ(run.code, 3) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains("Cannot Communicate with Target Board.")) << run.err.toStdString();
    EXPECT_FALSE(QFile::exists(rig.file("out.sdt")));
}
