#include "maintenance/target_board_window.h"

#include "controls/named_controls.h"
#include "controls/numeric_entry_field.h"
#include "data/board_codes.h"
#include "tests/support/maintenance_rig.h"

#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <array>
#include <memory>
#include <tuple>

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
        return eventually([this] { return inBoard(1) == "3" && field(0) == "01"; });
    }

    QLabel& label(const char* name) { return controlNamed<QLabel>(*window, name); }
    QPushButton& button(const char* name) { return controlNamed<QPushButton>(*window, name); }
    template <typename Control> Control& nth(const char* name, int index)
    {
        return controlNamed<Control>(*window, qPrintable(arrayName(name, index)));
    }
    QString code(int index) { return nth<QLabel>("lblTargetBoard", index).text(); }
    QString text(int index) { return nth<QPlainTextEdit>("txtTargetBoard", index).toPlainText(); }
    QString inBoard(int row) { return nth<QLabel>("lblRevIdentInPLC", row).text(); }
    std::string onDisk()
    {
        QStringList rows;
        for (int row = 0; row < 5; ++row)
            rows += nth<QLabel>("lblRevIdentOnDisk", row).text();
        return rows.join(u' ').toStdString();
    }
    NumericEntryField& entry(int index) { return nth<NumericEntryField>("txtSetup", index); }
    QString field(int index) { return entry(index).text(); }
    bool shown(const char* name) { return label(name).isVisibleTo(label(name).parentWidget()); }
};

} // namespace

TEST(TargetBoardWindow, ShowsFaultsWithTextAndCorrectiveAction)
{
    // name; current fault, last fault, current error, last error; whether they can be reset
    const std::tuple<const char*, int, int, int, int, bool> cases[] = {
        {"none", 0, 0, 0, 0, false},
        {"all four", 0x1F, 0x45, 0x42, 0x12, true},
        {"letters do not enable the reset", 0x0A, 0xA5, 0xFF, 0x0C, false},
        {"an error alone does", 0, 0, 1, 0, true}};
    for (const auto& [name, current, last, error, lastError, resettable] : cases) {
        SCOPED_TRACE(name);
        BoardRig rig;
        const std::array codes = {current, last, lastError, error};
        for (std::size_t i = 0; i < codes.size(); ++i)
            rig.board.poke(kFaultRegisters[i], static_cast<std::uint8_t>(codes[i]));
        rig.showOnline();
        const QString captions = rig.code(0) + rig.code(1) + rig.code(4) + rig.code(5);
        EXPECT_EQ(
            captions,
            QStringLiteral("Current Fault: Code = %1HLast Fault: Code = %2H"
                           "Current Comm Error: Code = %3HLast Comm Error: Code = %4H")
                .arg(codeText(current), codeText(last), codeText(error), codeText(lastError)));
        EXPECT_EQ(rig.text(3), correctiveAction(last));
        EXPECT_EQ(rig.button("cmdResetFaults").isEnabled(), resettable);
        if (current == 0x1F) {
            const QString texts = rig.text(0) + rig.text(1) + rig.text(4) + rig.text(5);
            EXPECT_EQ(texts, "CO-CPUUserBrokenNetwork");
        }
    }
}

TEST(TargetBoardWindow, ComparesTheProgramInTheBoardWithTheOneOnDisk)
{
    BoardRig rig;
    rig.showOnline();
    EXPECT_EQ(rig.inBoard(0), "DUCTCTRL");
    EXPECT_EQ(rig.inBoard(1), "3");
    EXPECT_EQ(rig.inBoard(2), "90");
    const QDateTime made = QFileInfo(rig.folder.filePath("ink.hex")).lastModified();
    const QString date = QLocale().toString(made, QLocale::ShortFormat);
    EXPECT_EQ(rig.onDisk(), "DUCTCTR2 4 12 Q900(PLC) " + date.toStdString());
    rig.window->InitializeForm(rig.write("alone.fnx", "A")); // without its companions
    EXPECT_EQ(rig.onDisk(), "- 0 0 H810 -");
    rig.window->InitializeForm(rig.folder.filePath("missing.fnx"));
    EXPECT_EQ(rig.onDisk(), "- 0 0 Q900(PLC) -");
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
        EXPECT_EQ(rig.button("cmdSetToCurrTime").isEnabled(), clock);
        EXPECT_EQ(rig.button("cmdSetToCurrDate").isEnabled(), clock);
        ASSERT_TRUE(rig.eventually([&] { return !clock || rig.field(7) == "24"; }));
        EXPECT_EQ(rig.field(7), clock ? "24" : "-");
        EXPECT_EQ(rig.entry(2).isEnabled(), clock);
        EXPECT_EQ(rig.field(1), type == 'A' ? "02" : "");
        if (type == '2') {
            EXPECT_EQ(rig.code(2), "CO-CPU Slot: 11");
        }
    }
}

