#include "data/label_edits.h"

#include "data/entry_group.h"

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

const int kOn = labelSlot(6, 2, false);
const int kCycle = labelSlot(6, 2, true);

/// Limits 200 and 500; label 6, ductor 3 has these durations.
SetupDataRecord pressWith(int on, int cycle)
{
    SetupDataRecord record = defaultSetupData({});
    record.Value[static_cast<std::size_t>(kOn)] = on;
    record.Value[static_cast<std::size_t>(kCycle)] = cycle;
    return record;
}

std::vector<std::string> objections(const EditPlan& plan)
{
    std::vector<std::string> texts;
    for (const QString& text : plan.objections)
        texts.push_back(text.mid(text.indexOf(": ") + 2).toStdString());
    return texts;
}

} // namespace

TEST(LabelEdits, KeepTheRulesOfAllValuesSeenTogether)
{
    struct Case
    {
        std::vector<WantedCell> cells;
        std::vector<EntryValue> values;
        std::vector<std::string> objections;
    };
    const Case cases[] = {
        {{{6, 2, "120"}}, {{kOn, 120}}, {}},
        {{{6, 2, " 0 "}}, {}, {}}, // no change
        {{{6, 2, "141"}}, {}, {"141 is too long for CYCLE 200"}},
        {{{6, 2, "141"}, {6, 10, "201"}}, {{kOn, 141}, {kCycle, 201}}, {}},
        {{{6, 2, "201"}, {6, 10, "270"}},
         {{kCycle, 270}},
         {"201 is above Maximum ON Duration 200"}},
        {{{6, 2, "150"}, {6, 10, "501"}},
         {},
         {"150 is too long for CYCLE 200", "501 is above Maximum Cycle Duration 500"}},
        {{{6, 2, "1,5"}, {6, 2, ""}, {6, 2, "1.0"}, {6, 2, "=1+1"}},
         {},
         {"\"1,5\" is no plain whole number", "\"\" is no plain whole number",
          "\"1.0\" is no plain whole number", "\"=1+1\" is no plain whole number"}},
        {{{6, 2, "-1"}}, {}, {"-1, but the register holds 0 to 255"}},
    };
    for (const Case& c : cases) {
        const EditPlan plan = planCells(pressWith(0, 200), {}, c.cells);
        EXPECT_EQ(plan.change.values, c.values) << c.cells[0].text.toStdString();
        EXPECT_EQ(objections(plan), c.objections);
    }
}

TEST(LabelEdits, PasteWhatASpreadsheetCopied)
{
    const std::vector<int> labels = {6, 9}, columns = {kNameColumn, 0};
    const auto pasted = [&](const QString& text) { return pastedCells(text, labels, columns); };
    const auto cells =
        std::get<std::vector<WantedCell>>(pasted("\"a\tb \"\"c\"\"\"\t12\r\n'=1+1\t3\r\n"));
    ASSERT_EQ(cells.size(), 4U);
    EXPECT_EQ(cells[0].text, "a\tb \"c\"");
    EXPECT_EQ(cells[2].label, 9);
    EXPECT_EQ(cells[2].text, "=1+1");
    EXPECT_EQ(cells[3].column, 0);
    EXPECT_EQ(cells[3].text, "3");
    EXPECT_EQ(std::get<std::vector<WantedCell>>(pasted("5\" can"))[0].text, "5\" can");

    const std::pair<QString, const char*> refused[] = {
        {"a\t1\t2", "Line 1, column 5: more columns"},
        {"a\nb\nc", "Line 3, column 1: more lines"},
        {"\"a", "Line 1, column 1: a quote"},
        {QString(1'000'000, u'\n'), "Line 3, column 1: more lines"},
        {QString(2'000'000, u'1'), "Line 1, column 1: far too long"},
    };
    for (const auto& [text, fault] : refused)
        EXPECT_TRUE(std::get<TextFault>(pasted(text)).sentence().startsWith(fault)) << fault;
}

TEST(LabelEdits, ScaleUpToTheLimits)
{
    struct Case
    {
        int on;
        int cycle;
        double percent;
        int after;
        std::vector<std::string> objections;
    };
    const Case cases[] = {
        {25, 200, 110, 28, {}}, // 27.5, half to even
        {35, 200, 130, 46, {}}, // 45.5
        {100, 200, 200, 140, {"100 would become 200, cut to 140"}},
        {150, 400, 150, 200, {"150 would become 225, cut to 200"}},
        {10, 50, 200, 10, {"10 would become 20, stays: its CYCLE leaves no ON time"}},
        {0, 200, 1000, 0, {}},
        {100, 200, 0, 0, {}},
    };
    for (const Case& c : cases) {
        const SetupDataRecord press = pressWith(c.on, c.cycle);
        const EditPlan plan = planScale(press, {6, 7}, DuctorSet().set(), c.percent);
        const int after = plan.change.values.empty() ? c.on : plan.change.values[0].value;
        EXPECT_EQ(after, c.after) << c.on << " x " << c.percent;
        EXPECT_EQ(objections(plan), c.objections);
        EXPECT_TRUE(planScale(press, {6}, DuctorSet("11111011"), c.percent).change.isEmpty());
    }
}

TEST(LabelEdits, CopyALabelAndReadLists)
{
    const EditPlan plan = planCopy(pressWith(100, 300), 6, {0, 6, 99});
    const std::vector<EntryValue> expected = {{labelSlot(0, 2, false), 100},
                                              {labelSlot(0, 2, true), 300},
                                              {labelSlot(99, 2, false), 100},
                                              {labelSlot(99, 2, true), 300}};
    EXPECT_EQ(plan.change.values, expected);
    EXPECT_TRUE(plan.objections.isEmpty());

    EXPECT_EQ(labelsFromText(" 7, 9 - 11,9"), (std::vector<int>{7, 9, 10, 11}));
    for (const char* wrong : {"", "100", "7,", "9-7", "a", "1 2"})
        EXPECT_FALSE(labelsFromText(wrong)) << wrong;
}
