#include "maintenance/target_board_window.h"

#include "maintenance/board_codes.h"
#include "shell/numeric_entry_field.h"
#include "tests/support/maintenance_rig.h"

#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <array>
#include <memory>

using namespace tambrix;

namespace {

constexpr std::array<std::uint16_t, 4> kFaultRegisters = {8176, 8177, 8178, 8179};

const QDateTime kNow(QDate(2005, 3, 9), QTime(6, 7, 21));

struct BoardRig : MaintenanceRig
{
    QDateTime now = kNow;
    std::unique_ptr<TargetBoardWindow> window;

    void show(char boardType = 'D')
    {
        write("Support/FaultErrCodes.txt", "1F,CO-CPU\r\n42,Cable\r\n45,User\r\n00,Nothing\r\n");
        write("Support/CommErrCodes.txt", "12,Network\r\n42,Broken\r\n");
        window = std::make_unique<TargetBoardWindow>(state, nullptr, [this] { return now; });
        window->InitializeForm(writeProgram(boardType));
        window->show();
    }

    void showOnline(char boardType = 'D')
    {
        goOnline();
        show(boardType);
        EXPECT_TRUE(firstPassEnds());
    }

    /// The revision is the last thing that the first pass reads.
    bool firstPassEnds()
    {
        return eventually(
            [this] { return label("lblRevIdentInPLC(1)").text() == "3" && field(0) == "01"; });
    }

    QLabel& label(const char* name) { return controlOf<QLabel>(*window, name); }
    QPushButton& button(const char* name) { return controlOf<QPushButton>(*window, name); }
    QString box(const char* name) { return controlOf<QPlainTextEdit>(*window, name).toPlainText(); }
    NumericEntryField& entry(int index)
    {
        return controlOf<NumericEntryField>(*window,
                                            qPrintable(QStringLiteral("txtSetup(%1)").arg(index)));
    }
    QString field(int index) { return entry(index).text(); }
    bool shown(const char* name) { return label(name).isVisibleTo(label(name).parentWidget()); }
};

struct FaultCase
{
    const char* name;
    int current, last, error, lastError;
    bool resettable;
};

class Faults : public testing::TestWithParam<FaultCase>
{
};

} // namespace

TEST(TargetBoardWindow, HasItsTabsAndButtons)
{
    BoardRig rig;
    rig.show();
    EXPECT_EQ(rig.window->windowTitle(), "Target Board Interface");
    auto& tabs = controlOf<QTabWidget>(*rig.window, "tabTargetBoard");
    const QStringList captions = {"Set Network Address", "Fault Codes / Status",
                                  "Program Ident/Revision", "Set Time && Date"};
    ASSERT_EQ(tabs.count(), captions.size());
    for (int i = 0; i < tabs.count(); ++i) {
        EXPECT_EQ(tabs.tabText(i), captions[i]);
        EXPECT_EQ(tabs.widget(i)->objectName(), QStringLiteral("fraTargetBoard(%1)").arg(i));
        tabs.setCurrentIndex(i);
        for (int other = 0; other < tabs.count(); ++other)
            EXPECT_EQ(tabs.widget(other)->isVisible(), other == i);
    }
    EXPECT_EQ(rig.button("cmdGoOnline").text(), "&Go Online");
    EXPECT_EQ(rig.button("cmdResetFaults").text(), "&Reset Faults");
    rig.button("cmdOk").click();
    EXPECT_FALSE(rig.window->isVisible());
    const std::size_t bytes = rig.line.exchanges();
    PressRig::turns(50);
    EXPECT_EQ(rig.line.exchanges(), bytes);
}

TEST_P(Faults, ShowWithTextAndCorrectiveAction)
{
    const FaultCase& fault = GetParam();
    BoardRig rig;
    rig.board.poke(8176, static_cast<std::uint8_t>(fault.current));
    rig.board.poke(8177, static_cast<std::uint8_t>(fault.last));
    rig.board.poke(8179, static_cast<std::uint8_t>(fault.error));
    rig.board.poke(8178, static_cast<std::uint8_t>(fault.lastError));
    rig.showOnline();
    const auto caption = [](const char* text, int code) { return text + codeText(code) + "H"; };
    EXPECT_EQ(rig.label("lblTargetBoard(0)").text(),
              caption("Current Fault: Code = ", fault.current));
    EXPECT_EQ(rig.label("lblTargetBoard(1)").text(), caption("Last Fault: Code = ", fault.last));
    EXPECT_EQ(rig.label("lblTargetBoard(4)").text(),
              caption("Current Comm Error: Code = ", fault.error));
    EXPECT_EQ(rig.label("lblTargetBoard(5)").text(),
              caption("Last Comm Error: Code = ", fault.lastError));
    EXPECT_EQ(rig.box("txtTargetBoard(3)"), correctiveAction(fault.last));
    EXPECT_EQ(rig.button("cmdResetFaults").isEnabled(), fault.resettable);
}

