#include "history/ductor_report.h"
#include "history/history_plots.h"
#include "history/history_tables.h"
#include "history/history_tools.h"
#include "history/history_window.h"
#include "recorder/history_store.h"
#include "screens/color_control_screen.h"
#include "tests/support/window_rig.h"

#include <QCheckBox>
#include <QDateTime>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include <ctime>

using namespace tambrix;
using namespace std::chrono_literals;

namespace {

/// The main window with the history's tools, before a press that has something to tell.
struct HistoryRig : WindowRig
{
    HistoryTools tools{state, *window, clock};

    HistoryRig() : WindowRig(screens())
    {
        line.setBaud(0);
        state.labelNames.set(0, "Beer gold");
    }

    static ScreenTable screens()
    {
        ScreenTable table = defaultScreens();
        table[static_cast<std::size_t>(ScreenId::ColorControl)] = [](ProgramState& shared) {
            return std::make_unique<ColorControlScreen>(shared);
        };
        return table;
    }

    HistoryWindow& open()
    {
        item("mnuToolsHistory").trigger();
        return *window->findChild<HistoryWindow*>();
    }

    /// On line for some readings, an alarm, and one change.
    void record()
    {
        goOnline();
        for (const char* address :
             {"W112", "B100", "W686", "B722", "W734", "B692", "B3102", "W3114"})
            state.gLink.RSRead(address);
        board.press().raiseAlarm(2);
        state.gLink.RSRead("B65");
        state.gLink.RSWrite("B722", "30");
        state.gLink.RSWrite("B3102", "30");
        state.gLink.RSWrite("W1298", "4711");
        tools.recorder().flush();
    }

    static QString cell(const HistoryWindow& shown, const char* table, int row, int column)
    {
        const auto* model = shown.findChild<QTableView*>(QLatin1String(table))->model();
        return model->index(row, column).data().toString();
    }
    static int rows(const HistoryWindow& shown, const char* table)
    {
        return shown.findChild<QTableView*>(QLatin1String(table))->model()->rowCount();
    }
};

} // namespace

TEST(HistoryWindowTest, ShowsWhatWasRecorded)
{
    HistoryRig rig;
    EXPECT_TRUE(rig.open()
                    .findChild<QLabel*>("lblHistorySummary")
                    ->text()
                    .startsWith("Nothing recorded yet"));
    rig.record();
    HistoryWindow& shown = rig.open();
    PressRig::turns(5);
    QTest::mouseClick(shown.findChild<QPushButton*>("cmdAll"), Qt::LeftButton);
    ASSERT_EQ(rig.rows(shown, "tblAlarms"), 1);
    EXPECT_EQ(rig.cell(shown, "tblAlarms", 0, 1), "still on");
    EXPECT_EQ(rig.cell(shown, "tblAlarms", 0, 3), "3");
    EXPECT_EQ(rig.cell(shown, "tblAlarms", 0, 5), "0 Beer gold");
    ASSERT_EQ(rig.rows(shown, "tblChanges"), 2); // running and stored are one change
    EXPECT_EQ(rig.cell(shown, "tblChanges", 0, 3), "***** -> *****");
    EXPECT_EQ(rig.cell(shown, "tblChanges", 1, 1), "Main Display");
    EXPECT_EQ(rig.cell(shown, "tblChanges", 1, 2), "label 0, ductor 3 ON");
    EXPECT_EQ(rig.cell(shown, "tblChanges", 1, 4), "Beer gold");
    EXPECT_TRUE(rig.cell(shown, "tblChanges", 1, 3).endsWith(" -> 30"));
    const auto* plots = shown.findChild<HistoryPlots*>();
    EXPECT_TRUE(plots->accessibleDescription().contains("alarms of ductor 3: 1"));
    shown.findChild<QLineEdit*>("txtHistoryFilter")->setText("DUCTOR 3");
    EXPECT_EQ(rig.rows(shown, "tblChanges"), 1);
}

