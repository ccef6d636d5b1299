#include "demo/chapters.h"
#include "simulator/memory_map.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>

namespace tambrix {

namespace {

constexpr int kLastLabel = 9;
constexpr int kWatchedLabel = 3;
constexpr int kEnoughToSee = 60; // entries
const QString kFile = QStringLiteral("press.sdt");

std::function<bool()> mainWindowInFront(DemoStage& stage)
{
    return [&stage] { return &stage.frontWindow() == &stage.window(); };
}

/// Chooses the labels in the label range dialog, and watches the transfer to its end.
Task transferLabels(DemoStage& stage, QString what, QString name)
{
    co_await stage.waitForWindow("frmLabelRange", what + ": which labels", name + "-range");
    stage.control<QRadioButton>("optLabels(1)").click();
    stage.control<QLineEdit>("txtLabels(0)").setText("0");
    stage.control<QLineEdit>("txtLabels(1)").setText(QString::number(kLastLabel));
    stage.press("cmdOk");
    const auto underWay = [&stage] {
        return stage.isInFront("frmProcessing") &&
               stage.control<QProgressBar>("prgProcessing").value() > kEnoughToSee;
    };
    co_await stage.step(what + ": under way", name + "-progress", underWay);
    co_await stage.step(what + ": done", {}, mainWindowInFront(stage));
}

Task uploadAndSave(DemoStage& stage)
{
    stage.triggerMenu("mnuFileUpload(0)");
    co_await stage.answerBox("Data Upload", "Yes", "upload-question");
    co_await stage.answerBox("Program Offline", "Yes", "upload-offline-question");
    co_await stage.step("The set-up data are uploaded", {}, mainWindowInFront(stage));
    stage.triggerMenu("mnuFileUpload(2)");
    co_await stage.answerBox("Data Upload", "Yes", {});
    co_await transferLabels(stage, "Upload", "upload");
    stage.triggerMenu("mnuFileSave");
    const QString file = stage.pictures().absoluteFilePath(kFile);
    co_await stage.answerFileDialog(file, "Save asks for a name", "save-as");
    co_await stage.step("The press is saved", "saved", [&stage] {
        return stage.window().windowTitle() == "TAMBRIX - [" + kFile + "]" &&
               stage.control<QLabel>("STATUS").text().endsWith("All Faults Normal");
    });
}

Task openAndDownload(DemoStage& stage)
{
    const auto& window = stage.window();
    stage.triggerMenu("mnuFileNew");
    co_await stage.step("New starts from the defaults", {},
                        [&] { return window.windowTitle() == "TAMBRIX - [unnamed]"; });
    stage.triggerMenu("mnuFileOpen");
    const QString file = stage.pictures().absoluteFilePath(kFile);
    co_await stage.answerFileDialog(file, "Open asks for the file", "open");
    co_await stage.step("The press is opened again", {},
                        [&] { return window.windowTitle() == "TAMBRIX - [" + kFile + "]"; });
    stage.triggerMenu("mnuFileDownload(2)");
    co_await stage.answerBox("Data Download", "Yes", "download-question");
    co_await transferLabels(stage, "Download", "download");
}

} // namespace

Task demoData(DemoStage& stage)
{
    QFile::remove(stage.pictures().filePath(kFile));
    co_await uploadAndSave(stage);
    const std::uint16_t watched = memory_map::labelOn(kWatchedLabel, 0);
    const std::uint8_t original = stage.board().peek(watched);
    stage.board().poke(watched, static_cast<std::uint8_t>(original + 1));
    co_await openAndDownload(stage);
    co_await stage.step("The controller holds the saved label again", {},
                        [&] { return stage.board().peek(watched) == original; });
    co_await stage.goOffline();
}

} // namespace tambrix
