#include "controls/numeric_entry_field.h"
#include "demo/chapters.h"
#include "simulator/sample_program.h"

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>

namespace tambrix {

namespace {

constexpr std::uint16_t kCurrentFault = 8176;
constexpr std::uint16_t kLastFault = 8177;
constexpr std::uint8_t kUserFault = 0x45;

QString writeSample(const QTemporaryDir& folder, char boardType, const char* baseName)
{
    SampleProgram program;
    program.boardType = boardType;
    writeSampleProgram(program, QDir(folder.path()).filesystemPath(), baseName);
    return folder.filePath(QLatin1String(baseName) + ".fnx");
}

QString frontName(const DemoStage& stage)
{
    return stage.frontWindow().objectName();
}

QString textOf(const DemoStage& stage, const char* label)
{
    return stage.control<QLabel>(QLatin1String(label)).text();
}

QString fieldOf(const DemoStage& stage, const char* field)
{
    return stage.control<NumericEntryField>(QLatin1String(field)).text();
}

/// Picks `file` in the file dialog that a menu item has opened.
Task chooseFile(DemoStage& stage, QString file, QString picture)
{
    const auto dialog = [&stage] { return qobject_cast<QFileDialog*>(&stage.frontWindow()); };
    co_await stage.step("A controller program file is picked", picture,
                        [dialog] { return dialog() != nullptr; });
    stage.later([dialog, file] {
        dialog()->selectFile(file);
        dialog()->findChild<QLineEdit*>("fileNameEdit")->setText(file);
        static_cast<QDialog*>(dialog())->accept();
    });
    co_await stage.step({}, {}, [dialog] { return dialog() == nullptr; });
}

Task downloadProgram(DemoStage& stage, QString file)
{
    stage.triggerMenu("mnuFileDownloadProgram");
    co_await chooseFile(stage, file, "program-file");
    co_await stage.answerBox("Program Download", "Yes", "program-download-question");
    co_await stage.answerBox("Program Download - [DUCTCTR2]", "Yes", "program-download-comparison");
    co_await stage.step("The program goes into the controller", "program-download", [&stage] {
        return frontName(stage) == "frmDownloadProg" &&
               textOf(stage, "lblWaitDisplay") > "Writing to Program Address: 0100H";
    });
    co_await stage.step({}, {}, [&stage] {
        return frontName(stage) != "frmDownloadProg" ||
               textOf(stage, "lblWaitDisplay") == "Writing Program Ident ... ";
    });
    co_await stage.answerBox("Program Download", "OK", "program-download-complete");
}

Task openBoardWindow(DemoStage& stage, QString file)
{
    stage.triggerMenu("mnuViewTargetBoardStatus");
    co_await chooseFile(stage, file, {});
    co_await stage.step("The target board window reads the controller", {}, [&stage] {
        return frontName(stage) == "frmTargetBoard" && textOf(stage, "lblRevIdentInPLC(1)") == "4";
    });
}

Task showTab(DemoStage& stage, int index, QString what, QString picture,
             std::function<bool()> shown)
{
    stage.control<QTabWidget>("tabTargetBoard").setCurrentIndex(index);
    co_await stage.step(what, picture, std::move(shown));
}

Task showFaultsAndIdentity(DemoStage& stage)
{
    const auto action = [&stage] {
        return stage.control<QPlainTextEdit>("txtTargetBoard(3)").toPlainText();
    };
    co_await showTab(stage, 1, "A fault of the user program, and what to do", "board-faults",
                     [=] { return action().startsWith("User program executed an sfunc09()"); });
    stage.later([&stage] { stage.control<QPushButton>("cmdResetFaults").click(); });
    co_await stage.answerBox("WARNING - Fault Code Reset!", "Yes", "board-reset-question");
    co_await stage.step("Reset Faults clears it", "board-faults-reset",
                        [=] { return action() == "None"; });
    co_await showTab(stage, 2, "The controller holds the program that was downloaded",
                     "board-identity", [&stage] {
                         return textOf(stage, "lblRevIdentInPLC(0)") == "DUCTCTR2" &&
                                textOf(stage, "lblRevIdentInPLC(2)") ==
                                    textOf(stage, "lblRevIdentOnDisk(2)");
                     });
    stage.later([&stage] { stage.control<QPushButton>("cmdOk").click(); });
    co_await stage.step({}, {}, [&stage] { return frontName(stage) != "frmTargetBoard"; });
}

Task showAddressesAndClock(DemoStage& stage)
{
    co_await showTab(stage, 0, "An H810 has two network addresses", "board-addresses",
                     [&stage] { return fieldOf(stage, "txtSetup(1)") == "02"; });
    stage.control<QTabWidget>("tabTargetBoard").setCurrentIndex(3);
    stage.later([&stage] {
        stage.control<QPushButton>("cmdSetToCurrTime").click();
        stage.control<QPushButton>("cmdSetToCurrDate").click();
    });
    const QString year = QString::number(QDate::currentDate().year()).right(2);
    const std::function<bool()> shown = [&stage, year] {
        const QString hour = QTime::currentTime().toString(QStringLiteral("HH"));
        return fieldOf(stage, "txtSetup(2)") == hour && fieldOf(stage, "txtSetup(7)") == year;
    };
    co_await stage.step("Its clock is set to the PC's", "board-clock", shown);
    stage.later([&stage] { stage.control<QPushButton>("cmdOk").click(); });
    co_await stage.step({}, {}, [&stage] { return frontName(stage) != "frmTargetBoard"; });
}

Task showSerialSettings(DemoStage& stage)
{
    stage.triggerMenu("mnuEditCommPort");
    co_await stage.step("The serial settings name the ports of this computer", "serial-settings",
                        [&stage] { return frontName(stage) == "frmCommPort"; });
    stage.later([&stage] { stage.control<QPushButton>("cmdCancel").click(); });
    co_await stage.step({}, {}, [&stage] { return frontName(stage) != "frmCommPort"; });
}

} // namespace

Task demoMaintenance(DemoStage& stage)
{
    const QTemporaryDir folder;
    co_await stage.goOnline();
    const QString ductor = writeSample(folder, 'D', "ductor");
    const QString display = writeSample(folder, 'A', "display");
    co_await downloadProgram(stage, ductor);
    stage.board().poke(kCurrentFault, kUserFault);
    stage.board().poke(kLastFault, kUserFault);
    co_await openBoardWindow(stage, ductor);
    co_await showFaultsAndIdentity(stage);
    co_await openBoardWindow(stage, display);
    co_await showAddressesAndClock(stage);
    co_await showSerialSettings(stage);
    co_await stage.goOffline();
}

} // namespace tambrix