INSTANTIATE_TEST_SUITE_P(Table, Faults,
                         testing::Values(FaultCase{"None", 0, 0, 0, 0, false},
                                         FaultCase{"CoCpu", 0x1F, 0x3F, 0, 0x12, true},
                                         FaultCase{"FirstOfTheBoard", 0, 0x40, 0, 0, true},
                                         FaultCase{"Cable", 0x42, 0x42, 0x42, 0x42, true},
                                         FaultCase{"UserProgram", 0x45, 0x45, 0, 0, true},
                                         FaultCase{"InvalidProgram", 0x5C, 0x5D, 0, 0, true},
                                         FaultCase{"LastOfTheBoard", 0, 0x7A, 0, 0, true},
                                         FaultCase{"BeyondTheBoard", 0, 0x7B, 0, 0, true},
                                         FaultCase{"LettersDoNotEnableTheReset", 0x0A, 0xA5, 0xFF,
                                                   0x0C, false},
                                         FaultCase{"AnErrorAloneDoes", 0, 0, 1, 0, true}),
                         [](const auto& row) { return row.param.name; });

TEST(TargetBoardWindow, FaultTextsComeFromTheFilesAndGoWithTheFault)
{
    BoardRig rig;
    rig.board.poke(8176, 0x1F);
    rig.showOnline();
    EXPECT_EQ(rig.box("txtTargetBoard(0)"), "CO-CPU");
    EXPECT_EQ(rig.box("txtTargetBoard(1)"), "User");
    EXPECT_EQ(rig.box("txtTargetBoard(5)"), "Network");
}

TEST(TargetBoardWindow, ComparesTheProgramInTheBoardWithTheOneOnDisk)
{
    BoardRig rig;
    rig.showOnline();
    EXPECT_EQ(rig.label("lblRevIdentInPLC(0)").text(), "DUCTCTRL");
    EXPECT_EQ(rig.label("lblRevIdentInPLC(1)").text(), "3");
    EXPECT_EQ(rig.label("lblRevIdentInPLC(2)").text(), "90");
    EXPECT_EQ(rig.label("lblRevIdentOnDisk(0)").text(), "DUCTCTR2");
    EXPECT_EQ(rig.label("lblRevIdentOnDisk(1)").text(), "4");
    EXPECT_EQ(rig.label("lblRevIdentOnDisk(3)").text(), "Q900(PLC)");
    const QFileInfo image(rig.folder.filePath("ink.hex"));
    EXPECT_EQ(rig.label("lblRevIdentOnDisk(4)").text(),
              QLocale().toString(image.lastModified(), QLocale::ShortFormat));
}

TEST(TargetBoardWindow, MissingCompanionsShowAsDashes)
{
    BoardRig rig;
    TargetBoardWindow window(rig.state);
    window.InitializeForm(rig.write("alone.fnx", "A"));
    const char* expected[] = {"-", "0", "0", "H810", "-"};
    for (int i = 0; i < 5; ++i) {
        const QString name = QStringLiteral("lblRevIdentOnDisk(%1)").arg(i);
        EXPECT_EQ(controlOf<QLabel>(window, qPrintable(name)).text(), expected[i]);
    }
    window.InitializeForm(rig.folder.filePath("missing.fnx"));
    EXPECT_EQ(controlOf<QLabel>(window, "lblRevIdentOnDisk(3)").text(), "Q900(PLC)");
}

