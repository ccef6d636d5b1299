#include "recorder/history_schema.h"
#include "recorder/history_store.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace tambrix;

namespace {

constexpr UtcMs kNoon = 1'700'000'000'000;
constexpr int kWatched = 65;

/// Second `n` of a time on line: a speed, an alarm word and a write that all say `n`.
HistoryBatch second(int n)
{
    HistoryBatch batch;
    batch.begin = kNoon;
    batch.end = kNoon + n * kSecond;
    batch.speed[0].push_back({batch.end, SpeedRange{n, n, n}});
    batch.values.push_back({batch.end, kWatched, n});
    batch.writes.push_back({batch.end, "B720", "26", QString::number(n), "Color Control", 6, true});
    return batch;
}

struct StoreRig
{
    QTemporaryDir folder;
    QString path = folder.filePath("History/history.db");
    QStringList told;
    std::unique_ptr<HistoryStore> store = open();

    std::unique_ptr<HistoryStore> open()
    {
        return std::make_unique<HistoryStore>(path, [this](const QString& news) { told += news; });
    }

    /// What another connection sees.
    qint64 number(const QString& sql) const
    {
        SqlFile file;
        file.open(path);
        return file.number(sql, {}, -1);
    }
    qint64 rows(const char* table) const
    {
        return number(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(table));
    }
};

using Outcome = HistoryStore::Outcome;

} // namespace

/// Ended at any statement, the file holds the batches before and nothing of the one under way.
TEST(HistoryStore, KilledAtAnyStatementKeepsWhatWasStored)
{
    constexpr int kEnd = 9;
    bool outlived = false;
    for (int statement = 0; !outlived && !HasFailure(); ++statement) {
        StoreRig rig;
        rig.store.reset();
        const auto run = [&](int dieAt) {
            const auto store = rig.open();
            for (int n = 1; n <= 3; ++n) {
                if (n == 2)
                    store->file().beforeStatement = [&dieAt] {
                        if (dieAt-- == 0)
                            std::_Exit(kEnd);
                    };
                store->append(second(n));
            }
            std::_Exit(0);
        };
        EXPECT_EXIT(
            run(statement),
            [&](int status) {
                outlived = status == 0;
                return true;
            },
            "");
        EXPECT_EQ(rig.number("PRAGMA quick_check"), 0); // "ok" is no number
        const qint64 stored = rig.rows("speed_1");
        EXPECT_GE(stored, 1) << statement;
        EXPECT_EQ(rig.rows("value"), stored);
        EXPECT_EQ(rig.rows("written"), stored);
        EXPECT_EQ(rig.number("SELECT t1 FROM period") - kNoon, stored * kSecond);
        rig.store = rig.open();
        EXPECT_EQ(rig.store->append(second(4)), Outcome::Stored);
        EXPECT_TRUE(rig.told.isEmpty());
    }
}

