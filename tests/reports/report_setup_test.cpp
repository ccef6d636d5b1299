#include "reports/report_setup.h"
#include "tests/support/press_rig.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

#include <tuple>

using namespace tambrix;

namespace {

struct SetupRig : PressRig
{
    QStringList actions;
    ReportSetup dialog{state,
                       {[this] { actions.append("preview"); }, [this] { actions.append("pdf"); },
                        [this] { actions.append("print"); }}};

    SetupRig()
    {
        dialog.show();
        dialog.activateWindow(); // only a window in front gives its fields the focus
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }

    template <typename Control> Control& control(const char* name)
    {
        return *dialog.findChild<Control*>(QLatin1String(name));
    }
    void click(const char* name) { control<QAbstractButton>(name).click(); }
    void type(const char* name, const QString& text)
    {
        auto& field = control<QLineEdit>(name);
        field.setFocus();
        field.setText(text);
    }
};

} // namespace

TEST(ReportSetupDialog, OkKeepsTheSettingsItOpensWith)
{
    PressRig rig;
    rig.state.report = {false, true, false, false, 5, 7};
    ReportSetup(rig.state, {}).accept();
    const auto& [labels, shift, setup, all, first, last] = rig.state.report;
    EXPECT_EQ(std::tuple(labels, shift, setup, all, first, last),
              std::tuple(false, true, false, false, 5, 7));
}

TEST(ReportSetupDialog, TypedBoundsMeanARangeAndMustBeNumbers)
{
    SetupRig rig;
    rig.type("txtReportLabels(0)", "12");
    QTest::keyClick(rig.dialog.focusWidget(), Qt::Key_Return); // goes on, is not OK
    EXPECT_EQ(rig.dialog.focusWidget()->objectName(), "txtReportLabels(1)");
    rig.type("txtReportLabels(1)", "");
    EXPECT_TRUE(rig.control<QRadioButton>("optReportLabels(1)").isChecked());
    rig.click("cmdReportOk");
    EXPECT_TRUE(rig.dialog.isVisible());
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].text, "Only a Number Between 0 and 99 can be Entered");
    EXPECT_TRUE(rig.state.report.allLabels);
    rig.type("txtReportLabels(1)", "170");
    rig.click("cmdReportOk");
    EXPECT_FALSE(rig.dialog.isVisible());
    EXPECT_FALSE(rig.state.report.allLabels);
    EXPECT_EQ(rig.state.report.firstLabel, 12);
    EXPECT_EQ(rig.state.report.lastLabel, 99);
}

TEST(ReportSetupDialog, ButtonsWorkWithWhatIsShownAndCancelForgetsIt)
{
    SetupRig rig;
    rig.click("chkReport(0)");
    rig.click("cmdReportPreview");
    EXPECT_FALSE(rig.state.report.printSetupData);
    rig.type("txtReportLabels(0)", "rubbish");
    rig.click("cmdReportPdf"); // refused: nothing to show
    rig.click("optReportLabels(0)");
    rig.click("cmdReportPrint"); // all labels need no bounds
    EXPECT_EQ(rig.actions, (QStringList{"preview", "print"}));
    EXPECT_TRUE(rig.state.report.allLabels);
    EXPECT_TRUE(rig.dialog.isVisible());
    for (const char* part : {"chkReport(1)", "chkReport(2)"}) // nothing is chosen any more
        rig.click(part);
    for (const char* name : {"cmdReportOk", "cmdReportPreview", "cmdReportPdf", "cmdReportPrint"})
        EXPECT_FALSE(rig.control<QPushButton>(name).isEnabled()) << name;
    rig.click("chkReport(1)");
    EXPECT_TRUE(rig.control<QPushButton>("cmdReportPrint").isEnabled());
    EXPECT_FALSE(rig.control<QRadioButton>("optReportLabels(0)").isEnabled());
    rig.click("cmdReportCancel");
    EXPECT_FALSE(rig.dialog.isVisible());
    EXPECT_TRUE(rig.state.report.printLabelData);
}