TEST(TargetBoardWindow, ShowsWhatTheBoardTypeHas)
{
    for (const char type : {'2', '6', 'A', 'D'}) {
        SCOPED_TRACE(type);
        BoardRig rig;
        rig.board.poke(8175, 11);
        rig.showOnline(type);
        const bool clock = type == '6' || type == 'A';
        EXPECT_EQ(rig.shown("lblTargetBoard(2)"), type == '2');
        EXPECT_EQ(rig.shown("lblSetup(1)"), type == 'A');
        EXPECT_EQ(rig.shown("lblSetup(0)"), true);
        EXPECT_EQ(rig.button("cmdSetToCurrTime").isEnabled(), clock);
        EXPECT_EQ(rig.button("cmdSetToCurrDate").isEnabled(), clock);
        ASSERT_TRUE(rig.eventually([&] { return !clock || rig.field(7) == "24"; }));
        EXPECT_EQ(rig.field(7), clock ? "24" : "-");
        EXPECT_EQ(rig.entry(2).isEnabled(), clock);
        EXPECT_EQ(rig.field(1), type == 'A' ? "02" : "");
        if (type != '2')
            continue;
        EXPECT_EQ(rig.label("lblTargetBoard(2)").text(), "CO-CPU Slot: 11");
    }
}

TEST(TargetBoardWindow, OffLineItSaysSoAndGoesOnLine)
{
    BoardRig rig;
    rig.show();
    EXPECT_TRUE(rig.eventually(
        [&] { return rig.box("txtTargetBoard(0)") == "Cannot Communicate with Target Board."; }));
    EXPECT_TRUE(rig.button("cmdGoOnline").isVisible());
    EXPECT_FALSE(rig.button("cmdResetFaults").isEnabled());
    EXPECT_FALSE(rig.entry(0).isEnabled());
    rig.button("cmdGoOnline").click();
    EXPECT_TRUE(rig.state.gLink.OnlineMode);
    EXPECT_TRUE(rig.firstPassEnds());
    EXPECT_FALSE(rig.button("cmdGoOnline").isVisible());
    EXPECT_TRUE(rig.entry(0).isEnabled());
    EXPECT_EQ(rig.box("txtTargetBoard(0)"), "Nothing");
}

TEST(TargetBoardWindow, ABoardThatDoesNotAnswerShowsAsTheCableCode)
{
    BoardRig rig;
    rig.goOnline();
    rig.line.unplug();
    rig.show();
    EXPECT_TRUE(rig.eventually([&] { return rig.button("cmdGoOnline").isVisible(); }));
    EXPECT_FALSE(rig.state.gLink.OnlineMode);
    EXPECT_EQ(rig.person.boxes.size(), 1u); // the link's own box, once
    for (const char* name : {"lblTargetBoard(0)", "lblTargetBoard(1)", "lblTargetBoard(4)"})
        EXPECT_TRUE(rig.label(name).text().endsWith("Code = 42H")) << name;
    EXPECT_EQ(rig.box("txtTargetBoard(3)"), correctiveAction(0x42));
    EXPECT_EQ(rig.box("txtTargetBoard(4)"), "Broken");
    EXPECT_EQ(rig.box("txtTargetBoard(0)"), "Cannot Communicate with Target Board.");
}

TEST(TargetBoardWindow, ResetClearsTheFourRegistersAndReadsAfresh)
{
    BoardRig rig;
    for (const std::uint16_t reg : kFaultRegisters)
        rig.board.poke(reg, 0x45);
    rig.showOnline();
    rig.person.answers = {BoxAnswer::No, BoxAnswer::Cancel, BoxAnswer::Yes};
    auto& reset = rig.button("cmdResetFaults");
    for (int refusal = 0; refusal < 2; ++refusal) {
        reset.click();
        EXPECT_EQ(rig.board.peek(8176), 0x45);
        EXPECT_TRUE(reset.isEnabled());
    }
    const MessageBox& box = rig.person.boxes.front();
    EXPECT_EQ(box.icon, BoxIcon::Critical);
    EXPECT_EQ(box.buttons, BoxButtons::YesNoCancel);
    EXPECT_EQ(box.title, "WARNING - Fault Code Reset!");
    EXPECT_EQ(box.text, "Target Board will be reinitialized.\r\nDo you wish to continue?");
    reset.click();
    for (const std::uint16_t reg : kFaultRegisters)
        EXPECT_EQ(rig.board.peek(reg), 0);
    EXPECT_TRUE(rig.eventually(
        [&] { return rig.label("lblTargetBoard(0)").text() == "Current Fault: Code = 00H"; }));
    EXPECT_TRUE(rig.eventually([&] { return rig.box("txtTargetBoard(3)") == "None"; }));
    EXPECT_FALSE(reset.isEnabled());
}

