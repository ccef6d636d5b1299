#include "recorder/history_recorder.h"
#include "simulator/memory_map.h"
#include "tests/support/press_rig.h"

#include <gtest/gtest.h>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

constexpr UtcMs kNoon = 1'700'000'000'000;

/// A press on line whose link is watched by a recorder, on the virtual clock.
struct RecorderRig : PressRig
{
    QString path = folder.filePath("History/history.db");
    UtcMs zero = kNoon; ///< time of day when the virtual clock began
    HistoryRecorder recorder{state.gLink, path, {clock, [this] { return wall(); }}};
    QStringList told;

    RecorderRig()
    {
        QObject::connect(&recorder, &HistoryRecorder::told,
                         [this](const QString& news) { told += news; });
        board.press().stop();
        line.setBaud(0);
        goOnline();
    }

    UtcMs wall() const { return zero + clock.now() / 1ms; }

    /// The press runs at this speed, and the Main Display reads it.
    void speed(int cansPerMinute)
    {
        read("B65");
        board.pokeWord(memory_map::kMachineSpeed, static_cast<std::uint16_t>(cansPerMinute));
        read("W112");
    }

    void read(const char* address) { state.gLink.RSRead(address); }

    /// One second of a screen that reads these registers, and the poll.
    void second(std::initializer_list<const char*> addresses)
    {
        read("B65");
        for (const char* address : addresses)
            read(address);
        clock.pause(1s);
        recorder.flush();
    }

    /// The rows of a table that is read by "sql", fields set apart by blanks; times from noon on.
    std::string rows(const char* table, QStringList columns) const
    {
        SqlFile file;
        file.open(path);
        for (QString& column : columns)
            column = QStringLiteral("ifnull(%1,'-')")
                         .arg(column.startsWith('t')
                                  ? QStringLiteral("(%1-%2)/1000").arg(column).arg(kNoon)
                                  : column);
        QStringList lines;
        file.select(QStringLiteral("SELECT %1 FROM %2 ORDER BY rowid")
                        .arg(columns.join(QStringLiteral("||' '||")), QLatin1String(table)),
                    {}, [&](const QSqlQuery& row) { lines += row.value(0).toString(); });
        return lines.join(QStringLiteral(", ")).toStdString();
    }
    std::string speeds() const { return rows("speed_1", {"t", "low", "high", "last"}); }
    std::string periods() const { return rows("period", {"t0", "t1"}); }
    /// The values of one register.
    std::string values(int address) const
    {
        return rows(qPrintable(QStringLiteral("(SELECT t, value, t AS rowid FROM value WHERE "
                                              "address=%1)")
                                   .arg(address)),
                    {"t", "value"});
    }
};

} // namespace

TEST(HistoryRecorder, ThinsTheSpeedAndStoresTheRestAtChange)
{
    RecorderRig rig;
    const auto run = [&](int from, int to) {
        rig.board.poke(memory_map::kAlarms, to > 1200 ? 4 : 0);
        rig.speed(from);
        rig.speed(to);
        rig.second({});
    };
    run(1200, 1195);
    run(1200, 1195);
    run(1200, 1205);
    for (int i = 0; i < 3; ++i)
        run(1205, 1205); // as the last bin ended: nothing new
    EXPECT_EQ(rig.speeds(), "0 1195 1200 1195, 1 1195 1200 1195, 2 1200 1205 1205");
    EXPECT_EQ(rig.values(memory_map::kAlarms), "0 0, 2 4");
    EXPECT_EQ(rig.rows("speed_900", {"low", "high", "last"}), "1195 1205 1205");
}

TEST(HistoryRecorder, WhatIsNotReadAnyMoreIsNotKnown)
{
    RecorderRig rig;
    rig.speed(1200);
    rig.second({"W686", "D968"});
    for (int i = 0; i < 8; ++i)
        rig.second({});
    rig.second({"W686"});
    EXPECT_EQ(rig.speeds(), "0 1200 1200 1200, 1 - - -");
    EXPECT_EQ(rig.values(memory_map::kLabelNumber), "0 0, 0 -, 9 0");
    EXPECT_EQ(rig.rows("counts", {"t", "(d8>0)"}), "0 1, 0 -");
    EXPECT_EQ(rig.values(memory_map::kAlarms), "0 0"); // polled all the time
}

