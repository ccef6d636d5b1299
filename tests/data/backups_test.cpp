#include "data/backups.h"
#include "data/press_name.h"
#include "data/setup_file_source.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

const QDateTime kNoon(QDate(2026, 11, 21), QTime(12, 0, 2));

QString savedPath(const std::variant<QString, Refusal>& result)
{
    const auto* path = std::get_if<QString>(&result);
    return path != nullptr ? *path : QStringLiteral("refused: ") + std::get<Refusal>(result).reason;
}

struct BackupsTest : testing::Test
{
    const QTemporaryDir root;
    const Backups backups{QDir(root.path())};
};

} // namespace

TEST_F(BackupsTest, AreOrdinarySetupFilesNamedForTheirPress)
{
    SetupDataRecord record = defaultSetupData("TAMBRIX_R1.0.0");
    record.Value[20] = 77;
    const QString path = savedPath(backups.save(record, kNoon, QStringLiteral("A/B: \"2\". ")));
    EXPECT_EQ(path, root.filePath("Backups/2026-11-21 12-00-02 A_B_ _2_.sdt"));
    EXPECT_EQ(std::get<SetupDataRecord>(loadSetupData(path)), record);
    EXPECT_EQ(savedPath(backups.save(record, kNoon, {})),
              root.filePath("Backups/2026-11-21 12-00-02.sdt"));
    EXPECT_EQ(savedPath(backups.save(record, kNoon, {})),
              root.filePath("Backups/2026-11-21 12-00-02 (2).sdt"));
}

TEST_F(BackupsTest, KeepTheLastFiftyAndNobodyElsesFiles)
{
    const SetupDataRecord record = defaultSetupData("V");
    LabelNames names;
    names.set(6, "Beer gold");
    for (int i = 0; i < 52; ++i)
        savedPath(backups.save(record, kNoon.addSecs(i), QStringLiteral("p"), names));
    QFile own(root.filePath("Backups/own.sdt"));
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    savedPath(backups.save(record, kNoon.addSecs(60), {}));
    const auto files = backups.list();
    ASSERT_EQ(files.size(), 50U);
    EXPECT_EQ(files.front().title, "2026-11-21 12-01-02");
    EXPECT_EQ(files.back().title, "2026-11-21 12-00-05 p");
    EXPECT_TRUE(own.exists());
    EXPECT_EQ(loadLabelNames(files.back().path).names, names);
    EXPECT_EQ(backups.folder().entryList({"*.labels.csv"}).size(), 49)
        << "names go with their file";
}

TEST_F(BackupsTest, SayWhyTheyCannotBeMade)
{
    QFile inTheWay(root.filePath("Backups"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const auto result = backups.save(defaultSetupData("V"), kNoon, {});
    ASSERT_TRUE(std::holds_alternative<Refusal>(result));
    EXPECT_TRUE(std::get<Refusal>(result).reason.endsWith("Backups is a file, not a folder."));
    EXPECT_FALSE(backups.lastRestore());
}

TEST_F(BackupsTest, RememberWhatTheLastRestoreWrote)
{
    const QString path = savedPath(backups.save(defaultSetupData("V"), kNoon, "p"));
    EXPECT_FALSE(backups.rememberRestore({path, {"W690", "B3282"}}));
    const auto last = backups.lastRestore();
    ASSERT_TRUE(last);
    EXPECT_EQ(last->backup, path);
    EXPECT_EQ(last->addresses, (std::vector<std::string>{"W690", "B3282"}));
    QFile::remove(path);
    EXPECT_FALSE(backups.lastRestore()) << "its backup is gone";
}

TEST(PressName, IsKeptTidied)
{
    const QTemporaryDir root;
    const QDir folder(root.path());
    EXPECT_EQ(pressName(folder), "");
    EXPECT_FALSE(
        setPressName(folder, QStringLiteral("  Presse \u00fc 2\r\n ") + QString(90, u'x')));
    EXPECT_EQ(pressName(folder), QStringLiteral("Presse \u00fc 2 ") + QString(49, u'x'));
}

TEST(SetupFileSource, RefusesWithTheReason)
{
    const QTemporaryDir root;
    const QString path = root.filePath("x.sdt");
    const auto reason = [&] { return std::get<Refusal>(loadSetupData(path)).reason; };
    EXPECT_TRUE(reason().contains("x.sdt cannot be used: it is not there"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\x05\x00short", 7);
    file.close();
    EXPECT_TRUE(reason().contains("ends before its last entry"));
}