// Every fault at every byte of a reset: either the registers are clear or the window says why.
TEST(TargetBoardWindow, AResetOnADisturbedLineIsDoneOrShown)
{
    using Kind = LineFault::Kind;
    constexpr std::size_t kBytes = 2 + 4 * 3; // write mode, four frames
    for (const Kind kind : {Kind::LoseRequest, Kind::LoseReply, Kind::ChangeReply, Kind::Unplug}) {
        for (std::size_t k = 0; k < kBytes; ++k) {
            SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " at " + std::to_string(k));
            BoardRig rig;
            for (const std::uint16_t reg : kFaultRegisters)
                rig.board.poke(reg, 0x45);
            rig.showOnline();
            rig.person.answers = {BoxAnswer::Yes};
            rig.line.clearFaults();
            rig.line.setFault(k, {kind, 1, {}});
            rig.button("cmdResetFaults").click();
            if (kind == Kind::Unplug) {
                EXPECT_TRUE(rig.eventually([&] { return rig.button("cmdGoOnline").isVisible(); }));
                EXPECT_EQ(rig.person.boxes.size(), 2u);
            } else {
                for (const std::uint16_t reg : kFaultRegisters)
                    EXPECT_EQ(rig.board.peek(reg), 0);
            }
        }
    }
}

TEST(TargetBoardWindow, SetsTheBoardsClockFromThePcs)
{
    BoardRig rig;
    rig.showOnline('A');
    rig.button("cmdSetToCurrTime").click();
    EXPECT_EQ(rig.board.peek(43012), 6);
    EXPECT_EQ(rig.board.peek(43010), 7);
    EXPECT_EQ(rig.board.peek(43008), 21);
    rig.button("cmdSetToCurrDate").click();
    EXPECT_EQ(rig.board.peek(43016), 3);
    EXPECT_EQ(rig.board.peek(43015), 9);
    EXPECT_EQ(rig.board.peek(43017), 5);
    EXPECT_EQ(rig.label("lblCurrTime").text(), "06 : 07 : 21");
    EXPECT_EQ(rig.label("lblCurrDate").text(), "03 - 09 - 2005");
    rig.now = kNow.addSecs(1);
    EXPECT_TRUE(rig.eventually([&] { return rig.label("lblCurrTime").text().endsWith("22"); }));
}

TEST(TargetBoardWindow, AnEntryIsWrittenAtOnceAndLeftAloneWhileTyped)
{
    BoardRig rig;
    rig.showOnline();
    NumericEntryField& address = rig.entry(0);
    address.setFocus();
    PressRig::turns(5);
    QTest::keyClicks(&address, "17");
    rig.board.poke(8180, 5);
    PressRig::turns(100);
    EXPECT_EQ(address.text(), "17"); // the refresh keeps off
    QTest::keyClick(&address, Qt::Key_Return);
    EXPECT_EQ(rig.board.peek(8180), 17);
    EXPECT_TRUE(rig.person.boxes.empty());
}

TEST(TargetBoardWindow, AnEntryBeyondItsLimitsIsRefused)
{
    BoardRig rig;
    rig.showOnline();
    NumericEntryField& address = rig.entry(0);
    address.setFocus();
    PressRig::turns(5);
    QTest::keyClicks(&address, "33");
    QTest::keyClick(&address, Qt::Key_Return);
    EXPECT_TRUE(rig.eventually([&] { return !rig.person.boxes.empty(); }));
    EXPECT_EQ(rig.lastTitle(), "Set-upCurrent Network Address 1:");
    EXPECT_EQ(rig.lastText(), "Only a Number Between 1 and 32 can be Entered");
    EXPECT_EQ(rig.board.peek(8180), 1);
    address.stepBy(1);
    EXPECT_EQ(rig.board.peek(8180), 2);
}

TEST(TargetBoardWindow, ItsLoopStandsStillUnderAModalWindow)
{
    BoardRig rig;
    rig.showOnline();
    QDialog above(rig.window.get());
    above.setModal(true);
    above.show();
    PressRig::turns(5);
    const std::size_t bytes = rig.line.exchanges();
    PressRig::turns(100);
    EXPECT_EQ(rig.line.exchanges(), bytes);
    above.close();
    EXPECT_TRUE(rig.eventually([&] { return rig.line.exchanges() > bytes; }));
}
