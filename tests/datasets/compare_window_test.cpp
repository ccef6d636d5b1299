#include "tests/datasets/compare_rig.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QProgressBar>
#include <QTreeView>

using namespace tambrix;

namespace {

using Column = CompareTree::Column;

const QStringList kGain = {"Set-up", "Color Gain"};
const QStringList kOn = {"Labels", "Label 6", "Ductor 3 ON"};
const QStringList kCycle = {"Labels", "Label 6", "Ductor 3 CYCLE"};

/// Three values of the press differ from the working data.
struct Changed : CompareRig
{
    Changed()
    {
        poke("B1014", 90);
        poke("B3282", 80);
        poke("W3294", 240);
        open();
    }
};

} // namespace

TEST(CompareWindow, ComparesRestoresWhatIsTickedAndProvesIt)
{
    Changed rig;
    rig.compare();
    EXPECT_TRUE(rig.summary().startsWith("3 values differ.")) << rig.summary().toStdString();
    EXPECT_EQ(rig.row({"Labels"}).data().toString(), "Labels: 1 of 100 differs, 2 values");
    EXPECT_EQ(rig.cell(kOn, Column::Left), "0");
    EXPECT_EQ(rig.cell(kOn, Column::Right), "80");
    EXPECT_EQ(rig.cell(kOn, Column::Register), "B3282");

    rig.click(kCycle, Qt::Unchecked);
    EXPECT_EQ(rig.tick({"Labels"}), Qt::PartiallyChecked);
    rig.press("cmdWrite");
    EXPECT_EQ(rig.cell(kGain, Column::State), "verified");
    EXPECT_EQ(rig.cell(kOn, Column::State), "verified");
    EXPECT_EQ(rig.cell(kCycle, Column::State), "");
    EXPECT_EQ(rig.board.peek(1014), 100);
    EXPECT_EQ(rig.board.peek(3282), 0);
    EXPECT_EQ(rig.board.peekWord(3294), 240) << "not ticked";
    EXPECT_TRUE(rig.summary().contains("2 written, 2 verified.")) << rig.summary().toStdString();
    ASSERT_EQ(rig.window->session().backups().list().size(), 1U);

    rig.press("cmdUndoLast");
    EXPECT_EQ(rig.tick(kGain), Qt::Checked);
    EXPECT_EQ(rig.cell(kOn, Column::Left), "80");
    rig.press("cmdWrite");
    EXPECT_EQ(rig.board.peek(1014), 90);
    EXPECT_EQ(rig.board.peek(3282), 80);
}

TEST(CompareWindow, NothingDifferentIsSaidInOneSentence)
{
    CompareRig rig;
    rig.board.pokeWord(686, 41);
    rig.open();
    rig.compare();
    EXPECT_EQ(rig.summary(), "No differences.");
    EXPECT_EQ(rig.tree().rowCount(), 1);
    EXPECT_TRUE(rig.tick({"Not part", "Label Number"}).isNull()) << "never written";
    rig.press("cmdCopy");
    EXPECT_TRUE(QApplication::clipboard()->text().contains("Label Number\tW686\t\t0\t41"));
}

TEST(CompareWindow, GroupTakesOrdinaryRowsFirstAndUnusualOnesNext)
{
    CompareRig rig;
    rig.state.gWorkingData.Value[static_cast<std::size_t>(labelSlot(6, 2, false))] = 20;
    rig.state.gWorkingData.Value[static_cast<std::size_t>(labelSlot(9, 0, false))] = 255;
    rig.state.gWorkingData.Value[static_cast<std::size_t>(labelSlot(9, 1, false))] = 256;
    rig.open();
    rig.compare();
    EXPECT_EQ(rig.cell({"Labels", "Label 9", "Ductor 1 ON"}, Column::State),
              "above Maximum ON Duration 200");
    EXPECT_EQ(rig.tick({"Labels", "Label 9", "Ductor 1 ON"}), Qt::Unchecked);
    EXPECT_TRUE(rig.tick({"Labels", "Label 9", "Ductor 2 ON"}).isNull()) << "no byte holds 256";
    EXPECT_EQ(rig.tick({"Labels"}), Qt::PartiallyChecked);
    for (const Qt::CheckState next : {Qt::Checked, Qt::Unchecked, Qt::PartiallyChecked}) {
        rig.click({"Labels"});
        EXPECT_EQ(rig.tick({"Labels"}), next);
    }
}

TEST(CompareWindow, FilterHidesRowsAndSaysWhatItHides)
{
    Changed rig;
    rig.compare();
    rig.window->findChild<QLineEdit*>("txtFilter")->setText("w3294");
    EXPECT_EQ(rig.tree().rowCount(), 1);
    EXPECT_TRUE(rig.summary().endsWith("3 ticked, 2 of them hidden by the filter"))
        << rig.summary().toStdString();
}

