// Every window as a person sees it, and as a screen reader tells it.

#include "app/appearance.h"
#include "controls/calm_style.h"
#include "controls/cut_texts.h"
#include "controls/lamp.h"
#include "controls/value_label.h"
#include "datasets/backup_dialog.h"
#include "datasets/compare_window.h"
#include "datasets/daily_backup_dialog.h"
#include "datasets/labels_window.h"
#include "datasets/plan_dialog.h"
#include "help/about_box.h"
#include "help/help_window.h"
#include "help/system_info_window.h"
#include "history/ductor_view.h"
#include "history/history_window.h"
#include "maintenance/comm_port_dialog.h"
#include "maintenance/connection_dialog.h"
#include "maintenance/line_check_dialog.h"
#include "maintenance/line_monitor.h"
#include "maintenance/program_download_window.h"
#include "maintenance/target_board_window.h"
#include "platform/steady_clock.h"
#include "reports/report_setup.h"
#include "screens/color_control_screen.h"
#include "screens/io_status_screen.h"
#include "screens/setup_screen.h"
#include "screens/shift_data_screen.h"
#include "shell/label_range_dialog.h"
#include "shell/processing_dialog.h"
#include "simulator/sample_program.h"
#include "tests/support/window_rig.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCheckBox>
#include <QFileInfo>
#include <QGroupBox>

#include <gtest/gtest.h>

#include <vector>

using namespace tambrix;

namespace {

template <typename Concrete> ScreenFactory screen()
{
    return [](ProgramState& state) { return std::make_unique<Concrete>(state); };
}

/// The whole program in front of a press whose registers hold the widest values that they can.
struct WholeProgram
{
    QFont m_font;
    RecentSpeed m_recent;
    WindowRig rig;
    LineRecorder recorder{rig.clock};

    explicit WholeProgram(double fontFactor = 1)
        : m_font(QApplication::font()),
          rig({screen<MainDisplay>(), screen<SetupScreen>(), screen<ShiftDataScreen>(),
               screen<ColorControlScreen>(), screen<IoStatusScreen>()})
    {
        applyAppearance(false, Theme::Light);
        QFont font = m_font;
        font.setPointSizeF(font.pointSizeF() * fontFactor);
        QApplication::setFont(font);
        for (int word = 162; word < 190; word += 2)
            rig.board.pokeWord(static_cast<std::uint16_t>(word), 65535);
        for (int word = 940; word < 972; word += 2)
            rig.board.pokeWord(static_cast<std::uint16_t>(word), 65535);
        for (int d = 0; d < kDuctors; ++d)
            rig.board.press().raiseAlarm(d);
        rig.state.everConnected = false;
        rig.state.simulated = true;
        rig.state.recentSpeed = &m_recent;
        m_recent.add(kSecond, 65535);
        rig.state.gWorkingData.Value[3] = 2147483647;
    }

    ~WholeProgram() { QApplication::setFont(m_font); }

    void show(int index, QSize size)
    {
        rig.window->resize(size);
        rig.window->showScreen(static_cast<ScreenId>(index));
        PressRig::turns(kTurnsOfAPass);
    }

