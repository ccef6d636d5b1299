#include "help/about_box.h"
#include "help/help_desk.h"
#include "help/system_info_window.h"
#include "maintenance/comm_port_dialog.h"
#include "maintenance/program_download_window.h"
#include "maintenance/target_board_window.h"
#include "reports/report_setup.h"
#include "reports/standby_window.h"
#include "screens/color_control_screen.h"
#include "screens/io_status_screen.h"
#include "screens/setup_screen.h"
#include "screens/shift_data_screen.h"
#include "shell/label_range_dialog.h"
#include "shell/processing_dialog.h"
#include "tests/support/window_rig.h"

#include <QApplication>
#include <QBuffer>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPdfWriter>
#include <QPushButton>
#include <QTextBrowser>
#include <QToolBar>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

struct DeskRig : WindowRig
{
    HelpDesk desk{state};

    DeskRig() { state.helpFile = QStringLiteral(TAMBRIX_SOURCE_FOLDER "/texts/Help/TMBRX.hlp"); }

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

/// A person may press F1 on any of them. Where the help goes must be the button's own place.
void expectEveryButtonExplained(DeskRig& rig, const QWidget& window)
{
    EXPECT_NE(rig.place(window), "") << qPrintable(window.objectName());
    for (const QPushButton* button : window.findChildren<QPushButton*>()) {
        const QString name = button->objectName();
        if (name != "cmdDefault") { // never seen: it takes the focus of a screen without a field
            EXPECT_TRUE(rig.place(*button).endsWith("#" + window.objectName() + "." + name))
                << qPrintable(window.objectName() + "." + name);
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
    expectEveryButtonExplained(rig, SetupScreen(rig.state));
    expectEveryButtonExplained(rig, ShiftDataScreen(rig.state));
    expectEveryButtonExplained(rig, ColorControlScreen(rig.state));
    expectEveryButtonExplained(rig, IoStatusScreen(rig.state));
    expectEveryButtonExplained(rig, LabelRangeDialog());
    expectEveryButtonExplained(rig, ProcessingDialog(rig.state, {}));
    expectEveryButtonExplained(rig, CommPortDialog(rig.state));
    expectEveryButtonExplained(rig, TargetBoardWindow(rig.state));
    expectEveryButtonExplained(rig, ProgramDownloadWindow(rig.state));
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

TEST(HelpDeskTest, F1OpensTheTopicOfWhatIsInFront)
{
    DeskRig rig;
    QTest::keyClick(rig.window->findChild<QWidget*>("txtMessageDisplay"), Qt::Key_F1);
    ASSERT_NE(rig.openHelp(), nullptr);
    EXPECT_TRUE(rig.person.boxes.empty());
    rig.openHelp()->close();
    QTest::keyClick(rig.window.get(), Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_EQ(rig.openHelp(), nullptr);
    { // over a modal dialog help belongs to it
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
    const auto windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::ranges::any_of(
        windows, [](QWidget* window) { return window->windowTitle() == "Help Topics"; }));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr); // a transfer would stand still under it
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

    auto* hits = help.findChild<QListWidget*>("lstHelpHits");
    help.findChild<QLineEdit*>("txtHelpSearch")->setText("shift data");
    ASSERT_GT(hits->count(), 1);
    EXPECT_EQ(hits->item(0)->text(), "Shift Data"); // titles come first
    help.findChild<QLineEdit*>("txtHelpSearch")->setText("  LATENCY timer ");
    ASSERT_EQ(hits->count(), 1);
    hits->setCurrentRow(0);
    EXPECT_EQ(help.currentTopic().fileName(), "troubleshooting.html");
    action("cmdHelpBack")->trigger();
    EXPECT_EQ(help.currentTopic().fileName(), "TMBRX.hlp");
    action("cmdHelpForward")->trigger();
    EXPECT_EQ(help.currentTopic().fileName(), "troubleshooting.html");

    auto* page = help.findChild<QTextBrowser*>("txtHelp");
    for (const char* outside : {"/dev/zero", "../../README.md", "http://127.0.0.1/a.png"})
        EXPECT_TRUE(page->loadResource(QTextDocument::HtmlResource, QUrl(outside)).isNull());

    help.findChild<QLineEdit*>("txtHelpSearch")->setText("latency xyzzy");
    EXPECT_EQ(hits->item(0)->text(), "No topic holds these words.");
    for (const QAction* item : help.findChild<QToolBar*>()->actions())
        EXPECT_FALSE(
            HelpBook(rig.state.helpFile).topicOf("frmHelp." + item->objectName()).isEmpty());
}