TEST(CompareWindow, TakingIntoTheWorkingDataIsOneStepThatCanBeUndone)
{
    Changed rig;
    std::swap(rig.window->session().left, rig.window->session().right);
    rig.compare();
    rig.press("cmdTake");
    EXPECT_EQ(rig.summary().left(44), "3 values were taken into the working data.  ");
    const auto value = [&](int entry) {
        return rig.state.gWorkingData.Value[static_cast<std::size_t>(entry)];
    };
    EXPECT_EQ(value(labelSlot(6, 2, true)), 240);
    rig.state.undoStack.undo();
    EXPECT_EQ(value(labelSlot(6, 2, true)), 200);
    EXPECT_EQ(value(11), 100);
    rig.state.undoStack.redo();
    EXPECT_EQ(value(11), 90);
}

TEST(CompareWindow, NothingIsWrittenWithoutABackup)
{
    const std::pair<std::function<void(Changed&)>, const char*> cases[] = {
        {[](Changed& rig) { writeWholeFile(rig.state.dataRoot.filePath("Backups"), "x"); },
         "Backups is a file, not a folder."},
        {[](Changed& rig) {
             rig.line.setFault(rig.line.exchanges() + 900, {LineFault::Kind::Unplug, 0, {}});
         },
         "The controller did not answer at "},
        {[](Changed& rig) { rig.board.poke(3282, 81); },
         "of the ticked values 1 changed in the controller"},
    };
    for (const auto& [trouble, reason] : cases) {
        Changed rig;
        rig.compare();
        trouble(rig);
        rig.press("cmdWrite");
        EXPECT_TRUE(rig.summary().startsWith("Nothing was written")) << rig.summary().toStdString();
        EXPECT_TRUE(rig.summary().contains(reason)) << rig.summary().toStdString();
        EXPECT_EQ(rig.board.peek(1014), 90);
    }
}

TEST(CompareWindow, CancelledOrBrokenOffItListsWhatIsKnownAndRetryGoesOn)
{
    Changed rig;
    rig.compare();
    const auto written = [&] { return rig.board.peek(1014) == 100; };
    QObject::connect(&rig.window->session(), &CompareSession::progressed, [&] {
        if (written())
            rig.window->session().cancel();
    });
    rig.press("cmdWrite");
    EXPECT_EQ(rig.cell(kGain, Column::State), "written, not read back");
    EXPECT_EQ(rig.cell(kOn, Column::State), "not written");
    EXPECT_EQ(rig.board.peek(3282), 80);
    rig.window->session().disconnect();
    rig.press("cmdRetry");
    EXPECT_TRUE(rig.window->session().comparison());
    EXPECT_EQ(rig.board.peek(3282), 0);
    EXPECT_EQ(rig.board.peekWord(3294), 200);
    rig.line.unplug();
    rig.compare();
    EXPECT_FALSE(rig.state.gLink.OnlineMode) << "the window below must not say ONLINE";
    rig.line.plugIn();
    rig.person.answers = {BoxAnswer::Yes}; // switch to on line
    rig.compare();
    EXPECT_TRUE(rig.summary().contains("differ")) << rig.summary().toStdString();
}

TEST(CompareWindow, EscapeCancelsWhatRunsAndClosesOnlyThen)
{
    Changed rig;
    rig.window->session().compare();
    PressRig::turns(50);
    rig.window->reject();
    ASSERT_TRUE(rig.settle());
    EXPECT_EQ(rig.summary(), "Cancelled.");
    EXPECT_TRUE(rig.window->isVisible());
    rig.window->reject();
    EXPECT_FALSE(rig.window->isVisible());
}

TEST(CompareWindow, FilesThatAreOddAreToldOf)
{
    CompareRig rig;
    rig.open();
    const QString path = rig.folder.filePath("other.sdt");
    SetupDataRecord record = defaultSetupData("OLD_R0.1");
    record.Address[20] = "B3100"; // twice
    writeWholeFile(path, QByteArray::fromStdString(setupFileBytes(record)));
    rig.window->session().left = {DatasetSource::Kind::File, path};
    rig.compare();
    ASSERT_EQ(rig.person.boxes.size(), 1U) << "the question of Open, cancelled";
    EXPECT_EQ(rig.summary(), "The file was not used.");
    rig.person.answers = {BoxAnswer::Yes};
    rig.compare();
    EXPECT_EQ(rig.cell({"Labels", "Label 0", "Ductor 1 ON"}, Column::State),
              "several entries have this address");
    EXPECT_TRUE(rig.tick({"Labels", "Label 0", "Ductor 1 ON"}).isNull());
    writeWholeFile(path, QByteArray::fromStdString(setupFileBytes(record)).left(1000));
    rig.compare();
    EXPECT_TRUE(rig.summary().contains("other.sdt cannot be used")) << rig.summary().toStdString();
}
