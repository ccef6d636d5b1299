#include "maintenance/comm_port_dialog.h"

#include "controls/numeric_entry_field.h"
#include "tests/support/maintenance_rig.h"

#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimerEvent>

#include <tuple>

using namespace tambrix;

namespace {

struct DialogRig : MaintenanceRig
{
    std::vector<MachinePort> machine = {{"COM3", "USB adapter", 3}, {"ttyUSB0", "", std::nullopt}};
    std::unique_ptr<CommPortDialog> dialog;

    void show()
    {
        dialog = std::make_unique<CommPortDialog>(state, nullptr, [this] { return machine; });
        dialog->show();
        turns(3);
    }

    NumericEntryField& number() { return controlNamed<NumericEntryField>(*dialog, "txtCommPort"); }
    QRadioButton& fast() { return controlNamed<QRadioButton>(*dialog, "optPortSpeed(1)"); }
    QListWidget& list() { return controlNamed<QListWidget>(*dialog, "lstMachinePorts"); }
    void save() { controlNamed<QPushButton>(*dialog, "cmdSave").click(); }
    QByteArray settings() const { return content("Support/RSPort.cfg"); }
};

} // namespace

TEST(CommPortDialog, ShowsTheSettingsFileAndLeavesItByCancelOrOneEscape)
{
    const std::tuple<const char*, const char*, bool> cases[] = {{nullptr, "1", false}, // missing
                                                                {"", "1", false},
                                                                {"3,19200\r\n", "3", true},
                                                                {"120,19200\r\n", "99", true},
                                                                {"7,4800\r\n", "7", false}};
    for (const auto& [file, port, fast] : cases) {
        SCOPED_TRACE(file == nullptr ? "no file" : file);
        DialogRig rig;
        if (file != nullptr)
            rig.write("Support/RSPort.cfg", file);
        rig.show();
        EXPECT_EQ(rig.number().text(), port);
        EXPECT_EQ(rig.fast().isChecked(), fast);
        if (fast)
            QTest::keyClick(&rig.number(), Qt::Key_Escape);
        else
            controlNamed<QPushButton>(*rig.dialog, "cmdCancel").click();
        EXPECT_FALSE(rig.dialog->isVisible());
        EXPECT_EQ(rig.settings(), file);
    }
    DialogRig rig;
    rig.show();
    QTest::keyClicks(&rig.number(), "17");
    QTest::keyClick(&rig.number(), Qt::Key_Escape);
    EXPECT_TRUE(rig.dialog->isVisible()); // what was typed is undone first
    EXPECT_EQ(rig.number().text(), "1");
}

TEST(CommPortDialog, SavesForTheProgramAndForEveryToolThatIsThere)
{
    DialogRig rig;
    rig.write("FNX51/FENNIX.SFG", "17 and more\r\n");
    QDir(rig.folder.path()).mkdir("PLS51");
    rig.show();
    rig.number().setText("3");
    rig.fast().setChecked(true);
    rig.save();
    EXPECT_EQ(rig.settings(), "3,19200\r\n");
    EXPECT_EQ(rig.content("FNX51/FENNIX.SFG"), "2\r\n");
    EXPECT_EQ(rig.content("PLS51/FENNIX.SFG"), "2\r\n");
    EXPECT_FALSE(QFile::exists(rig.folder.filePath("FNX96")));
    EXPECT_FALSE(rig.dialog->isVisible());
    EXPECT_FALSE(rig.port.isOpen());
    EXPECT_FALSE(rig.state.gLink.OnlineMode);
}

TEST(CommPortDialog, OpensTheLinkAnewAndStaysWhereNoBoardAnswers)
{
    DialogRig rig;
    rig.goOnline();
    rig.board.setPowered(false);
    rig.state.gLink.CommError = true; // as the poll has found it
    rig.show();
    rig.number().setText("4");
    rig.save();
    EXPECT_TRUE(rig.dialog->isVisible());
    EXPECT_FALSE(rig.state.gLink.OnlineMode);
    EXPECT_EQ(rig.lastTitle(), "WARNING - Communication Error!");
    rig.board.setPowered(true);
    rig.save();
    EXPECT_FALSE(rig.dialog->isVisible());
    EXPECT_TRUE(rig.state.gLink.OnlineMode);
    EXPECT_EQ(rig.port.portNumber(), 4);
}

TEST(CommPortDialog, RefusesANumberOutOfRangeAndNamesAFileThatCannotBeWritten)
{
    DialogRig rig;
    rig.show();
    QTest::keyClicks(&rig.number(), "100");
    rig.save();
    EXPECT_TRUE(rig.eventually([&] { return rig.person.boxes.size() == 1; }));
    EXPECT_EQ(rig.lastText(), "Only a Number Between 1 and 99 can be Entered");
    EXPECT_EQ(rig.settings(), "");
    EXPECT_TRUE(rig.dialog->isVisible());
    QDir(rig.folder.path()).mkpath("Support/RSPort.cfg/in-the-way");
    QDir(rig.folder.path()).mkdir("FNX51");
    rig.number().setText("3");
    rig.save();
    ASSERT_EQ(rig.person.boxes.size(), 2u);
    EXPECT_NE(rig.lastText().find("RSPort.cfg"), std::string::npos);
    EXPECT_FALSE(QFile::exists(rig.folder.filePath("FNX51/FENNIX.SFG")));
    EXPECT_TRUE(rig.dialog->isVisible());
}

TEST(CommPortDialog, NamesThePortsOfTheMachineAsTheyComeAndGo)
{
    DialogRig rig;
    rig.show();
    ASSERT_EQ(rig.list().count(), 2);
    EXPECT_EQ(rig.list().item(0)->text(), "3: COM3, USB adapter");
    EXPECT_EQ(rig.list().item(1)->text(), "-: ttyUSB0");
    EXPECT_FALSE(rig.list().item(1)->flags().testFlag(Qt::ItemIsEnabled));
    QTest::mouseClick(rig.list().viewport(), Qt::LeftButton, {},
                      rig.list().visualItemRect(rig.list().item(0)).center());
    EXPECT_EQ(rig.number().text(), "3");

    const auto firstAfterASecond = [&rig] {
        QTimerEvent second(1);
        QCoreApplication::sendEvent(rig.dialog.get(), &second);
        return rig.list().item(0)->text();
    };
    rig.machine.clear();
    EXPECT_EQ(firstAfterASecond(), "No serial port found");
    rig.machine = {{"COM12", "Port of a new adapter", 12}};
    EXPECT_EQ(firstAfterASecond(), "12: COM12, Port of a new adapter");
}
