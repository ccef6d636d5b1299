#include "help/about_box.h"
#include "help/help_desk.h"
#include "help/system_info_window.h"
#include "reports/report_setup.h"
#include "reports/standby_window.h"
#include "tests/support/window_rig.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPdfWriter>
#include <QToolBar>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

struct DeskRig : WindowRig
{
    HelpDesk desk{state};

    DeskRig() { state.helpFile = QStringLiteral(TAMBRIX_SOURCE_FOLDER "/Help/TMBRX.hlp"); }

    /// The last part of where the help explains this widget: "file.html#anchor".
    QString place(const QWidget& widget)
    {
        const QUrl url = desk.topicOf(&widget);
        return url.isEmpty() ? QString() : url.fileName() + u'#' + url.fragment();
    }

    static HelpWindow* openHelp()
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* help = qobject_cast<HelpWindow*>(window); help && help->isVisible())
                return help;
        }
        return nullptr;
    }
};

void expectEveryButtonExplained(DeskRig& rig, const QWidget& window)
{
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (button->objectName().startsWith("cmd") && button->objectName() != "cmdDefault") {
            EXPECT_TRUE(
                rig.place(*button).endsWith("#" + window.objectName() + "." + button->objectName()))
                << qPrintable(window.objectName() + "." + button->objectName());
        }
    }
}

} // namespace

TEST(HelpDeskTest, EveryButtonHasATopic)
{
    DeskRig rig;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    expectEveryButtonExplained(rig, *rig.window->findChild<QWidget*>("frmMain"));
    expectEveryButtonExplained(rig, ReportSetup(rig.state, {}));
    expectEveryButtonExplained(rig, StandbyWindow({}, pdf));
    expectEveryButtonExplained(rig, AboutBox(rig.state));
    expectEveryButtonExplained(rig, SystemInfoWindow({}));
}

TEST(HelpDeskTest, FindsTheNearestThingThatTheHelpKnows)
{
    DeskRig rig;
    QWidget targetBoard;
    targetBoard.setObjectName("frmTargetBoard");
    QLineEdit field(&targetBoard);
    field.setObjectName("txtSetup(0)"); // the set-up screen has one of that name too
    EXPECT_EQ(rig.place(field), "target-board.html#frmTargetBoard");
    targetBoard.setObjectName("frmSetup");
    EXPECT_EQ(rig.place(field), "setup-parameters.html#frmSetup.txtSetup");
    field.setProperty("helpTopic", "mnuFilePrint");
    EXPECT_EQ(rig.place(field), "reports.html#mnuFilePrint");

    QMessageBox box;
    box.setWindowTitle("Data Upload");
    EXPECT_EQ(rig.place(box), "messages.html#box-data-upload");
    EXPECT_EQ(rig.place(QWidget()), "");
}

TEST(HelpDeskTest, F1OpensTheTopicOfTheScreenInFront)
{
    DeskRig rig;
    QTest::keyClick(rig.window->findChild<QWidget*>("txtMessageDisplay"), Qt::Key_F1);
    ASSERT_NE(rig.openHelp(), nullptr);
    EXPECT_TRUE(rig.person.boxes.empty());
    rig.openHelp()->close();
    QTest::keyClick(rig.window.get(), Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_EQ(rig.openHelp(), nullptr);
}

TEST(HelpDeskTest, OverAModalDialogHelpBelongsToIt)
{
    DeskRig rig;
    {
        ReportSetup dialog(rig.state, {});
        dialog.setModal(true);
        dialog.show();
        rig.desk.showTopicOf(&dialog);
        auto* help = dialog.findChild<HelpWindow*>();
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(help->currentTopic().fragment(), "frmReportSetup");
    }
    EXPECT_EQ(rig.openHelp(), nullptr);
}

TEST(HelpDeskTest, AMissingHelpFileIsSaidUntilItIsThere)
{
    DeskRig rig;
    const QString there = rig.state.helpFile;
    rig.state.helpFile = rig.folder.filePath("Help/TMBRX.hlp");
    rig.desk.showTopics();
    ASSERT_EQ(rig.person.boxes.size(), 1u);
    EXPECT_EQ(rig.person.boxes[0].title, "Help Topics");
    EXPECT_EQ(rig.openHelp(), nullptr);
    rig.state.helpFile = there;
    rig.desk.showTopics();
    ASSERT_NE(rig.openHelp(), nullptr);
    EXPECT_EQ(rig.openHelp()->currentTopic().fileName(), "TMBRX.hlp");
}

TEST(HelpWindowTest, SearchBackAndForward)
{
    DeskRig rig;
    rig.desk.showTopics();
    HelpWindow& help = *rig.openHelp();
    const auto action = [&](const char* name) { return help.findChild<QAction*>(name); };
    EXPECT_FALSE(action("cmdHelpBack")->isEnabled());

    help.findChild<QLineEdit*>("txtHelpSearch")->setText("latency");
    auto* hits = help.findChild<QListWidget*>("lstHelpHits");
    ASSERT_EQ(hits->count(), 1);
    hits->setCurrentRow(0);
    EXPECT_EQ(help.currentTopic().fileName(), "troubleshooting.html");
    action("cmdHelpBack")->trigger();
    EXPECT_EQ(help.currentTopic().fileName(), "TMBRX.hlp");
    action("cmdHelpForward")->trigger();
    EXPECT_EQ(help.currentTopic().fileName(), "troubleshooting.html");

    help.findChild<QLineEdit*>("txtHelpSearch")->setText("xyzzy");
    EXPECT_EQ(hits->item(0)->text(), "No topic holds these words.");
    for (const QAction* item : help.findChild<QToolBar*>()->actions())
        EXPECT_FALSE(
            HelpBook(rig.state.helpFile).topicOf("frmHelp." + item->objectName()).isEmpty());
}
