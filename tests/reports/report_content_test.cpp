#include "reports/report_content.h"

#include "reports/board_sheet.h"
#include "tests/support/press_rig.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <tuple>

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
    QString notes() const { return content().notes.join(u' '); }

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
    EXPECT_EQ(rig.content().name + rig.notes(), "untitled"); // New keeps the last path
    rig.state.gUntitled = false;
    EXPECT_EQ(rig.content().name, "night shift.sdt");
    EXPECT_TRUE(rig.notes().startsWith("File saved "));
    EXPECT_FALSE(rig.notes().contains("changed"));
    rig.set(labelBase(7), rig.state.gWorkingData.Value[labelBase(7)] + 1);
    EXPECT_TRUE(rig.notes().endsWith("values that were changed since."));
    file.remove();
    rig.state.gFileNameTitle.clear();
    EXPECT_EQ(rig.content().name + rig.notes(), "untitled");
}

TEST(ReportContent, EveryValueStandsInItsRow)
{
    ContentRig rig;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    for (int slot = 0; slot <= kCurrentLabelSlot; ++slot)
        rig.set(slot, 1001 + slot);
    rig.set(kSetupSlot + 1, 150);        // maximum ON
    rig.set(kSetupSlot + 4, 0b10000101); // feedback
    const int cycles[] = {200, 201, 202, 203, 204, 205, 0, -3};
    for (int d = 0; d < kDuctors; ++d) {
        rig.set(labelBase(99) + d, 10 * d);
        rig.set(labelBase(99) + kDuctors + d, cycles[d]);
    }
    const QStringList setup = rig.rows(0);
    const QStringList shift = rig.rows(1);
    const QStringList labels = rig.rows(2);
    QLocale::setDefault(QLocale::c());
    const std::tuple<QStringList, int, const char*> rows[] = {
        {setup, 1, "Maximum Cycle Duration|1009|0.1 cans"},
        {setup, 4, "Color Gain|1012|% (100% per 2000 CPM)"},
        {setup, 5, "Feedback Enable|1, 3, 8|ductors"},
        {setup, 6, "Label Number|1014|"},
        {shift, 1, "Ductor No. 1|1,001|cycles"},
        {shift, 8, "Ductor No. 8|1,008|cycles"},
        {labels, 298, "99|ON (0.1 cans)|0|10|20|30|40|50|60|70"},
        {labels, 299, "|CYCLE (0.1 cans)|200|201|202|203|204|205|0|-3"},
        {labels, 300, "|Color Density|0.0%|7.0%|13.9%|20.7%|27.5%|34.1%|0.0%|0.0%"}};
    for (const auto& [table, row, text] : rows)
        EXPECT_EQ(table.value(row), text);
    EXPECT_EQ(setup.size() + shift.size() + labels.size(), 7 + 9 + 301);
    for (const auto& [bits, text] : {std::pair(0, "none"), std::pair(255, "all")}) {
        rig.set(kSetupSlot + 4, bits);
        EXPECT_TRUE(rig.rows(0)[5].contains(text));
    }
}

TEST(ReportContent, HoldsTheChosenPartsAndLabels)
{
    const std::pair<ReportSettings, const char*> cases[] = {
        {{true, true, true, true, 5, 7},
         "Set-up Parameters 6, Shift Data Counts 8, Label Set-up Data 100"},
        {{true, false, false, false, 5, 7}, "Label Set-up Data 3"},
        {{false, true, false, true, 0, 99}, "Shift Data Counts 8"},
        {{false, false, true, true, 0, 99}, "Set-up Parameters 6"}};
    ContentRig rig;
    for (const auto& [settings, parts] : cases) {
        rig.state.report = settings;
        QStringList found; // with their number of blocks
        for (const ReportTable& table : rig.content().tables)
            found.append(table.title + u' ' + QString::number(table.blocks.size()));
        EXPECT_EQ(found.join(", "), parts);
    }
}

TEST(ReportContent, SaysOnLineThatItShowsTheDataSetAndAsOfWhen)
{
    ContentRig rig;
    rig.goOnline();
    EXPECT_TRUE(rig.notes().contains("the data set in this program, to which nothing has been"));
    rig.state.gUploadNOW = kNoon.date().startOfDay(); // only the day is known
    EXPECT_TRUE(rig.notes().contains("as of " + rig.content().date + ". "));
    rig.state.gUploadNOW = kNoon;
    EXPECT_TRUE(
        rig.notes().contains("as of " + QLocale().toString(kNoon, QLocale::ShortFormat) + ". "));
}

TEST(BoardSheet, ShowsWhatASetUpFileDoesNotHold)
{
    PressRig rig;
    rig.board.poke(63, 4);
    rig.board.poke(8180, 7);
    EXPECT_FALSE(boardSheet(rig.state, kNoon)) << "off line";
    rig.goOnline();
    const auto facts = [&] {
        QStringList read;
        const auto sheet = boardSheet(rig.state, kNoon);
        for (const ReportTable& table : sheet.value_or(Report{}).tables) {
            for (const ReportBlock& block : table.blocks)
                read += block.rows.front().join(u'|');
        }
        return read;
    };
    const QStringList plain = facts();
    for (const char* fact : {"Station Number|B63|4|", "Network Address 1|B8180|7|"})
        EXPECT_TRUE(plain.contains(fact)) << fact << plain.join('\n').toStdString();

    QFile program(rig.folder.filePath("pls.fnx"));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    program.write("E,pls\r\n"); // type 69, with a limit switch
    program.close();
    rig.state.gProgramFilePath = program.fileName();
    rig.board.limitSwitch().configuration.fill(7);
    EXPECT_EQ(facts().size(), plain.size() + 5) << "scale, offset and three rows of set-up";
    EXPECT_TRUE(facts().back().endsWith("7 7 7 7 7 7 7 7|")) << facts().back().toStdString();
    rig.line.unplug();
    EXPECT_FALSE(boardSheet(rig.state, kNoon));
}