    static constexpr int kTurnsOfAPass = 80;
};

struct Windows : testing::TestWithParam<double>, WholeProgram
{
    Windows() : WholeProgram(GetParam()) {}
};

std::unique_ptr<QWidget> historyWindow(ProgramState& state)
{
    static const SteadyClock clock;
    auto* recorder = new HistoryRecorder(
        state.gLink, state.dataRoot.filePath(QStringLiteral("history.db")), {clock});
    auto window = std::make_unique<HistoryWindow>(
        HistoryWindow::Source{*recorder, 60, [](std::optional<int>) {}, state.prompts,
                              state.dataRoot.path(), state.labelNames});
    recorder->setParent(window.get());
    return window;
}

std::vector<std::unique_ptr<QWidget>> dialogs(ProgramState& state)
{
    std::vector<std::unique_ptr<QWidget>> all;
    all.push_back(std::make_unique<LabelRangeDialog>());
    all.push_back(std::make_unique<CommPortDialog>(state));
    all.push_back(std::make_unique<ReportSetup>(state, ReportActions{}));
    all.push_back(std::make_unique<AboutBox>(state));
    all.push_back(std::make_unique<LabelsWindow>(state, LabelsHooks{}));
    all.push_back(
        std::make_unique<ScaleDialog>(state.gWorkingData, std::vector{6}, DuctorSet(255), nullptr));
    all.push_back(historyWindow(state));
    all.push_back(std::make_unique<DuctorView>([](int) { return DuctorReport{}; }, 2, nullptr));
    all.push_back(std::make_unique<SystemInfoWindow>(
        std::vector<SystemFact>{{"Processor", "One with a long name, as they have it now"}}));
    all.push_back(std::make_unique<HelpWindow>(HelpBook(QString())));
    return all;
}

/// Those that need more than the shared state as well.
std::vector<std::unique_ptr<QWidget>> everyDialog(WindowRig& rig, LineRecorder& recorder)
{
    ProgramState& state = rig.state;
    auto all = dialogs(state);
    all.push_back(std::make_unique<CompareWindow>(state));
    all.push_back(std::make_unique<DailyBackupDialog>(QTime(3, 30)));
    all.push_back(std::make_unique<ConnectionDialog>(
        state, ConnectionChoice{rig.folder.filePath("Connection.ini"), "tcp://press3:4001", {}},
        nullptr, [] { return std::vector<MachinePort>(); }));
    all.push_back(std::make_unique<LineCheckDialog>([] { return LineFinding{}; }));
    all.push_back(
        std::make_unique<LineMonitor>(recorder, rig.clock, rig.person, rig.folder.path()));
    auto board = std::make_unique<TargetBoardWindow>(state);
    board->InitializeForm({});
    all.push_back(std::move(board));
    return all;
}

void expectWhole(const QWidget& window, const std::string& when)
{
    const QStringList cut = cutTexts(window);
    EXPECT_TRUE(cut.isEmpty()) << when << "\n  " << cut.join("\n  ").toStdString();
}

QString spoken(QObject& control, QAccessible::Text what)
{
    return QAccessible::queryAccessibleInterface(&control)->text(what);
}

/// What a person can do or read has a name, and a value is told with it.
void expectSpoken(const QWidget& window)
{
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || control->objectName().startsWith("qt_"))
            continue;
        const QString name = spoken(*control, QAccessible::Name);
        const std::string what = control->objectName().toStdString();
        const auto* value = qobject_cast<ValueLabel*>(control);
        const auto* label = qobject_cast<QLabel*>(control);
        const bool picture = qobject_cast<Picture*>(control) != nullptr;
        if (value != nullptr) {
            EXPECT_TRUE(name.endsWith(": " + value->text())) << what;
        } else if (label != nullptr && label->buddy() == nullptr) {
            EXPECT_TRUE(name.contains(label->text())) << what << ": " << name.toStdString();
        }
        if (picture) {
            const QString said = spoken(*control, QAccessible::Value);
            EXPECT_TRUE(!said.isEmpty() && name.endsWith(": " + said)) << what;
        }
        if (picture || control->focusPolicy() != Qt::NoFocus) {
            EXPECT_FALSE(name.isEmpty()) << control->metaObject()->className() << ' ' << what;
        }
    }
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Fonts, Windows, testing::Values(1.0, 1.5));

TEST_P(Windows, ShowEveryScreenWholeAtEverySizeAndAgain)
{
    const QSize sizes[] = {{1280, 720}, {1366, 768}, {1920, 1080}};
    for (const bool online : {false, true}) {
        online ? rig.window->goOnline() : rig.window->goOffline();
        for (int round = 0; round < 2; ++round) {
            for (int index = 0; index < kScreens; ++index) {
                for (const QSize size : sizes) {
                    rig.board.pokeWord(112, 65535);
                    show(index, size);
                    EXPECT_EQ(rig.window->size(), size) << "it does not fit";
                    expectWhole(*rig.window, "screen " + std::to_string(index) + " at " +
                                                 std::to_string(size.width()));
                }
                expectSpoken(*rig.window);
            }
        }
    }
}

TEST_P(Windows, ShowEveryDialogWholeAndAgain)
{
    for (const auto& dialog : everyDialog(rig, recorder)) {
        for (int round = 0; round < 2; ++round) {
            dialog->show();
            PressRig::turns(5);
            expectWhole(*dialog, dialog->metaObject()->className());
            expectSpoken(*dialog);
            dialog->hide();
        }
    }
}

