#include "recorder/history_reader.h"
#include "recorder/history_store.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace tambrix;

namespace {

constexpr UtcMs kNoon = 1'700'000'100'000; // a whole minute
constexpr int kAlarms = 65;
constexpr int kLabel = 686;

/// A history that a test writes row by row.
struct History
{
    QTemporaryDir folder;
    QString path = folder.filePath("history.db");

    /// A time on line from `begin` to `end` (s after noon), with what `fill` puts into it.
    void online(int begin, int end, const std::function<void(HistoryBatch&)>& fill) const
    {
        HistoryStore store(path, [](const QString& news) { ADD_FAILURE() << qPrintable(news); });
        HistoryBatch batch;
        batch.begin = at(begin);
        batch.end = at(end);
        fill(batch);
        EXPECT_EQ(store.append(batch), HistoryStore::Outcome::Stored);
    }

    static UtcMs at(int second) { return kNoon + second * kSecond; }
    static TimeSpan span(int begin, int end) { return {at(begin), at(end)}; }
};

SpeedRow speedAt(int second, int speed)
{
    return {History::at(second), SpeedRange{speed, speed, speed}};
}

/// "0:1200 5:- 9:1195": seconds after noon and last speed.
std::string text(const std::vector<SpeedRow>& rows)
{
    std::string all;
    for (const SpeedRow& row : rows)
        all += (all.empty() ? "" : " ") + std::to_string((row.begin - kNoon + 999) / kSecond) +
               ":" + (row.range ? std::to_string(row.range->last) : "-");
    return all;
}

} // namespace

TEST(HistoryReader, SpeedHoldsUntilTheNextRowAndNotBeyondTheTimeOnLine)
{
    const History history;
    history.online(0, 99, [](HistoryBatch& batch) {
        batch.speed[0] = {speedAt(0, 1200), speedAt(40, 1195)};
    });
    history.online(200, 300, [](HistoryBatch& batch) {
        batch.speed[0] = {speedAt(200, 0), {History::at(210), std::nullopt}};
    });
    HistoryReader reader(history.path);
    EXPECT_EQ(text(reader.speed(History::span(-50, 400), 450)),
              "0:1200 40:1200 40:1195 99:1195 100:- 200:0 210:0 210:-");
}

/// As many rows for a month as for a day, and no peak lost.
TEST(HistoryReader, AMonthIsReadFromCoarseRows)
{
    const History history;
    constexpr int kSeconds = 30 * 24 * 3600;
    constexpr int kPeak = 3000;
    history.online(0, kSeconds, [](HistoryBatch& batch) {
        for (int at = 0; at < kSeconds; at += 900)
            batch.speed[2].push_back({History::at(at), SpeedRange{1100, 1200, 1150}});
        batch.speed[2][77].range->high = kPeak;
        for (int at = 0; at < 24 * 3600; at += 60)
            batch.speed[1].push_back(speedAt(at, 1150));
    });
    HistoryReader reader(history.path);
    const auto month = reader.speed(History::span(0, kSeconds), 1000);
    EXPECT_LE(month.size(), 1001u);
    EXPECT_GE(month.size(), 900u);
    EXPECT_EQ(std::ranges::max(month, {}, [](const SpeedRow& row) { return row.range->high; })
                  .range->high,
              kPeak);
    EXPECT_LE(reader.speed(History::span(0, 24 * 3600), 1000).size(), 1001u);
}

TEST(HistoryReader, CyclesComeFromCountsAcrossAReset)
{
    const History history;
    history.online(0, 600, [](HistoryBatch& batch) {
        for (int at = 0; at <= 300; at += 10) { // one a second, reset at 150
            CountsRow row{History::at(at), {}};
            row.counts[2] = at < 150 ? 1000 + at : at - 150;
            batch.counts.push_back(row);
        }
        batch.resets.push_back({History::at(150), 2, 1150});
    });
    HistoryReader reader(history.path);
    const auto rates = reader.cycles(2, History::span(0, 600), 10);
    ASSERT_EQ(rates.size(), 10u);
    for (std::size_t minute = 0; minute < 5; ++minute)
        EXPECT_NEAR(rates[minute].rate.value_or(-1), 60, 0.5) << minute;
    EXPECT_EQ(reader.cycles(1, History::span(0, 600), 10)[0].rate, std::nullopt);
}

