#include "data/comparison.h"

#include <gtest/gtest.h>

using namespace tambrix;
using Kind = Concern::Kind;

namespace {

SetupDataRecord data(const std::vector<std::pair<int, std::int32_t>>& values = {})
{
    SetupDataRecord record = defaultSetupData("TAMBRIX_R1.0.0");
    for (const auto& [entry, value] : values)
        record.Value[static_cast<std::size_t>(entry)] = value;
    return record;
}

const ComparedEntry& entry(const Comparison& comparison, int index)
{
    return comparison.entries()[static_cast<std::size_t>(index)];
}

constexpr int kMaxCycle = 8;
constexpr int kMaxOn = 9;
const int kOn = labelSlot(6, 2, false);
const int kCycle = labelSlot(6, 2, true);

} // namespace

TEST(Comparison, CountsWhatDiffersWithoutWhatAlwaysDoes)
{
    const Comparison same(data(), data({{0, 1234}, {kCurrentLabelSlot, 41}}));
    EXPECT_EQ(same.differences().values(), 0);
    EXPECT_TRUE(same.notable(0));
    EXPECT_TRUE(same.notable(kCurrentLabelSlot));

    Comparison some(
        data({{kMaxCycle, 480}, {kOn, 50}, {kCycle, 250}, {labelSlot(41, 0, false), 3}}),
        data({{3, 7}}));
    EXPECT_EQ(some.differences().setup, 1);
    EXPECT_EQ(some.differences().labels, 2);
    EXPECT_EQ(some.differences().labelValues, 3);
    some.tickOrdinary();
    const auto rows = some.tickedRows();
    ASSERT_EQ(rows.size(), 4U) << "no shift count, no label number";
    EXPECT_EQ(rows.front().address, "W690");
    EXPECT_EQ(rows.front().value, 480);
    EXPECT_EQ(rows.back().address, "B4330");
    some.tick({kCurrentLabelSlot, 3, kMaxCycle + 2}, true);
    EXPECT_EQ(some.tickedRows().size(), 5U) << "a shift count may be, equal values may not";
}

TEST(Comparison, JudgesByTheLimitsThatHoldAfterwards)
{
    using Values = std::vector<std::pair<int, std::int32_t>>;
    struct Case
    {
        const char* what;
        Values left, right;
        int index;
        Concern concern;
    };
    const int label = kCurrentLabelSlot;
    const Concern aboveOn{Kind::AboveMaximumOn, 120, 0};
    const Case cases[] = {
        {"ordinary", {{kOn, 85}}, {}, kOn, {}},
        {"set-up range", {{kMaxCycle, 651}}, {}, kMaxCycle, {Kind::OutsideRange, 140, 650}},
        {"above maximum", {{kOn, 130}, {kMaxOn, 120}}, {}, kOn, aboveOn},
        {"maximum restored, too", {{kOn, 130}, {kMaxOn, 150}}, {{kMaxOn, 120}}, kOn, {}},
        {"maximum stays out", {{kOn, 190}, {kMaxOn, 201}}, {{kMaxOn, 120}}, kOn, aboveOn},
        {"ON for the restored CYCLE", {{kOn, 80}, {kCycle, 140}}, {}, kOn, {}},
        {"ON too long", {{kOn, 81}, {kCycle, 140}}, {}, kOn, {Kind::OnTooLong, 200, 0}},
        {"CYCLE above", {{kCycle, 501}}, {}, kCycle, {Kind::AboveMaximumCycle, 500, 0}},
        {"short", {{kCycle, 120}, {kOn, 61}}, {{kOn, 61}}, kCycle, {Kind::CycleShort, 61, 0}},
        {"no such byte", {{kOn, 256}}, {}, kOn, {Kind::NotOnBoard, 0, 255}},
        {"negative", {{kCycle, -1}}, {}, kCycle, {Kind::NotOnBoard, 0, 65535}},
        {"label number", {{label, 4}}, {}, label, {Kind::LabelNumber, 0, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Comparison comparison(data(c.left), data(c.right));
        comparison.tickOrdinary();
        const Concern found = entry(comparison, c.index).concern;
        if (std::string(c.what) != "ON too long") { // its CYCLE is out as well: judged below
            EXPECT_EQ(found, c.concern) << concernText(found).toStdString();
        }
        EXPECT_EQ(entry(comparison, c.index).ticked, c.concern == Concern());
        comparison.tick({c.index}, true);
        EXPECT_EQ(entry(comparison, c.index).ticked, !c.concern.refused());
    }
}

TEST(Comparison, OldBackupIsTickedWholeAgain)
{
    Comparison comparison(data({{kOn, 250}, {kMaxCycle, 700}, {kCycle, 100}}), data());
    comparison.tickOrdinary();
    EXPECT_TRUE(comparison.tickedRows().size() < 3);
    comparison.tickOnly({"B3282", "w690", "W3294", "W686", "B9999"});
    EXPECT_EQ(comparison.tickedRows().size(), 3U);
}

TEST(Comparison, StrangeEntriesAreRowsOfTheirOwn)
{
    SetupDataRecord left = data({{kOn, 9}, {kMaxOn, 100}});
    left.Address[kMaxOn].clear();           // a file that was shorter
    left.Address[100] = "B3100";            // twice, and B3264's entry is gone
    left.Address[kCurrentLabelSlot] = "X1"; // no register
    left.Address[static_cast<std::size_t>(kOn)] = "b3282";
    Comparison comparison(left, data());
    EXPECT_EQ(entry(comparison, kMaxOn).concern.kind, Kind::OnlyRight);
    EXPECT_EQ(entry(comparison, 100).concern.kind, Kind::OnlyRight);
    EXPECT_EQ(entry(comparison, labelSlot(0, 0, false)).concern.kind, Kind::Twice);
    EXPECT_EQ(entry(comparison, kOn).left, 9) << "letters of either case";
    ASSERT_EQ(comparison.entries().size(), 1615U);
    EXPECT_EQ(comparison.entries().back().address, "X1");
    EXPECT_EQ(comparison.entries().back().concern.kind, Kind::Strange);
    comparison.tickOrdinary();
    EXPECT_EQ(comparison.tickedRows().size(), 1U) << "only B3282";
}

TEST(Comparison, RunningValuesStandBesideTheirLabel)
{
    RunningValues running{6, {}};
    running.value[2] = 80;
    running.value[10] = 240;
    const Comparison comparison(data(), data(), running);
    EXPECT_EQ(entry(comparison, kOn).running, 80);
    EXPECT_EQ(entry(comparison, kCycle).running, 240);
    EXPECT_FALSE(entry(comparison, labelSlot(7, 2, false)).running);
}
