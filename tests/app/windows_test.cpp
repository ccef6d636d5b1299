// Every window as a person sees it, and as a screen reader tells it.

#include "app/appearance.h"
#include "controls/calm_style.h"
#include "controls/cut_texts.h"
#include "controls/lamp.h"
#include "controls/value_label.h"
#include "datasets/labels_window.h"
#include "datasets/plan_dialog.h"
#include "help/about_box.h"
#include "help/help_window.h"
#include "help/system_info_window.h"
#include "history/ductor_view.h"
#include "history/history_window.h"
#include "maintenance/comm_port_dialog.h"
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
#include "tests/support/window_rig.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCheckBox>
#include <QGroupBox>

#include <gtest/gtest.h>

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
    auto window = std::make_unique<HistoryWindow>(HistoryWindow::Source{
        *recorder, 60, [](std::optional<int>) {}, state.prompts, state.dataRoot.path()});
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
            EXPECT_FALSE(spoken(*control, QAccessible::Value).isEmpty()) << what;
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
    for (const auto& dialog : dialogs(rig.state)) {
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
    for (const auto& dialog : dialogs(program.rig.state)) {
        dialog->show();
        expectLarge(*dialog);
        expectWhole(*dialog, dialog->metaObject()->className());
    }
    CalmStyle::setLargeControls(false);
}
