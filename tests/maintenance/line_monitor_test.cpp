#include "maintenance/line_monitor.h"

#include "tests/support/maintenance_rig.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimerEvent>

using namespace tambrix;

namespace {

struct MonitorRig : MaintenanceRig
{
    LineRecorder recorder{clock};
    TracedPort traced{port, recorder};
    RSComm& link = state.gLink;
    std::unique_ptr<LineMonitor> monitor;

    MonitorRig()
    {
        board.poke(1298, 0xD2);
        link.OpenRSComm(traced);
        link.RSWrite("B692", "150");
        link.RSRead("W1298");
        line.setFault(line.exchanges(), {LineFault::Kind::ChangeReply, 0x01});
        link.RSRead("B692");
        monitor = std::make_unique<LineMonitor>(recorder, clock, person, folder.path());
        monitor->show();
    }

    /// The rows as the monitor shows them, the given column.
    QStringList column(int index) const
    {
        const auto& model = *controlNamed<QTableView>(*monitor, "tblLine").model();
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts += model.index(row, index).data().toString();
        return texts;
    }
    QStringList meanings() const { return column(3); }
    template <typename Control> Control& control(const char* name) const
    {
        return controlNamed<Control>(*monitor, name);
    }
    void click(const char* name) const { control<QPushButton>(name).click(); }

    /// What the monitor does four times a second.
    void refresh() const
    {
        PressRig::eventually(
            [this, before = meanings().size()] { return meanings().size() > before; });
    }
};

const QStringList kSession = {"attention", "attention", "write mode",        "write B692 = 150",
                              "attention", "read mode", "read W1298 = ****", "read a register"};

} // namespace

TEST(LineMonitorTest, ShowsTheLineFilteredAndFound)
{
    const MonitorRig rig;
    EXPECT_EQ(rig.meanings(), kSession);
    EXPECT_EQ(rig.column(1)[3], "02 B4 96");
    EXPECT_EQ(rig.column(2)[6], "05 ** 05 **");
    EXPECT_TRUE(rig.column(6)[7].contains("the line is disturbed"));
    EXPECT_TRUE(rig.control<QLabel>("lblLineFigures").text().contains("Errors since on line: 1."));

    rig.control<QLineEdit>("txtLineRegister").setText("b69");
    EXPECT_EQ(rig.meanings(), QStringList{"write B692 = 150"});
    rig.control<QLineEdit>("txtLineRegister").clear();
    rig.control<QCheckBox>("chkLineErrors").setChecked(true);
    EXPECT_EQ(rig.meanings(), QStringList{"read a register"});
    rig.control<QCheckBox>("chkLineErrors").setChecked(false);

    rig.control<QLineEdit>("txtLineFind").setText("ATTENTION");
    for (const int row : {0, 1, 4, 0}) {
        rig.click("cmdLineFind");
        EXPECT_EQ(rig.control<QTableView>("tblLine").currentIndex().row(), row);
    }
    EXPECT_TRUE(rig.control<QPushButton>("cmdLinePause").isChecked());
    rig.click("cmdLineCopy");
    EXPECT_EQ(QGuiApplication::clipboard()->text().count("attention"), 1);
}

TEST(LineMonitorTest, FollowsTheLineUntilItIsPaused)
{
    MonitorRig rig;
    rig.link.RSRead("B692");
    rig.refresh();
    EXPECT_EQ(rig.meanings().last(), "read B692 = 150");
    rig.control<QPushButton>("cmdLinePause").setChecked(true);
    const auto rows = rig.meanings().size();
    rig.link.RSRead("B694");
    QTimerEvent none(-1);
    QCoreApplication::sendEvent(rig.monitor.get(), &none);
    EXPECT_EQ(rig.meanings().size(), rows);
    rig.control<QPushButton>("cmdLinePause").setChecked(false);
    EXPECT_EQ(rig.meanings().size(), rows + 1);
    for (std::size_t i = 0; i < LineRecorder::kWatched; ++i) { // the oldest make way
        rig.recorder.sent(0xFF);
        rig.recorder.received(0x55);
    }
    rig.control<QPushButton>("cmdLinePause").toggle();
    rig.control<QPushButton>("cmdLinePause").toggle();
    EXPECT_EQ(rig.meanings().size(), static_cast<qsizetype>(LineRecorder::kWatched));
    EXPECT_EQ(rig.meanings().first(), "attention");
}

TEST(LineMonitorTest, SavesATraceAndLoadsItAgain)
{
    MonitorRig rig;
    const QString file = rig.folder.filePath("line.txt");
    rig.person.chosenFiles = {file, file, rig.folder.filePath("none.txt")};
    rig.click("cmdLineSave");
    rig.link.RSRead("B694");
    rig.click("cmdLineLoad");
    EXPECT_EQ(rig.meanings(), kSession);
    EXPECT_FALSE(rig.control<QPushButton>("cmdLinePause").isEnabled());
    rig.click("cmdLineLoad");
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_NE(rig.person.boxes[0].text.find("none.txt"), std::string::npos);
    EXPECT_EQ(rig.meanings(), kSession); // what was shown stays
    rig.click("cmdLineLive");
    EXPECT_GT(rig.meanings().size(), kSession.size());
}