/// Whatever begins or ends in a minute, its rate is that of the time that it is told for.
TEST(HistoryReader, ARateIsOfTheTimeThatItsCountsCover)
{
    const History history;
    const auto count = [](HistoryBatch& batch, int at, std::optional<int> cycles) {
        batch.counts.push_back({History::at(at), {}});
        batch.counts.back().counts[2] = cycles;
    };
    history.online(25, 205, [&](HistoryBatch& batch) {
        count(batch, 30, 500); // read for the first time
        for (int at = 40; at <= 70; at += 10)
            count(batch, at, 500 + (at - 30) * 100 / 60);
        count(batch, 75, 575);
        count(batch, 135, 575); // it stood
        count(batch, 150, 575);
        count(batch, 200, 625);
    });
    history.online(180, 300, [&](HistoryBatch& batch) { // the PC's clock was set back
        for (int at = 190; at <= 290; at += 10)
            count(batch, at, 9000 + at);
        count(batch, 291, std::nullopt);
    });
    HistoryReader reader(history.path);
    std::string found;
    for (const RatePoint& point : reader.cycles(2, History::span(0, 600), 10))
        found += std::to_string((point.time.begin - kNoon) / kSecond) + "-" +
                 std::to_string((point.time.end - kNoon) / kSecond) + ":" +
                 (point.rate ? std::to_string(std::lround(*point.rate)) : "-") + " ";
    EXPECT_EQ(found, "30-60:100 60-120:25 120-150:0 210-240:60 240-290:60 300-300:- ");
}

TEST(HistoryReader, AlarmsHaveTheirSpeedAndLabelAndEndOffLine)
{
    const History history;
    history.online(0, 100, [](HistoryBatch& batch) {
        batch.speed[0] = {speedAt(0, 1164), speedAt(35, 0)};
        batch.values = {{History::at(0), kLabel, 7},
                        {History::at(9), kLabel, std::nullopt},
                        {History::at(0), kAlarms, 0},
                        {History::at(10), kAlarms, 4},
                        {History::at(30), kAlarms, std::nullopt},
                        {History::at(40), kAlarms, 5},
                        {History::at(50), kAlarms, 1}};
    });
    history.online(500, 600, [](HistoryBatch& batch) {
        batch.values = {{History::at(500), kAlarms, 1}};
    });
    HistoryReader reader(history.path);
    std::string found;
    for (const AlarmSpan& alarm : reader.alarms(History::span(20, 1000)))
        found += std::to_string(alarm.ductor + 1) + ":" +
                 std::to_string((alarm.time.begin - kNoon) / kSecond) + "-" +
                 std::to_string((alarm.time.end - kNoon) / kSecond) + (alarm.ended ? "" : "+") +
                 " " + std::to_string(alarm.speed.value_or(-1)) + " " +
                 std::to_string(alarm.label.value_or(-1)) + "; ";
    EXPECT_EQ(found, "3:10-50 1164 7; 1:40-100+ 0 7; 1:500-600+ -1 7; ");
}

TEST(HistoryReader, AnswersForAFileThatIsNotThereOrIsNewer)
{
    const History history;
    EXPECT_EQ(HistoryReader(history.path).result(), SqlResult::Failed);
    HistoryReader none(history.path);
    EXPECT_TRUE(none.speed(History::span(0, 100), 100).empty());
    history.online(0, 10, [](HistoryBatch&) {});
    {
        SqlFile file;
        file.open(history.path);
        file.run("PRAGMA user_version=99");
    }
    EXPECT_EQ(HistoryReader(history.path).result(), SqlResult::Missing);
}
