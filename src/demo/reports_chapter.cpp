#include "demo/chapters.h"

#include "help/help_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>

namespace tambrix {

namespace {

bool isInFront(const DemoStage& stage, const char* window)
{
    return stage.frontWindow().objectName() == QLatin1String(window);
}

HelpWindow* helpWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* help = qobject_cast<HelpWindow*>(window); help != nullptr && help->isVisible())
            return help;
    }
    return nullptr;
}

} // namespace

Task demoReports(DemoStage& stage)
{
    const auto press = [&stage](const char* button) {
        stage.later([&clicked = stage.control<QPushButton>(button)] { clicked.click(); });
    };
    stage.triggerMenu("mnuFileReportSetup");
    co_await stage.step("Report Setup offers three parts and a range of labels", "report-setup",
                        [&stage] {
                            return isInFront(stage, "frmReportSetup") &&
                                   stage.control<QCheckBox>("chkReport(2)").isChecked();
                        });
    press("cmdReportPreview");
    co_await stage.step("The preview shows the report's pages", "report-preview",
                        [&stage] { return isInFront(stage, "frmReportPreview"); });
    stage.later([&stage] { stage.frontWindow().close(); });
    co_await stage.step({}, {}, [&stage] { return isInFront(stage, "frmReportSetup"); });
    press("cmdReportCancel");
    co_await stage.step({}, {}, [&stage] { return !isInFront(stage, "frmReportSetup"); });

    stage.triggerMenu("mnuHelpAbout");
    co_await stage.step("About TAMBRIX", "about",
                        [&stage] { return isInFront(stage, "frmAbout"); });
    press("cmdAboutOk");
    co_await stage.step({}, {}, [&stage] { return !isInFront(stage, "frmAbout"); });

    stage.triggerMenu("mnuHelpTopics");
    co_await stage.step("Help Topics opens the help", {}, [] { return helpWindow() != nullptr; });
    if (HelpWindow* help = helpWindow()) {
        help->grab().save(stage.pictures().filePath(QStringLiteral("help.png")));
        help->close();
    }
}

} // namespace tambrix
