#include "reports/report_layout.h"
#include "tests/support/press_rig.h"

#include <gtest/gtest.h>

#include <map>

using namespace tambrix;

namespace {

// 30 mm of a label roll up to A3; and one at which a page ends exactly with a label.
constexpr double kBodyHeights[] = {100, 250, 595 - kPageHeaderHeight, 722, 48 + 42 * 4, 1150};

const std::map<LineKind, double> kLineHeights = {{LineKind::Note, kNoteHeight},
                                                 {LineKind::TableTitle, kTableTitleHeight},
                                                 {LineKind::TableHeading, kTableHeadingHeight},
                                                 {LineKind::TableRow, kTableRowHeight}};

Report wholeReport()
{
    PressRig rig;
    rig.goOnline(); // with its notes
    return reportContent(rig.state, QDateTime(QDate(2026, 3, 14), QTime(12, 0)));
}

} // namespace

TEST(ReportLayout, LosesNothingSplitsNoLabelAndOverlapsNothing)
{
    const Report report = wholeReport();
    std::vector<QStringList> rows;
    for (const ReportTable& table : report.tables) {
        for (const ReportBlock& block : table.blocks)
            rows.insert(rows.end(), block.rows.begin(), block.rows.end());
    }
    for (const double height : kBodyHeights) {
        SCOPED_TRACE(height);
        std::vector<QStringList> printed;
        std::size_t begun = 0; // tables that have had their title
        for (const ReportPage& page : paginate(report, height)) {
            double bottom = 0;
            LineKind before = LineKind::Note;
            for (const ReportLine& line : page.lines) {
                EXPECT_DOUBLE_EQ(line.top, bottom);
                bottom += kLineHeights.at(line.kind);
                EXPECT_TRUE(line.kind != LineKind::TableHeading || before == LineKind::TableTitle);
                EXPECT_TRUE(line.kind != LineKind::TableRow || before >= LineKind::TableHeading);
                before = line.kind;
                if (line.kind == LineKind::TableRow)
                    printed.push_back(line.cells);
                if (line.kind != LineKind::TableTitle)
                    continue;
                const QLatin1String suffix(line.table < begun ? " (continued)" : "");
                EXPECT_EQ(line.cells.front(), report.tables[line.table].title + suffix);
                begun = line.table + 1;
            }
            EXPECT_LE(bottom, height);
            EXPECT_EQ(before, LineKind::TableRow) << "headings left alone";
            EXPECT_TRUE(page.lines.back().endsBlock) << "a label goes on over the page break";
        }
        EXPECT_EQ(printed, rows);
    }
    const Report labels{{}, {}, {}, {report.tables.back()}, {}};
    EXPECT_EQ(paginate(labels, 20).size(), 100u); // lower than a label
}
