#include "shell/transfer_commands.h"

#include "shell/label_range_dialog.h"
#include "shell/processing_dialog.h"
#include "tests/support/modal_watch.h"
#include "tests/support/window_rig.h"

#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

using namespace tambrix;

namespace {

constexpr int kSeldom = 3'600'000; // ms; keeps the poll's bytes out of a trace

struct TransferCommands : testing::Test
{
    WindowRig rig;
    ProgramState& state = rig.state;
    ScriptedPrompts& person = rig.person;
    std::vector<std::uint8_t> sent; ///< bytes to the board

    TransferCommands()
    {
        rig.window->backgroundPoll().setInterval(kSeldom);
        rig.board.press().stop();
    }

    /// On line, with the Main Display at rest, and an empty trace.
    void onlineQuietly()
    {
        rig.goOnline();
        rig.line.setTap([this](const WireByte& wire) {
            if (wire.direction == WireByte::Direction::ToBoard &&
                QApplication::activeModalWidget() != nullptr)
                sent.push_back(wire.byte);
        });
    }

    void pick(const char* item, std::initializer_list<BoxAnswer> answers = {BoxAnswer::Yes})
    {
        person.boxes.clear();
        person.answers.assign(answers);
        rig.item(item).trigger();
    }

    std::vector<std::string> texts() const
    {
        std::vector<std::string> all;
        for (const OperatorBox& box : person.boxes)
            all.push_back(box.title + ": " + box.text);
        return all;
    }

    /// Whether a frame has read a byte: its address, high byte first.
    bool hasRead(std::uint8_t high, std::uint8_t low) const
    {
        const std::array frame = {high, low};
        return std::search(sent.begin(), sent.end(), frame.begin(), frame.end()) != sent.end();
    }
};

const std::string kUploadQuestion =
    "Data Upload: You are about to Upload Data from the PLC\r\n\r\nDo You Wish to Continue?";
const std::string kDownloadQuestion =
    "Data Download: You are about to Download Data to the PLC\r\n\r\nDo You Wish to Continue?";
const std::string kOfflineQuestion = "Program Offline: Program is Currently OFFLINE\r\n\r\n"
                                     "Do You Wish to Switch to ONLINE MODE to Continue?";
const std::string kNotComplete = "TAMBRIX: Error Processing Request\r\n\r\nProcess Not Complete";

template <typename Control> Control& control(const QWidget& window, const char* name)
{
    return *window.findChild<Control*>(QLatin1String(name));
}

void chooseLabels(LabelRangeDialog& dialog, const char* from, const char* to)
{
    control<QLineEdit>(dialog, "txtLabels(0)").setText(from);
    control<QLineEdit>(dialog, "txtLabels(1)").setText(to);
    control<QAbstractButton>(dialog, "optLabels(1)").click();
    control<QPushButton>(dialog, "cmdOk").click();
}

} // namespace

TEST_F(TransferCommands, SetupDownloadIsFiveWrites)
{
    onlineQuietly();
    pick("mnuFileDownload(0)");
    EXPECT_EQ(texts(), std::vector{kDownloadQuestion});
    const std::vector<std::uint8_t> five = {0xFF, 0x02,                         // write mode
                                            0x02, 0xB2, 0xF4, 0x02, 0xB3, 0x01, // W690 = 500
                                            0x02, 0xB4, 200,                    // B692
                                            0x03, 0xF5, 25,                     // B1013
                                            0x03, 0xF6, 100,                    // B1014
                                            0x02, 0xB6, 0};                     // B694
    EXPECT_EQ(sent, five);
    EXPECT_FALSE(state.gUploadNOW.isValid());

    state.gWorkingData.Value[9] = 300;
    pick("mnuFileDownload(0)");
    ASSERT_EQ(person.boxes.size(), 3U) << "question, the link's refusal, what was not moved";
    EXPECT_EQ(texts()[2], "TAMBRIX: Not all data were transferred.\r\n\r\n"
                          "B692: wanted 300, found 200; the register cannot hold 300.");
}

