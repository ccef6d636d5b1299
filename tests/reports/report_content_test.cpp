#include "reports/report_content.h"
#include "tests/support/press_rig.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

const QDateTime kNoon(QDate(2026, 3, 14), QTime(12, 0));

struct ContentRig : PressRig
{
    void set(int slot, std::int32_t value)
    {
        state.gWorkingData.Value[static_cast<std::size_t>(slot)] = value;
    }

    Report content() const { return reportContent(state, kNoon); }

    /// All cells of table `index`, headings first, a line a row.
    QStringList rows(int index) const
    {
        const ReportTable table = content().tables.at(static_cast<std::size_t>(index));
        QStringList headings;
        for (const ReportColumn& column : table.columns)
            headings.append(column.heading);
        QStringList lines{headings.join(u'|')};
        for (const ReportBlock& block : table.blocks) {
            for (const QStringList& row : block.rows)
                lines.append(row.join(u'|'));
        }
        return lines;
    }
};

} // namespace

TEST(ReportContent, SaysWhenTheFileWasSavedAndWhetherTheValuesAreStillTheFiles)
{
    ContentRig rig;
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    rig.state.gFileNamePath = file.fileName();
    rig.state.gFileNameTitle = "night shift.sdt";
    EXPECT_TRUE(rig.content().notes.isEmpty()); // New keeps the last path
    EXPECT_EQ(rig.content().name, "untitled");
    rig.state.gUntitled = false;
    EXPECT_EQ(rig.content().name, "night shift.sdt");
    ASSERT_EQ(rig.content().notes.size(), 1);
    EXPECT_TRUE(rig.content().notes.front().startsWith("File saved "));
    EXPECT_FALSE(rig.content().notes.front().contains("changed"));
    rig.set(labelBase(7), rig.state.gWorkingData.Value[labelBase(7)] + 1);
    EXPECT_TRUE(rig.content().notes.front().endsWith("values that were changed since."));
    file.remove();
    EXPECT_TRUE(rig.content().notes.isEmpty());
    rig.state.gFileNameTitle.clear();
    EXPECT_EQ(rig.content().name, "untitled");
}

TEST(ReportContent, SetupParametersCarryTheirUnits)
{
    ContentRig rig;
    for (int i = 0; i < 4; ++i)
        rig.set(kSetupSlot + i, 101 + i);
    rig.set(kSetupSlot + 4, 0b10000101);
    rig.set(kCurrentLabelSlot, 42);
    EXPECT_EQ(
        rig.rows(0),
        (QStringList{"Parameter|Value|Unit", "Maximum Cycle Duration|101|0.1 cans",
                     "Maximum ON Duration|102|0.1 cans", "Response Time Compensation|103|msec",
                     "Color Gain|104|% (100% per 2000 CPM)", "Feedback Enable|1, 3, 8|ductors",
                     "Label Number|42|"}));
    rig.set(kSetupSlot + 4, 0);
    EXPECT_TRUE(rig.rows(0).contains("Feedback Enable|none|ductors"));
    rig.set(kSetupSlot + 4, 255);
    EXPECT_TRUE(rig.rows(0).contains("Feedback Enable|all|ductors"));
}

TEST(ReportContent, ShiftCountsAreGroupedByThousands)
{
    ContentRig rig;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    rig.set(kShiftCountSlot + 7, 1234567);
    const QStringList rows = rig.rows(1);
    QLocale::setDefault(QLocale::c());
    ASSERT_EQ(rows.size(), 9);
    EXPECT_EQ(rows[0], "Ductor|Cycling Count|Unit");
    EXPECT_EQ(rows[1], "Ductor No. 1|0|cycles");
    EXPECT_EQ(rows[8], "Ductor No. 8|1,234,567|cycles");
}

TEST(ReportContent, ALabelIsThreeRowsOfEightDuctors)
{
    ContentRig rig;
    rig.set(kSetupSlot + 1, 150); // maximum ON
    for (int d = 0; d < kDuctors; ++d) {
        rig.set(labelBase(99) + d, 10 * d);
        rig.set(labelBase(99) + kDuctors + d, d < 6 ? 200 + d : 18 - 3 * d); // ends with 0 and -3
    }
    const QStringList rows = rig.rows(2);
    ASSERT_EQ(rows.size(), 301);
    EXPECT_EQ(rows[0], "Label|Ductor No.|1|2|3|4|5|6|7|8");
    EXPECT_EQ(rows[298], "99|ON (0.1 cans)|0|10|20|30|40|50|60|70");
    EXPECT_EQ(rows[299], "|CYCLE (0.1 cans)|200|201|202|203|204|205|0|-3");
    EXPECT_EQ(rows[300], "|Color Density|0.0%|7.0%|13.9%|20.7%|27.5%|34.1%|0.0%|0.0%");
    rig.set(kSetupSlot + 1, 0);
    EXPECT_EQ(rig.rows(2)[300], "|Color Density|-|-|-|-|-|-|0.0%|0.0%");
}

TEST(ReportContent, HoldsTheChosenPartsAndLabels)
{
    struct Case
    {
        ReportSettings settings;
        const char* parts; ///< with their number of blocks
    };
    const Case cases[] = {
        {{true, true, true, true, 5, 7},
         "Set-up Parameters 6, Shift Data Counts 8, Label Set-up Data 100"},
        {{true, false, false, false, 5, 7}, "Label Set-up Data 3"},
        {{false, true, false, true, 0, 99}, "Shift Data Counts 8"},
        {{false, false, true, true, 0, 99}, "Set-up Parameters 6"},
    };
    ContentRig rig;
    for (const Case& c : cases) {
        rig.state.report = c.settings;
        QStringList parts;
        for (const ReportTable& table : rig.content().tables)
            parts.append(table.title + u' ' + QString::number(table.blocks.size()));
        EXPECT_EQ(parts.join(", "), c.parts);
    }
}

TEST(ReportContent, SaysOnLineThatItShowsTheDataSetAndAsOfWhen)
{
    ContentRig rig;
    EXPECT_TRUE(rig.content().notes.isEmpty());
    rig.goOnline();
    const auto firstNote = [&rig] { return rig.content().notes.front(); };
    EXPECT_TRUE(firstNote().contains("the data set in this program"));
    EXPECT_TRUE(firstNote().contains("nothing has been uploaded yet"));
    rig.state.gUploadNOW = kNoon.date().startOfDay(); // only the day is known
    EXPECT_TRUE(firstNote().endsWith("as of " + rig.content().date + "."));
    rig.state.gUploadNOW = kNoon;
    EXPECT_TRUE(
        firstNote().endsWith("as of " + QLocale().toString(kNoon, QLocale::ShortFormat) + "."));
}