TEST(TargetBoardWindow, OffLineItSaysSoKeepsItsLimitsAndGoesOnLine)
{
    BoardRig rig;
    rig.show();
    EXPECT_TRUE(
        rig.eventually([&] { return rig.text(0) == "Cannot Communicate with Target Board."; }));
    EXPECT_TRUE(rig.button("cmdGoOnline").isVisible());
    EXPECT_FALSE(rig.button("cmdResetFaults").isEnabled());
    EXPECT_FALSE(rig.entry(0).isEnabled());
    QStringList limits;
    for (int i = 0; i < 8; ++i)
        limits += QStringLiteral("%1-%2").arg(rig.entry(i).minimum()).arg(rig.entry(i).maximum());
    EXPECT_EQ(limits.join(u' '), "1-32 1-32 0-23 0-59 0-59 1-12 1-31 0-99");
    rig.button("cmdGoOnline").click();
    EXPECT_TRUE(rig.state.gLink.OnlineMode);
    EXPECT_TRUE(rig.firstPassEnds());
    EXPECT_FALSE(rig.button("cmdGoOnline").isVisible());
    EXPECT_TRUE(rig.entry(0).isEnabled());
    EXPECT_EQ(rig.text(0), "Nothing");
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
    for (const int index : {0, 1, 4})
        EXPECT_TRUE(rig.code(index).endsWith("Code = 42H")) << index;
    EXPECT_EQ(rig.text(3), correctiveAction(0x42));
    EXPECT_EQ(rig.text(4), "Broken");
    EXPECT_EQ(rig.text(0), "Cannot Communicate with Target Board.");
}

TEST(TargetBoardWindow, ResetClearsTheFourRegistersAndReadsAfresh)
{
    BoardRig rig;
    for (const std::uint16_t reg : kFaultRegisters)
        rig.board.poke(reg, 0x45);
    rig.goOnline();
    rig.line.clearFaults();
    rig.line.setFault(4, {LineFault::Kind::LoseReply, 1, {}}); // in the first code's frames
    rig.show();
    EXPECT_TRUE(rig.firstPassEnds());
    EXPECT_EQ(rig.code(0), "Current Fault: Code = 45H"); // it has been read again
    rig.person.answers = {BoxAnswer::No, BoxAnswer::Cancel, BoxAnswer::Yes};
    auto& reset = rig.button("cmdResetFaults");
    for (int refusal = 0; refusal < 2; ++refusal) {
        reset.click();
        EXPECT_EQ(rig.board.peek(8176), 0x45);
        EXPECT_TRUE(reset.isEnabled());
    }
    const OperatorBox& box = rig.person.boxes.front();
    EXPECT_EQ(box.buttons, BoxButtons::YesNoCancel);
    EXPECT_EQ(box.title, "WARNING - Fault Code Reset!");
    reset.click();
    for (const std::uint16_t reg : kFaultRegisters)
        EXPECT_EQ(rig.board.peek(reg), 0);
    EXPECT_TRUE(rig.eventually([&] { return rig.code(0) == "Current Fault: Code = 00H"; }));
    EXPECT_TRUE(rig.eventually([&] { return rig.text(3) == "None"; }));
    EXPECT_FALSE(reset.isEnabled());
}

TEST(TargetBoardWindow, SetsTheBoardsClockFromThePcs)
{
    BoardRig rig;
    rig.showOnline('A');
    const auto holds = [&rig](std::initializer_list<int> registers) {
        QStringList values;
        for (const int reg : registers)
            values += QString::number(rig.board.peek(static_cast<std::uint16_t>(reg)));
        return values.join(u' ');
    };
    rig.button("cmdSetToCurrTime").click();
    EXPECT_EQ(holds({43012, 43010, 43008}), "6 7 21");
    rig.button("cmdSetToCurrDate").click();
    EXPECT_EQ(holds({43016, 43015, 43017}), "3 9 5");
    EXPECT_EQ(rig.label("lblCurrTime").accessibleName(), "Current Time: 06 : 07 : 21");
    EXPECT_EQ(rig.label("lblCurrDate").text(), "03 - 09 - 2005");
    rig.now = kNow.addSecs(1);
    EXPECT_TRUE(rig.eventually([&] { return rig.label("lblCurrTime").text().endsWith("22"); }));
}

TEST(TargetBoardWindow, AnEntryIsLeftAloneWhileTypedThenCheckedAndWritten)
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
    address.stepBy(1);
    EXPECT_EQ(rig.board.peek(8180), 18);
    EXPECT_TRUE(rig.person.boxes.empty());

    address.setFocus();
    PressRig::turns(5);
    QTest::keyClicks(&address, "33");
    QTest::keyClick(&address, Qt::Key_Return);
    EXPECT_TRUE(rig.eventually([&] { return !rig.person.boxes.empty(); }));
    EXPECT_EQ(rig.lastTitle(), "Set-upCurrent Network Address 1:");
}