TEST(HistoryWindowTest, ZoomsPansAndPointsByKeys)
{
    HistoryRig rig;
    rig.record();
    HistoryWindow& shown = rig.open();
    auto& plots = *shown.findChild<HistoryPlots*>();
    const TimeSpan hour = plots.data().span;
    ASSERT_EQ(hour.length(), kHour);
    const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers with = Qt::NoModifier) {
        const TimeSpan shownBefore = plots.data().span;
        QTest::keyClick(&plots, pressed, with);
        if (with == Qt::NoModifier) {
            EXPECT_TRUE(
                PressRig::eventually([&] { return plots.data().span.begin != shownBefore.begin; }));
        }
        return plots.data().span;
    };
    const TimeSpan left = key(Qt::Key_Left);
    EXPECT_LT(left.begin, hour.begin);
    EXPECT_EQ(left.length(), kHour);
    EXPECT_FALSE(shown.findChild<QPushButton*>("cmdFollow")->isChecked());
    EXPECT_LT(key(Qt::Key_Plus).length(), kHour);
    const TimeSpan before = plots.data().span;
    EXPECT_EQ(key(Qt::Key_Left, Qt::ControlModifier).begin, before.begin); // the crosshair moves
    EXPECT_TRUE(shown.findChild<QLabel*>("lblHistorySummary")->text().contains(": "));
}

TEST(HistoryWindowTest, WritesCsvAndPdf)
{
    HistoryRig rig;
    rig.record();
    HistoryWindow& shown = rig.open();
    const QString csv = rig.folder.filePath("out.csv");
    const QString pdf = rig.folder.filePath("out.pdf");
    rig.person.chosenFiles = {csv, pdf, rig.folder.filePath("none/out.csv")};
    QTest::mouseClick(shown.findChild<QPushButton*>("cmdExportCsv"), Qt::LeftButton);
    QTest::mouseClick(shown.findChild<QPushButton*>("cmdSavePdf"), Qt::LeftButton);
    QFile file(csv);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("\r\nspeed,")) << text.toStdString();
    EXPECT_TRUE(text.contains("\r\nalarm,"));
    EXPECT_TRUE(text.contains("ductor 3 ON"));
    EXPECT_FALSE(text.contains("4711"));
    EXPECT_GT(QFileInfo(pdf).size(), 1000);
    QTest::mouseClick(shown.findChild<QPushButton*>("cmdExportCsv"), Qt::LeftButton);
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].title, "Export History");
}

