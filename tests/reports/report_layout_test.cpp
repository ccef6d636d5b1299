#include "reports/report_layout.h"
#include "tests/support/press_rig.h"

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

Report wholeReport()
{
    PressRig rig;
    rig.goOnline(); // with its notes
    return reportContent(rig.state, QDateTime(QDate(2026, 3, 14), QTime(12, 0)));
}

QStringList textOf(const ReportPage& page)
{
    QStringList lines;
    for (const ReportLine& line : page.lines)
        lines.append(line.cells.join(u'|'));
    return lines;
}

double bottomOf(const ReportLine& line)
{
    switch (line.kind) {
    case LineKind::Note:
        return line.top + kNoteHeight;
    case LineKind::TableTitle:
        return line.top + kTableTitleHeight;
    case LineKind::TableHeading:
        return line.top + kTableHeadingHeight;
    case LineKind::TableRow:
        break;
    }
    return line.top + kTableRowHeight;
}

} // namespace

class ReportPaper : public testing::TestWithParam<double>
{
};

TEST_P(ReportPaper, LosesNothingAndOverlapsNothing)
{
    const Report report = wholeReport();
    QStringList expected;
    for (const ReportTable& table : report.tables) {
        for (const ReportBlock& block : table.blocks) {
            for (const QStringList& row : block.rows)
                expected.append(row.join(u'|'));
        }
    }
    QStringList printed;
    for (const ReportPage& page : paginate(report, GetParam())) {
        double bottom = 0;
        for (const ReportLine& line : page.lines) {
            EXPECT_DOUBLE_EQ(line.top, bottom);
            bottom = bottomOf(line);
            if (line.kind == LineKind::TableRow)
                printed.append(line.cells.join(u'|'));
        }
        EXPECT_LE(bottom, GetParam());
        EXPECT_FALSE(page.lines.empty());
    }
    EXPECT_EQ(printed, expected);
}

TEST_P(ReportPaper, SplitsNoLabelAndHeadsEveryPage)
{
    const auto pages = paginate(wholeReport(), GetParam());
    ASSERT_GT(pages.size(), 3u);
    for (const ReportPage& page : pages) {
        const auto& lines = page.lines;
        EXPECT_NE(lines.front().kind, LineKind::TableRow) << "a page must begin with headings";
        EXPECT_EQ(lines.back().kind, LineKind::TableRow) << "headings left alone";
        EXPECT_TRUE(lines.back().endsBlock) << "a label goes on over the page break";
        for (std::size_t i = 1; i < lines.size(); ++i) {
            if (lines[i].kind == LineKind::TableRow && lines[i - 1].kind != LineKind::TableRow) {
                EXPECT_EQ(lines[i - 1].kind, LineKind::TableHeading);
                EXPECT_EQ(lines[i - 2].kind, LineKind::TableTitle);
            }
        }
    }
}

// 30 mm of a label roll up to A3; and one at which a page ends exactly with a label.
INSTANTIATE_TEST_SUITE_P(Heights, ReportPaper,
                         testing::Values(100.0, 250.0, 595.0 - kPageHeaderHeight, 722.0,
                                         48.0 + 42.0 * 4, 1150.0));

TEST(ReportLayout, ContinuedTablesSaySo)
{
    const auto pages = paginate(wholeReport(), 700);
    ASSERT_GE(pages.size(), 2u);
    EXPECT_TRUE(textOf(pages[0]).contains("Label Set-up Data"));
    for (std::size_t i = 1; i < pages.size(); ++i) {
        EXPECT_EQ(textOf(pages[i])[0], "Label Set-up Data (continued)");
        EXPECT_EQ(textOf(pages[i])[1], "Label|Ductor No.|1|2|3|4|5|6|7|8");
    }
}

TEST(ReportLayout, PaperTooLowForALabelGetsOneALabel)
{
    Report report = wholeReport();
    report.notes.clear();
    report.tables.erase(report.tables.begin(), report.tables.begin() + 2);
    EXPECT_EQ(paginate(report, 20).size(), 100u);
}

TEST(ReportLayout, AnEmptyReportIsOneEmptyPage)
{
    const auto pages = paginate(Report{}, 700);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_TRUE(pages[0].lines.empty());
}
