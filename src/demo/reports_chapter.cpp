#include "demo/chapters.h"

#include <QCheckBox>
#include <QFile>
#include <QFileInfo>

namespace tambrix {

namespace {

Task demoReportSetup(DemoStage& stage)
{
    stage.triggerMenu("mnuFileReportSetup");
    co_await stage.step("Report Setup offers three parts and a range of labels", "report-setup",
                        [&stage] {
                            return stage.isInFront("frmReportSetup") &&
                                   stage.control<QCheckBox>("chkReport(2)").isChecked();
                        });
    stage.press("cmdReportPreview");
    co_await stage.waitForWindow("frmReportPreview", "The preview shows the report's pages",
                                 "report-preview");
    stage.later([&stage] { stage.frontWindow().close(); });
    co_await stage.waitForWindow("frmReportSetup", {}, {});
    const QString file = stage.pictures().absoluteFilePath("report.pdf");
    QFile::remove(file); // of an earlier run: the dialog would ask
    stage.press("cmdReportPdf");
    co_await stage.answerFileDialog(file, {}, {});
    co_await stage.step("The report is saved as PDF", {}, [&stage, &file] {
        return QFileInfo(file).size() > 0 && stage.isInFront("frmReportSetup");
    });
    co_await stage.leaveBy("cmdReportCancel");
}

} // namespace

Task demoReports(DemoStage& stage)
{
    co_await demoReportSetup(stage);
    stage.triggerMenu("mnuHelpAbout");
    co_await stage.waitForWindow("frmAbout", "About TAMBRIX", "about");
    co_await stage.leaveBy("cmdAboutOk");
    stage.triggerMenu("mnuHelpTopics");
    co_await stage.waitForWindow("frmHelp", "Help Topics opens the help", "help");
    stage.frontWindow().close();
}

} // namespace tambrix