TEST_P(Windows, SayInPicturesWhatTheTextsBesideThemSay)
{
    rig.window->goOnline();
    const auto text = [this](const QString& name) {
        return rig.window->findChild<QLabel*>(name)->text();
    };
    const auto picture = [this](const QString& name) {
        return spoken(*rig.window->findChild<Picture*>(name), QAccessible::Value);
    };
    show(2, {1366, 768});
    for (int d = 0; d < kDuctors; ++d)
        EXPECT_EQ(picture(arrayName("picCount", d)), text(arrayName("lblData", d + 1)));
    show(3, {1366, 768});
    for (int d = 0; d < kDuctors; ++d)
        EXPECT_EQ(picture(arrayName("picDensity", d)), text(arrayName("lblColorCtrl", d)));
    show(4, {1366, 768});
    for (int b = 0; b < 16; ++b) {
        for (const char* slot : {"00", "01"}) {
            const QString state = text(QStringLiteral("lblSlot%1State(%2)").arg(slot).arg(b));
            const QString lamp = picture(QStringLiteral("picSlot%1(%2)").arg(slot).arg(b));
            EXPECT_EQ(lamp == "off", state == "off") << slot << b;
        }
    }
    rig.window->goOffline();
    show(0, {1366, 768});
    for (int d = 0; d < kDuctors; ++d)
        EXPECT_EQ(picture(arrayName("picDuctor", d)), "not known");
    EXPECT_EQ(picture("picAlarm"), "Off line: alarms are not known");
}

/// While values are moved: what the window says must fit it from the first turn on.
TEST_P(Windows, ShowWhatIsUnderWayWhole)
{
    rig.window->goOnline();
    rig.board.press().stop();
    const auto expectGood = [](const QWidget& dialog) {
        expectWhole(dialog, dialog.metaObject()->className());
        expectSpoken(dialog);
    };
    {
        ProcessingDialog upload(rig.state, transferPlan(transfer_code::kLabelData, {0, 99, false}));
        upload.show();
        PressRig::turns(20);
        ASSERT_TRUE(upload.isVisible());
        expectGood(upload);
        BackupDialog backup(rig.state);
        backup.show();
        PressRig::turns(20);
        ASSERT_TRUE(backup.isVisible());
        expectGood(backup);
    }
    const std::filesystem::path folder = QFileInfo(rig.folder.path()).filesystemAbsoluteFilePath();
    rig.state.gLink.DownloadFile(writeSampleProgram({}, folder, "ink"));
    ProgramDownloadWindow download(rig.state);
    int boxes = 0;
    rig.person.answers = {BoxAnswer::Yes};
    rig.person.whileShown = [&] {
        ++boxes;
        expectGood(download);
    };
    download.show();
    EXPECT_TRUE(PressRig::eventually([&] { return !download.isVisible(); }));
    EXPECT_EQ(boxes, 2) << "the question, and how it ended";
}

/// A number field tells its number and limits, not only its text.
TEST(WholeProgramTest, TellsNumbersToScreenReaders)
{
    WholeProgram program;
    program.rig.window->goOnline();
    program.show(1, {1280, 720});
    auto& field = program.rig.control<QAbstractSpinBox>("txtSetup(0)");
    auto* tool = QAccessible::queryAccessibleInterface(&field);
    ASSERT_TRUE(tool->valueInterface() && tool->textInterface());
    EXPECT_EQ(tool->valueInterface()->currentValue(), 500);
    EXPECT_EQ(tool->valueInterface()->maximumValue(), 650);
    EXPECT_EQ(tool->textInterface()->text(0, 3), "500");
}

/// A finger needs 10 mm.
TEST(WholeProgramTest, IsMadeForFingersWithLargeControls)
{
    WholeProgram program;
    CalmStyle::setLargeControls(true);
    const auto expectLarge = [](const QWidget& window) {
        for (const QWidget* control : window.findChildren<QWidget*>()) {
            const bool pressed = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                                 qobject_cast<const QAbstractSpinBox*>(control) != nullptr;
            if (pressed && control->isVisible() && control->width() > 1) {
                EXPECT_GE(control->height(), 40) << control->objectName().toStdString();
                EXPECT_GE(control->width(), 40) << control->objectName().toStdString();
            }
        }
    };
    for (int index = 0; index < kScreens; ++index) {
        program.show(index, {1280, 720});
        expectLarge(*program.rig.window);
        expectWhole(*program.rig.window, "large, screen " + std::to_string(index));
    }
    for (const auto& dialog : everyDialog(program.rig, program.recorder)) {
        dialog->show();
        expectLarge(*dialog);
        expectWhole(*dialog, dialog->metaObject()->className());
    }
    CalmStyle::setLargeControls(false);
}
