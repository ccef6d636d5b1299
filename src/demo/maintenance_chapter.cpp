#include "controls/numeric_entry_field.h"
#include "demo/chapters.h"
#include "simulator/memory_map.h"
#include "simulator/sample_program.h"

#include <QDateTime>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTemporaryDir>

namespace tambrix {

namespace {

constexpr std::uint8_t kUserFault = 0x45;

QString writeSample(const QTemporaryDir& folder, char boardType, const char* baseName)
{
    SampleProgram program;
    program.boardType = boardType;
    writeSampleProgram(program, QDir(folder.path()).filesystemPath(), baseName);
    return folder.filePath(QLatin1String(baseName) + ".fnx");
}

QString textOf(const DemoStage& stage, const char* label)
{
    return stage.control<QLabel>(QLatin1String(label)).text();
}

QString fieldOf(const DemoStage& stage, const char* field)
{
    return stage.control<NumericEntryField>(QLatin1String(field)).text();
}

Task downloadProgram(DemoStage& stage, QString file)
{
    stage.triggerMenu("mnuFileDownloadProgram");
    co_await stage.answerFileDialog(file, "A controller program file is picked", "program-file");
    co_await stage.answerBox("Program Download", "Yes", "program-download-question");
    co_await stage.answerBox("Program Download - [DUCTCTR2]", "Yes", "program-download-comparison");
    co_await stage.step("The program goes into the controller", "program-download", [&stage] {
        return stage.isInFront("frmDownloadProg") &&
               textOf(stage, "lblWaitDisplay") > "Writing to Program Address: 0100H";
    });
    co_await stage.step({}, {}, [&stage] {
        return !stage.isInFront("frmDownloadProg") ||
               textOf(stage, "lblWaitDisplay") == "Writing Program Ident ... ";
    });
    co_await stage.answerBox("Program Download", "OK", "program-download-complete");
}

Task openBoardWindow(DemoStage& stage, QString file)
{
    stage.triggerMenu("mnuViewTargetBoardStatus");
    co_await stage.answerFileDialog(file, "A program file to compare with is picked", {});
    co_await stage.step("The target board window reads the controller", {}, [&stage] {
        return stage.isInFront("frmTargetBoard") && textOf(stage, "lblRevIdentInPLC(1)") == "4";
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
    stage.press("cmdResetFaults");
    co_await stage.answerBox("WARNING - Fault Code Reset!", "Yes", "board-reset-question");
    co_await stage.step("Reset Faults clears it", "board-faults-reset",
                        [=] { return action() == "None"; });
    co_await showTab(stage, 2, "The controller holds the program that was downloaded",
                     "board-identity", [&stage] {
                         return textOf(stage, "lblRevIdentInPLC(0)") == "DUCTCTR2" &&
                                textOf(stage, "lblRevIdentInPLC(2)") ==
                                    textOf(stage, "lblRevIdentOnDisk(2)");
                     });
    co_await stage.leaveBy("cmdOk");
}

Task showAddressesAndClock(DemoStage& stage)
{
    co_await showTab(stage, 0, "An H810 has two network addresses", "board-addresses",
                     [&stage] { return fieldOf(stage, "txtSetup(1)") == "02"; });
    stage.control<QTabWidget>("tabTargetBoard").setCurrentIndex(3);
    stage.press("cmdSetToCurrTime");
    stage.press("cmdSetToCurrDate");
    const std::function<bool()> shown = [&stage] {
        const QString date = fieldOf(stage, "txtSetup(5)") + u'-' + fieldOf(stage, "txtSetup(6)") +
                             u'-' + fieldOf(stage, "txtSetup(7)");
        const QDateTime now = QDateTime::currentDateTime();
        return fieldOf(stage, "txtSetup(2)") == now.toString(QStringLiteral("HH")) &&
               date == now.toString(QStringLiteral("MM-dd-yy"));
    };
    co_await stage.step("Its clock is set to the PC's", "board-clock", shown);
    co_await stage.leaveBy("cmdOk");
}

Task showSerialSettings(DemoStage& stage)
{
    stage.triggerMenu("mnuEditCommPort");
    co_await stage.waitForWindow(
        "frmCommPort", "The serial settings name the ports of this computer", "serial-settings");
    co_await stage.leaveBy("cmdCancel");
}

} // namespace

Task demoMaintenance(DemoStage& stage)
{
    const QTemporaryDir folder;
    co_await stage.goOnline();
    const QString ductor = writeSample(folder, 'D', "ductor");
    const QString display = writeSample(folder, 'A', "display");
    co_await downloadProgram(stage, ductor);
    stage.board().poke(memory_map::kCurrentFault, kUserFault);
    stage.board().poke(memory_map::kLastFault, kUserFault);
    co_await openBoardWindow(stage, ductor);
    co_await showFaultsAndIdentity(stage);
    co_await openBoardWindow(stage, display);
    co_await showAddressesAndClock(stage);
    co_await showSerialSettings(stage);
    co_await stage.goOffline();
}

} // namespace tambrix
