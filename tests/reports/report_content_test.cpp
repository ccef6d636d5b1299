#include "reports/report_content.h"
#include "shell/color_density.h"
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

    /// All cells of table `index`, a line a row.
    QStringList rows(int index) const
    {
        QStringList lines;
        const Report report = content();
        for (const ReportBlock& block : report.tables.at(static_cast<std::size_t>(index)).blocks) {
            for (const QStringList& row : block.rows)
                lines.append(row.join(u'|'));
        }
        return lines;
    }
};

} // namespace

TEST(ColorDensity, IsWhatTheOperatorReads)
{
    struct Case
    {
        int on, cycle, maximumOn;
        const char* text;
    };
    const Case cases[] = {
        {50, 200, 150, "35.0%"}, {90, 200, 60, "90.0%"}, {0, 200, 150, "0.0%"},
        {50, 0, 150, "0.0%"},    {50, -3, 150, "0.0%"},  {1, 3, 200, "43.3%"},
        {50, 200, 0, "-"},       {0, 0, 0, "0.0%"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(colorDensity(c.on, c.cycle, c.maximumOn), QLatin1String(c.text))
            << c.on << " of " << c.cycle << ", maximum " << c.maximumOn;
}

TEST(ReportContent, NamesTheFileOnlyWhileTheDataHaveOne)
{
    ContentRig rig;
    EXPECT_EQ(rig.content().name, "untitled");
    rig.state.gFileNameTitle = "night shift.sdt";
    EXPECT_EQ(rig.content().name, "untitled"); // New keeps the last title
    rig.state.gUntitled = false;
    EXPECT_EQ(rig.content().name, "night shift.sdt");
    EXPECT_EQ(rig.content().date, QLocale().toString(kNoon.date(), QLocale::ShortFormat));
}

TEST(ReportContent, SaysWhenTheFileWasSavedAndWhetherTheValuesAreStillTheFiles)
{
    ContentRig rig;
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    rig.state.gFileNamePath = file.fileName();
    rig.state.gFileNameTitle = "night shift.sdt";
    EXPECT_TRUE(rig.content().notes.isEmpty()); // New keeps the last path
    rig.state.gUntitled = false;
    ASSERT_EQ(rig.content().notes.size(), 1);
    EXPECT_TRUE(rig.content().notes.front().startsWith("File saved "));
    EXPECT_FALSE(rig.content().notes.front().contains("changed"));
    rig.set(labelBase(7), rig.state.gWorkingData.Value[labelBase(7)] + 1);
    EXPECT_TRUE(rig.content().notes.front().endsWith("values that were changed since."));
    file.remove();
    EXPECT_TRUE(rig.content().notes.isEmpty());
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
        (QStringList{"Maximum Cycle Duration|101|0.1 cans", "Maximum ON Duration|102|0.1 cans",
                     "Response Time Compensation|103|msec", "Color Gain|104|% (100% per 2000 CPM)",
                     "Feedback Enable|1, 3, 8|ductors", "Label Number|42|"}));
    rig.set(kSetupSlot + 4, 0);
    EXPECT_TRUE(rig.rows(0).contains("Feedback Enable|none|ductors"));
    rig.set(kSetupSlot + 4, 255);
    EXPECT_TRUE(rig.rows(0).contains("Feedback Enable|all|ductors"));
}

TEST(ReportContent, ShiftCountsAreGroupedByThousands)
{
    ContentRig rig;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    rig.set(kShiftCountSlot, 1234567);
    rig.set(kShiftCountSlot + 7, 8);
    const QStringList rows = rig.rows(1);
    QLocale::setDefault(QLocale::c());
    ASSERT_EQ(rows.size(), 8);
    EXPECT_EQ(rows.front(), "Ductor No. 1|1,234,567|cycles");
    EXPECT_EQ(rows.back(), "Ductor No. 8|8|cycles");
}

TEST(ReportContent, ALabelIsThreeRowsOfEightDuctors)
{
    ContentRig rig;
    rig.set(kSetupSlot + 1, 150); // maximum ON
    for (int d = 0; d < kDuctors; ++d) {
        rig.set(labelBase(99) + d, 10 * d);
        rig.set(labelBase(99) + kDuctors + d, 200 + d);
    }
    const QStringList rows = rig.rows(2);
    ASSERT_EQ(rows.size(), 300);
    EXPECT_EQ(rows[297], "99|ON (0.1 cans)|0|10|20|30|40|50|60|70");
    EXPECT_EQ(rows[298], "|CYCLE (0.1 cans)|200|201|202|203|204|205|206|207");
    EXPECT_EQ(rows[299], "|Color Density|0.0%|7.0%|13.9%|20.7%|27.5%|34.1%|40.8%|47.3%");
}

TEST(ReportContent, HoldsTheChosenPartsAndLabels)
{
    struct Case
    {
        ReportSettings settings;
        QStringList titles;
        int labels;
    };
    const Case cases[] = {
        {{true, true, true, true, 5, 7},
         {"Set-up Parameters", "Shift Data Counts", "Label Set-up Data"},
         100},
        {{true, false, false, false, 5, 7}, {"Label Set-up Data"}, 3},
        {{true, false, false, false, 99, 99}, {"Label Set-up Data"}, 1},
        {{false, true, false, true, 0, 99}, {"Shift Data Counts"}, 8},
        {{false, false, true, true, 0, 99}, {"Set-up Parameters"}, 6},
        {{false, false, false, true, 0, 99}, {}, 0},
    };
    ContentRig rig;
    for (const Case& c : cases) {
        rig.state.report = c.settings;
        const Report report = rig.content();
        QStringList titles;
        for (const ReportTable& table : report.tables)
            titles.append(table.title);
        EXPECT_EQ(titles, c.titles);
        EXPECT_EQ(titles.isEmpty() ? 0 : static_cast<int>(report.tables.back().blocks.size()),
                  c.labels);
    }
}

TEST(ReportContent, SaysOnLineThatItShowsTheDataSetAndAsOfWhen)
{
    ContentRig rig;
    EXPECT_TRUE(rig.content().notes.isEmpty());
    rig.goOnline();
    EXPECT_TRUE(rig.content().notes.front().contains("the data set in this program"));
    EXPECT_TRUE(rig.content().notes.front().contains("nothing has been uploaded yet"));

    rig.state.gUploadNOW = QDateTime(QDate(2026, 3, 13), QTime(0, 0));
    const QString day = QLocale().toString(QDate(2026, 3, 13), QLocale::ShortFormat);
    EXPECT_TRUE(rig.content().notes.front().endsWith("as of " + day + "."));
    rig.state.gUploadNOW = QDateTime(QDate(2026, 3, 13), QTime(22, 15));
    const QString moment = QLocale().toString(rig.state.gUploadNOW, QLocale::ShortFormat);
    EXPECT_TRUE(rig.content().notes.front().endsWith("as of " + moment + "."));
}
