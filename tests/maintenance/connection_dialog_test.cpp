#include "maintenance/connection_dialog.h"

#include "tests/support/maintenance_rig.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include <array>

using namespace tambrix;

namespace {

const Connection kServer{Connection::Kind::Server, {}, "press4", 4007};

struct ConnectionRig : MaintenanceRig
{
    ConnectionChoice choice{folder.filePath("Connection.cfg"), {}, [this](const Connection& used) {
                                EXPECT_FALSE(port.isOpen());
                                uses.push_back(used);
                            }};
    std::vector<Connection> uses;
    std::unique_ptr<ConnectionDialog> dialog;

    void show()
    {
        dialog = std::make_unique<ConnectionDialog>(state, choice, nullptr, [] {
            return std::vector<MachinePort>{{"COM7", "", 7}};
        });
        dialog->show();
    }
    template <typename Control> Control& control(const char* name)
    {
        return controlNamed<Control>(*dialog, name);
    }
    void chooseServer(const char* host)
    {
        choose("optByServer");
        control<QLineEdit>("txtHost").setText(host);
        control<QSpinBox>("txtTcpPort").setValue(4007);
        save();
    }
    void choose(const char* option) { control<QRadioButton>(option).setChecked(true); }
    void save() { control<QPushButton>("cmdSave").click(); }
    Connection kept() const { return readConnection(choice.file); }
};

} // namespace

TEST(ConnectionDialogTest, KeepsWhatIsChosenAndOpensTheLinkAnew)
{
    ConnectionRig rig;
    rig.goOnline();
    rig.show();
    EXPECT_TRUE(rig.control<QRadioButton>("optByNumber").isChecked());
    EXPECT_FALSE(rig.control<QLineEdit>("txtHost").isEnabled());
    rig.chooseServer(" press4 ");
    EXPECT_FALSE(rig.dialog->isVisible());
    EXPECT_EQ(rig.kept(), kServer);
    EXPECT_EQ(rig.uses, std::vector{kServer});
    EXPECT_TRUE(rig.state.gLink.OnlineMode);

    rig.show();
    EXPECT_EQ(rig.control<QLineEdit>("txtHost").text(), "press4");
    rig.choose("optByDevice");
    rig.control<QComboBox>("cmbDevice").setCurrentIndex(0);
    rig.line.unplug();
    rig.state.gLink.CommError = true; // as the poll has found it
    rig.save();
    EXPECT_EQ(rig.kept().device, "COM7");
    EXPECT_EQ(rig.lastTitle(), "Comm Port Error"); // said by the link
    EXPECT_TRUE(rig.dialog->isVisible());
    EXPECT_FALSE(rig.state.gLink.OnlineMode);
}

TEST(ConnectionDialogTest, RefusesWhatIsNoAddressAndNamesAFileThatCannotBeWritten)
{
    ConnectionRig rig;
    rig.show();
    const std::array<const char*, 3> cases[] = {
        {"optByServer", "", "serial server's name"},
        {"optByServer", "a/b", "serial server's name"},
        {"optByServer", "press 4", "serial server's name"},
        {"optByDevice", "", "serial device's name"},
        {"optByDevice", "tcp://press4:1", "serial device's name"}};
    for (const auto& [option, text, said] : cases) {
        SCOPED_TRACE(text);
        rig.choose(option);
        rig.control<QLineEdit>("txtHost").setText(text);
        rig.control<QComboBox>("cmbDevice").setEditText(text);
        rig.save();
        EXPECT_NE(rig.lastText().find(said), std::string::npos) << rig.lastText();
        EXPECT_TRUE(rig.dialog->isVisible());
    }
    QDir(rig.folder.path()).mkpath("Connection.cfg/in-the-way");
    rig.choose("optByNumber");
    rig.save();
    EXPECT_NE(rig.lastText().find("Connection.cfg"), std::string::npos);
    EXPECT_TRUE(rig.uses.empty());
}

TEST(ConnectionDialogTest, WhatTheProgramWasStartedWithGoesBefore)
{
    ConnectionRig rig;
    rig.choice.overriddenBy = "--serial-device COM9";
    rig.goOnline();
    rig.show();
    EXPECT_TRUE(rig.control<QLabel>("lblOverridden").text().contains("--serial-device COM9"));
    rig.chooseServer("press4");
    EXPECT_EQ(rig.kept(), kServer);
    EXPECT_TRUE(rig.uses.empty());
    EXPECT_TRUE(rig.port.isOpen());
}