TEST_F(TransferCommands, UploadsChosenLabelsOnly)
{
    onlineQuietly();
    for (const auto address :
         std::initializer_list<std::uint16_t>{3244, 3250, 3274, 3280}) // labels 4, 5, 5 and 6
        rig.board.poke(address, 55);
    const ModalWatch<LabelRangeDialog> range([](auto& dialog) { chooseLabels(dialog, "5", "5"); });
    pick("mnuFileUpload(2)");
    const auto& value = state.gWorkingData.Value;
    EXPECT_EQ(value[93], 200);
    EXPECT_EQ(value[94], 55);
    EXPECT_EQ(value[109], 55);
    EXPECT_EQ(value[110], 0);
    EXPECT_EQ(state.report.firstLabel, 5);
    state.undoStack.undo();
    EXPECT_EQ(state.gWorkingData, state.gDefaultData) << "an upload is one step";
    state.undoStack.redo();
    EXPECT_EQ(value[94], 55);

    const ModalWatch<LabelRangeDialog> none([](auto& dialog) { chooseLabels(dialog, "12", ""); });
    sent.clear();
    pick("mnuFileDownload(2)");
    EXPECT_TRUE(none.seen());
    EXPECT_TRUE(sent.empty()) << "no range, no transfer";
    EXPECT_EQ(person.boxes.size(), 1U);
}

TEST_F(TransferCommands, AsksToGoOnline)
{
    const SetupDataRecord before = state.gWorkingData;
    pick("mnuFileUpload(0)", {BoxAnswer::No});
    EXPECT_EQ(texts(), std::vector{kUploadQuestion});
    EXPECT_FALSE(state.gUploadNOW.isValid());
    pick("mnuFileUpload(0)", {BoxAnswer::Yes, BoxAnswer::No});
    EXPECT_EQ(texts(), (std::vector{kUploadQuestion, kOfflineQuestion}));
    EXPECT_EQ(state.gWorkingData, before);
    EXPECT_EQ(rig.line.exchanges(), 0U);
    rig.board.pokeWord(690, 321);
    pick("mnuFileUpload(0)", {BoxAnswer::Yes, BoxAnswer::Yes});
    EXPECT_EQ(rig.mode(), "ONLINE");
    EXPECT_EQ(state.gWorkingData.Value[8], 321);
}

TEST_F(TransferCommands, GoesOnIntoTheErrorWhenThePortIsMissing)
{
    rig.line.unplug();
    pick("mnuFileDownload(1)", {BoxAnswer::Yes, BoxAnswer::Yes});
    ASSERT_EQ(person.boxes.size(), 4U);
    EXPECT_EQ(person.boxes[2].title, "Comm Port Error");
    EXPECT_EQ(texts()[3], kNotComplete);
    EXPECT_EQ(person.boxes[3].icon, BoxIcon::Warning);
    EXPECT_EQ(rig.mode(), "OFFLINE");
    EXPECT_TRUE(rig.item("mnuViewOffline").isChecked());
}

TEST_F(TransferCommands, CancelKeepsWhatHasBeenTransferred)
{
    onlineQuietly();
    for (const auto low : std::initializer_list<std::uint16_t>{940, 944, 948, 952}) {
        rig.board.pokeWord(low, low);
        rig.board.pokeWord(static_cast<std::uint16_t>(low + 2), 0);
    }
    const ModalWatch<ProcessingDialog> watch([](QDialog& dialog) {
        QObject::connect(&control<QProgressBar>(dialog, "prgProcessing"),
                         &QProgressBar::valueChanged, &dialog, [&dialog](int done) {
                             if (done == 3)
                                 control<QPushButton>(dialog, "cmdCancel").click();
                         });
    });
    pick("mnuFileUpload(1)");
    EXPECT_EQ(texts(), std::vector{kUploadQuestion});
    EXPECT_EQ(state.gUploadNOW.date(), QDate::currentDate());
    state.gWorkingData.Value.resize(8);
    EXPECT_EQ(state.gWorkingData.Value, (std::vector<std::int32_t>{940, 944, 948, 0, 0, 0, 0, 0}));
}

TEST_F(TransferCommands, PollGoesOnAndScreensRest)
{
    rig.window->showScreen(ScreenId::MainDisplay);
    onlineQuietly();
    rig.window->backgroundPoll().setInterval(1);
    rig.board.press().raiseAlarm(2);
    QString status;
    const ModalWatch<LabelRangeDialog> range(
        [](QDialog& dialog) { control<QPushButton>(dialog, "cmdOk").click(); });
    const ModalWatch<ProcessingDialog> watch([&](const QWidget& dialog) {
        QObject::connect(&control<QProgressBar>(dialog, "prgProcessing"),
                         &QProgressBar::valueChanged, &dialog, [&] { status = rig.status(); });
    });
    pick("mnuFileUpload(2)");
    EXPECT_EQ(status, "System Message:  Alarm(s) Active in Q900");
    EXPECT_TRUE(hasRead(0, 65)) << "the poll's register";
    EXPECT_FALSE(hasRead(0, 112)) << "the Main Display's register";
}
