#include "demo/chapters.h"

#include <QCheckBox>

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