/// Off line, silence, a clock that was set: each ends a time on line, and none is negative.
TEST(HistoryRecorder, GapsAreNoStops)
{
    RecorderRig rig;
    rig.second({});
    rig.second({});
    rig.state.setOnline(false);
    rig.clock.pause(60s);
    rig.recorder.flush();
    rig.goOnline();
    rig.second({});
    EXPECT_EQ(rig.periods(), "0 1, 62 62");
    rig.clock.pause(30s); // nothing is read: a box is open
    rig.recorder.flush();
    rig.second({});
    rig.zero -= 2 * kSecond; // a small correction of the PC's clock: the time stands
    rig.second({});
    rig.second({});
    EXPECT_EQ(rig.periods(), "0 1, 62 62, 93 94");
    rig.zero -= kHour; // the clock of the PC is set back
    rig.second({});
    rig.second({});
    EXPECT_EQ(rig.rows("period", {"(t1>=t0)"}), "1, 1, 1, 1");
}

TEST(HistoryRecorder, NotesEveryWriteAndMasksThePasscode)
{
    RecorderRig rig;
    rig.recorder.setWriter([] { return QStringLiteral("Color Control"); });
    rig.board.poke(memory_map::workingOn(2), 26);
    rig.second({"B722", "W686", "W1298"});
    rig.state.gLink.RSWrite("B722", "30");
    rig.state.gLink.RSWrite("B722", " 31");
    rig.state.gLink.RSWrite("W690", "500");
    rig.state.gLink.RSWrite("W1298", "4711");
    rig.state.gLink.RSWrite("B1299", "18");
    rig.second({});
    EXPECT_EQ(rig.rows("written", {"address", "old", "new", "screen", "label", "confirmed"}),
              "B722 26 30 Color Control 0 1, B722 30 31 Color Control 0 1, "
              "W690 ? 500 Color Control 0 1, W1298 ***** ***** Color Control 0 1, "
              "B1299 ***** ***** Color Control 0 1");
    EXPECT_EQ(rig.values(722), "0 26, 1 31");
}

TEST(HistoryRecorder, CountsAreThinnedAndTheirResetsKept)
{
    RecorderRig rig;
    for (int i = 0; i < 24; ++i) {
        rig.board.pokeWord(memory_map::shiftCount(0),
                           static_cast<std::uint16_t>(i < 15 ? i : i - 13));
        rig.second({"D940", "D968"});
    }
    EXPECT_EQ(rig.rows("counts", {"t", "d1"}), "0 0, 10 10, 15 2");
    EXPECT_EQ(rig.rows("(SELECT *, t AS rowid FROM reset)", {"t", "ductor", "count"}), "15 0 14");
    for (int i = 24; i < 100; ++i) { // it stands, and begins anew
        if (i == 99)
            rig.board.pokeWord(memory_map::shiftCount(0), 11);
        rig.second({"D940", "D968"});
    }
    rig.state.setOnline(false);
    EXPECT_EQ(rig.rows("counts", {"t", "d1"}), "0 0, 10 10, 15 2, 25 10, 85 10, 98 10, 99 11");
}

/// A press whose speed wanders by 5 CPM and whose counts go on, an hour of a week.
TEST(HistoryRecorder, AWeekStaysBelow50Megabytes)
{
    constexpr int kHoursOfAWeek = 7 * 24;
    RecorderRig rig;
    const auto size = [&] {
        rig.recorder.store().file().run("PRAGMA wal_checkpoint(TRUNCATE)");
        return QFileInfo(rig.path).size();
    };
    rig.second({});
    const qint64 empty = size();
    for (int i = 0; i < kHour / kSecond; ++i) {
        rig.speed(1200 + i % 6);
        rig.board.pokeWord(memory_map::shiftCount(0), static_cast<std::uint16_t>(i % 10'000));
        rig.second({"W112", "B100", "W686", "D940", "D968"});
    }
    const double week = static_cast<double>(size() - empty) * kHoursOfAWeek / 1e6;
    RecordProperty("megabytesAWeek", std::to_string(week));
    EXPECT_LT(week, 50);
}