TEST(HistoryWindowTest, TroubleStandsInTheMainWindowUntilItIsSeen)
{
    HistoryRig rig;
    QFile inTheWay(rig.folder.filePath("History"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    rig.record();
    const auto& news = rig.control<QLabel>("lblHistoryNews");
    EXPECT_TRUE(news.isVisible() && news.width() > 300) << news.width() << " px";
    EXPECT_TRUE(news.text().startsWith("The history cannot be written"));
}

TEST(HistoryWindowTest, AWriteOfTheScreenItselfIsNotTakenForItsUsers)
{
    HistoryRig rig;
    rig.window->showScreen(ScreenId::ColorControl);
    rig.goOnline();
    PressRig::turns(20);
    rig.state.gLink.RSWrite("B63", "4");
    rig.tools.recorder().flush();
    HistoryWindow& shown = rig.open();
    QTest::mouseClick(shown.findChild<QPushButton*>("cmdAll"), Qt::LeftButton);
    ASSERT_EQ(rig.rows(shown, "tblChanges"), 2);
    EXPECT_EQ(rig.cell(shown, "tblChanges", 0, 1), "Color Control");
    EXPECT_EQ(rig.cell(shown, "tblChanges", 1, 1), "Color Control (coming on line)");
}

TEST(PlotDataTest, ADuctorIsExpectedToCycleInAutomaticOnly)
{
    const QTemporaryDir folder;
    HistoryStore store(folder.filePath("history.db"), [](const QString&) {});
    HistoryBatch batch;
    batch.end = 100 * kSecond;
    batch.speed[0].push_back({0, SpeedRange{1200, 1200, 1200}});
    batch.values = {{0, 734, 200}, {0, 100, 1}, {50 * kSecond, 100, 2}, {60 * kSecond, 734, 100}};
    store.append(batch);
    HistoryReader reader(store.path());
    QStringList rates;
    for (const ExpectedPoint& point : readPlotData(reader, {0, 100 * kSecond}, 2, 1000).expected)
        rates += QString::number(point.rate.value_or(-1));
    rates.removeDuplicates();
    EXPECT_EQ(rates, QStringList({"60", "0"}));
}

TEST(HistoryWindowTest, ReadsWhatIsNotShownOnlyWhenTicked)
{
    HistoryRig rig;
    rig.goOnline();
    const auto known = [&] { return rig.tools.recorder().currentLabel().has_value(); };
    PressRig::turns(200);
    EXPECT_FALSE(known());
    rig.open().findChild<QCheckBox*>("chkRecordUnseen")->setChecked(true);
    EXPECT_TRUE(PressRig::eventually(known));
}

#ifdef Q_OS_UNIX
/// On the day on which the clocks are put back, local times come twice; spans stay what they were.
TEST(HistoryText, ASummerTimeDayHasNoNegativeSpan)
{
    qputenv("TZ", "Europe/Berlin");
    tzset();
    const UtcMs half = QDateTime({2026, 10, 25}, {0, 30}, Qt::UTC).toMSecsSinceEpoch();
    EXPECT_EQ(localDay(half).length(), 25 * kHour);
    EXPECT_EQ(localDay(half - 210 * kDay).length(), 23 * kHour);
    EXPECT_EQ(spanText(localDay(half)), "2026-10-25");
    EXPECT_EQ(spanText({half, half + 30 * kDay}), "2026-10-25 02:30:00 to 2026-11-24 01:30:00");
    const auto table = alarmTable({{2, {half, half + kHour}, true, 0, 6}}, half + 2 * kHour);
    EXPECT_EQ(table.rows[0].mid(0, 3), QStringList({"02:30:00", "02:30:00", "1 h 00 min"}));
    qunsetenv("TZ");
    tzset();
}
#endif

TEST(HistoryText, AChangeIsOneLineAndATransferToo)
{
    const auto row = [](UtcMs time, const char* address, const char* after,
                        const char* before = "26", bool confirmed = true) {
        return WriteRow{time, address, before, after, "Color Control", 6, confirmed};
    };
    const auto lines =
        changeLines({row(9000, "B1013", "30", "20", false), row(1010, "B3282", "30", "?"),
                     row(1000, "B722", "30"), row(500, "B722", "31")});
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].what, "Response Time Compensation");
    EXPECT_EQ(lines[0].change, "20 -> 30 (not confirmed)");
    EXPECT_EQ(lines[1].what, "label 6, ductor 3 ON");
    EXPECT_EQ(lines[1].change, "26 -> 30");
    EXPECT_EQ(lines[2].what,
              "label 6, ductor 3 ON (running)"); // another value: a change of its own
    std::vector<WriteRow> transfer;
    for (int i = 0; i < 100; ++i)
        transfer.push_back(row(100'000 - i * 10, "B3100", "1"));
    ASSERT_EQ(changeLines(transfer).size(), 1u);
    EXPECT_EQ(changeLines(transfer)[0].what, "100 values");
}

TEST(DuctorReportTest, SaysWhatStandsOut)
{
    DuctorReport report;
    report.runningOn = 30;
    report.storedOn = 26;
    report.runningCycle = report.storedCycle = 200;
    report.maximumOn = 150;
    report.counted = 60;
    report.expected = 40;
    report.alarms = 1;
    const QString text = findings(report).join(u'\n');
    EXPECT_TRUE(text.contains("other durations than the label"));
    EXPECT_TRUE(text.contains("more ink"));
    EXPECT_TRUE(text.contains("1 feedback fault"));
    EXPECT_EQ(report.density(true), "21.0%");
    EXPECT_EQ(report.density(false), "18.2%");
    report.runningOn = 26;
    report.counted = 40.5;
    EXPECT_TRUE(findings(report).join(u'\n').contains("cycles as often as"));
}
