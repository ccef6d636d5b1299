#include "reports/report_setup.h"
#include "tests/support/press_rig.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

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

TEST(ReportSetupDialog, OpensWithTheSettings)
{
    SetupRig rig;
    for (const char* part : {"chkReport(0)", "chkReport(1)", "chkReport(2)"})
        EXPECT_TRUE(rig.control<QCheckBox>(part).isChecked());
    EXPECT_TRUE(rig.control<QRadioButton>("optReportLabels(0)").isChecked());
    EXPECT_EQ(rig.control<QLineEdit>("txtReportLabels(0)").text(), "0");
    EXPECT_EQ(rig.control<QLineEdit>("txtReportLabels(1)").text(), "99");
}

TEST(ReportSetupDialog, TypedBoundsMeanARange)
{
    struct Case
    {
        const char* from;
        const char* to;
        int first, last; ///< -1: refused
    };
    const Case cases[] = {{"3", "17", 3, 17},     {"10", "5", 10, 10}, {"0.6", "3", 1, 3},
                          {"150", "120", 99, 99}, {"-5", "-9", 0, 0},  {"12", "", -1, -1},
                          {"x", "12", -1, -1}};
    for (const Case& c : cases) {
        SetupRig rig;
        rig.type("txtReportLabels(0)", c.from);
        rig.type("txtReportLabels(1)", c.to);
        EXPECT_TRUE(rig.control<QRadioButton>("optReportLabels(1)").isChecked());
        rig.click("cmdReportOk");
        const bool refused = c.first < 0;
        EXPECT_EQ(rig.dialog.isVisible(), refused) << c.from << ".." << c.to;
        EXPECT_EQ(rig.person.boxes.size(), refused ? 1u : 0u);
        EXPECT_EQ(rig.state.report.allLabels, refused);
        EXPECT_EQ(rig.state.report.firstLabel, refused ? 0 : c.first);
        EXPECT_EQ(rig.state.report.lastLabel, refused ? 99 : c.last);
    }
}

TEST(ReportSetupDialog, AllLabelsIgnoresTheBounds)
{
    SetupRig rig;
    rig.type("txtReportLabels(0)", "rubbish");
    rig.click("optReportLabels(0)");
    rig.click("cmdReportOk");
    EXPECT_TRUE(rig.person.boxes.empty());
    EXPECT_TRUE(rig.state.report.allLabels);
}

TEST(ReportSetupDialog, CancelKeepsWhatWas)
{
    SetupRig rig;
    rig.click("chkReport(1)");
    rig.click("cmdReportCancel");
    EXPECT_TRUE(rig.state.report.printShiftData);
    EXPECT_FALSE(rig.dialog.isVisible());
}

TEST(ReportSetupDialog, ButtonsWorkWithWhatIsShown)
{
    SetupRig rig;
    rig.click("chkReport(0)");
    rig.click("cmdReportPreview");
    EXPECT_FALSE(rig.state.report.printSetupData);
    rig.type("txtReportLabels(0)", "no");
    rig.click("cmdReportPdf"); // refused: nothing to show
    rig.type("txtReportLabels(0)", "7");
    rig.click("cmdReportPrint");
    EXPECT_EQ(rig.actions, (QStringList{"preview", "print"}));
    EXPECT_TRUE(rig.dialog.isVisible());
}

TEST(ReportSetupDialog, NothingChosenCannotBePrinted)
{
    SetupRig rig;
    for (const char* part : {"chkReport(0)", "chkReport(1)", "chkReport(2)"})
        rig.click(part);
    for (const char* name : {"cmdReportOk", "cmdReportPreview", "cmdReportPdf", "cmdReportPrint"})
        EXPECT_FALSE(rig.control<QPushButton>(name).isEnabled()) << name;
    EXPECT_FALSE(rig.control<QRadioButton>("optReportLabels(0)").isEnabled());
    rig.click("chkReport(1)");
    EXPECT_TRUE(rig.control<QPushButton>("cmdReportPrint").isEnabled());
    EXPECT_FALSE(rig.control<QRadioButton>("optReportLabels(0)").isEnabled());
}

TEST(ReportSetupDialog, EnterInABoundGoesOn)
{
    SetupRig rig;
    auto& first = rig.control<QLineEdit>("txtReportLabels(0)");
    first.setFocus();
    QTest::keyClick(&first, Qt::Key_Return);
    EXPECT_TRUE(rig.dialog.isVisible());
    EXPECT_EQ(rig.dialog.focusWidget()->objectName(), "txtReportLabels(1)");
}