TEST(HistoryStore, SetsADamagedFileAside)
{
    for (const char* damage : {"no database at all, but long enough to look like one", "inside"}) {
        SCOPED_TRACE(damage);
        StoreRig rig;
        for (int n = 1; n <= 3000; n += 100) // more than one page
            rig.store->append(second(n));
        rig.store.reset();
        QFile file(rig.path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        if (QLatin1String(damage) == QLatin1String("inside")) {
            file.seek(4096);
            file.write(QByteArray(file.size() - 4096, 'x'));
        } else {
            file.resize(0);
            file.write(damage);
        }
        file.close();
        rig.store = rig.open();
        rig.store->append(second(2));
        rig.store->check();
        EXPECT_EQ(rig.store->append(second(3)), Outcome::Stored);
        ASSERT_FALSE(rig.told.isEmpty());
        EXPECT_TRUE(rig.told.first().contains("damaged")) << rig.told.first().toStdString();
        const QDir folder(rig.folder.filePath("History"));
        EXPECT_EQ(folder.entryList({"history damaged *.db"}).size(), 1);
        EXPECT_EQ(rig.rows("speed_1"), 1);
    }
}

TEST(HistoryStore, AFullDiskIsToldOnceAndRecordingGoesOn)
{
    StoreRig rig;
    rig.store->append(second(1));
    HistoryBatch large = second(2);
    for (int i = 0; i < 20'000; ++i)
        large.values.push_back({kNoon + i, kWatched, i});
    for (const char* fails : {"max_page_count=20", "query_only=1", "max_page_count=20"}) {
        EXPECT_EQ(rig.store->append(second(1)), Outcome::Stored); // a little goes in between
        rig.store->file().run(QStringLiteral("PRAGMA ") + QLatin1String(fails));
        EXPECT_EQ(rig.store->append(large), Outcome::Lost);
    }
    EXPECT_EQ(rig.rows("value"), 1);
    ASSERT_EQ(rig.told.size(), 1) << rig.told.join(u'\n').toStdString();
    EXPECT_TRUE(rig.told.first().startsWith("The history cannot be written"));
    for (int n = 0; n < 2 * HistoryStore::kWellAgain; ++n)
        EXPECT_EQ(rig.store->append(n == 0 ? large : second(3)), Outcome::Stored); // there is room
    EXPECT_EQ(rig.told.mid(1), QStringList("The history is recorded again."));
}

TEST(HistoryStore, OnlyOneProgramRecords)
{
    StoreRig rig;
    rig.store->append(second(1));
    QStringList told;
    HistoryStore second_(rig.path, [&](const QString& news) { told += news; });
    EXPECT_EQ(second_.append(second(2)), Outcome::Lost);
    EXPECT_EQ(second_.append(second(2)), Outcome::Lost);
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told.first().startsWith("Another TAMBRIX"));
    EXPECT_EQ(rig.store->append(second(3)), Outcome::Stored);
    rig.store.reset();
    QFile lock(rig.path + ".lock"); // of a third one, killed before it had written its name
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.close();
    EXPECT_EQ(second_.append(second(4)), Outcome::Stored); // the first has ended
    EXPECT_EQ(rig.rows("speed_1"), 3);
}

TEST(HistoryStore, LeavesTheFileOfANewerProgramAsItIs)
{
    StoreRig rig;
    rig.store->append(second(1));
    rig.store->file().run(QStringLiteral("PRAGMA user_version=%1").arg(kHistoryVersion + 1));
    rig.store.reset();
    rig.store = rig.open();
    EXPECT_EQ(rig.store->append(second(2)), Outcome::Lost);
    rig.store->prune(kNoon + 2 * HistoryStore::kRetention);
    EXPECT_EQ(rig.rows("speed_1"), 1);
    ASSERT_EQ(rig.told.size(), 1);
    EXPECT_TRUE(rig.told.first().contains("newer version"));
}

TEST(HistoryStore, PrunesInSmallStepsAndKeepsWhatStillHolds)
{
    StoreRig rig;
    HistoryBatch batch = second(1);
    for (int n = 2; n <= 1200; ++n) {
        batch.end = kNoon + n * kSecond;
        batch.speed[0].push_back({batch.end, SpeedRange{n, n, n}});
        batch.values.push_back({batch.end, kWatched, n});
    }
    rig.store->append(batch);
    const UtcMs later = kNoon + HistoryStore::kRetention + 1000 * kSecond + 500;
    for (const auto& [speeds, values] :
         {std::pair{700, 1200}, {200, 700}, {200, 201}, {200, 201}}) {
        rig.store->prune(later);
        EXPECT_EQ(rig.rows("speed_1"), speeds);
        EXPECT_EQ(rig.rows("value"), values);
    }
    EXPECT_EQ(rig.number("SELECT min(value) FROM value"), 1000); // held when the rest begins
    EXPECT_EQ(rig.rows("written"), 0);
}
