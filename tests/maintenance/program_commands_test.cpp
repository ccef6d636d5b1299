#include "maintenance/program_commands.h"

#include "maintenance/program_download_window.h"
#include "tests/support/maintenance_rig.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QTimerEvent>

#include <tuple>

using namespace tambrix;

namespace {

struct CommandRig : MaintenanceRig
{
    QWidget mainWindow;
    QTimer poll;
    ProgramCommands commands{state, mainWindow, poll};
    bool pollStopped = false; ///< while the confirmation of the transfer was shown

    CommandRig()
    {
        poll.start(500);
        person.whileShown = [this] { pollStopped = pollStopped || !poll.isActive(); };
    }

    bool boardHoldsProgram()
    {
        const auto expected = SampleProgram().bytes();
        for (std::uint16_t i = 0; i < 40; ++i) {
            if (board.program().bytes.byte(i) != expected[i])
                return false;
        }
        return board.peek(61433) == 4;
    }
};

} // namespace

TEST(DownloadProgram, LoadsThePickedProgramOnLine)
{
    CommandRig rig;
    rig.goOnline();
    rig.person.chosenFiles = {rig.writeProgram()};
    rig.person.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
    QStringList progress;
    rig.line.setTap([&](const WireByte&) {
        auto* window = qobject_cast<ProgramDownloadWindow*>(QApplication::activeModalWidget());
        if (window == nullptr)
            return;
        window->reject(); // refused
        auto& timer = controlNamed<QTimer>(*window, "Timer1");
        QTimerEvent tick(timer.timerId()); // by hand: no real time passes here
        QCoreApplication::sendEvent(&timer, &tick);
        progress += controlNamed<QLabel>(*window, "lblWaitDisplay").text();
    });
    rig.commands.downloadProgram();
    EXPECT_TRUE(progress.contains("Writing to Program Address: 0010H"));
    EXPECT_EQ(progress.value(progress.size() - 1), "Writing Program Ident ... ");
    ASSERT_EQ(rig.person.openQuestions.size(), 1u);
    EXPECT_EQ(QDir(rig.person.openQuestions[0].folder), QDir(rig.folder.path()));
    ASSERT_EQ(rig.person.boxes.size(), 3u);
    EXPECT_TRUE(rig.person.boxes[0].text.starts_with("You are about to download \"DUCTCTR2\""));
    EXPECT_EQ(rig.lastText(), "Program Download Complete!");
    EXPECT_TRUE(rig.boardHoldsProgram());
    EXPECT_TRUE(rig.pollStopped);
    EXPECT_TRUE(rig.poll.isActive());
    EXPECT_TRUE(rig.state.gLink.OnlineMode);
    EXPECT_EQ(rig.state.gProgramFilePath, rig.folder.filePath("ink.fnx"));
}

TEST(DownloadProgram, EveryRefusalEndsIt)
{
    constexpr auto kYes = BoxAnswer::Yes;
    constexpr auto kCancel = BoxAnswer::Cancel;
    // the boxes; online and powered; answers, then No and Cancel; type of the program, 0: none
    using Refusal = std::tuple<std::string, bool, bool, std::deque<BoxAnswer>, char>;
    const std::string offline = "Program Offline;";
    const std::string question = "Program Download;";
    const std::string fault = "WARNING - Communication Error!;";
    const Refusal refusals[] = {
        {offline, false, true, {}, 'D'},
        {"", true, true, {}, 0},
        {question, true, true, {}, 'D'},
        {offline + question, false, true, {kYes}, 'D'},
        {"PLS Program Download;", true, true, {kYes}, 'E'},
        {question + "Program Download - [DUCTCTR2];" + question, true, true, {kYes}, 'D'},
        // no board: goes on to the transfer, which refuses
        {offline + fault + question + question, false, false, {kYes, kCancel, kYes}, 'D'}};
    for (const auto& [expected, online, powered, answers, boardType] : refusals) {
        SCOPED_TRACE(expected);
        CommandRig rig;
        if (online)
            rig.goOnline();
        rig.board.setPowered(powered);
        if (boardType != 0)
            rig.person.chosenFiles = {rig.writeProgram(boardType)};
        rig.person.answers = answers;
        rig.commands.downloadProgram();
        std::string titles;
        for (const OperatorBox& box : rig.person.boxes)
            titles += box.title + ";";
        EXPECT_EQ(titles, expected);
        EXPECT_EQ(rig.board.program().recordsTaken, 0u);
        EXPECT_TRUE(rig.poll.isActive());
    }
}

TEST(TargetBoardCommand, OpensTheWindowForThePickedFileAlsoOffLine)
{
    CommandRig rig;
    rig.person.chosenFiles = {rig.writeProgram()};
    QTimer::singleShot(0, [] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(window->objectName(), "frmTargetBoard");
        EXPECT_EQ(controlNamed<QLabel>(*window, "lblRevIdentOnDisk(0)").text(), "DUCTCTR2");
        controlNamed<QPushButton>(*window, "cmdOk").click();
    });
    rig.commands.showTargetBoard();
    EXPECT_TRUE(rig.person.boxes.empty());
    EXPECT_EQ(rig.state.gProgramFilePath, rig.folder.filePath("ink.fnx"));
    rig.commands.showTargetBoard(); // cancelled: nothing happens, the folder is remembered
    EXPECT_EQ(QDir(rig.person.openQuestions[1].folder), QDir(rig.folder.path()));
}
