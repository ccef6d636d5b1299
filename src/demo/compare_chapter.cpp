#include "demo/chapters.h"
#include "simulator/memory_map.h"

#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

namespace tambrix {

namespace {

constexpr int kLabel = 3;
constexpr int kDuctor = 2;
constexpr int kStride = 250; // values: reading all of them takes longer than a step may
constexpr int kStrides = 5;
const QString kFile = QStringLiteral("press.sdt");

/// A row of the tree by its titles from the top; the last one ticked or unticked.
void tick(QAbstractItemModel& tree, const QStringList& titles, Qt::CheckState state)
{
    QModelIndex row;
    for (const QString& title : titles) {
        const QModelIndex parent = row;
        for (int r = 0; r < tree.rowCount(parent); ++r) {
            const QString shown = tree.index(r, 0, parent).data().toString();
            if (shown == title || shown.startsWith(title + u':'))
                row = tree.index(r, 0, parent);
        }
    }
    tree.setData(row, state, Qt::CheckStateRole);
}

std::function<bool()> summaryHas(DemoStage& stage, const char* text)
{
    return [&stage, text] {
        return stage.isInFront("frmCompare") &&
               stage.control<QLabel>("lblSummary").text().contains(QLatin1String(text)) &&
               stage.control<QPushButton>("cmdCompare").isEnabled();
    };
}

/// Somebody has changed three values on the press.
void changeThree(SimulatedBoard& board)
{
    const std::uint16_t on = memory_map::labelOn(kLabel, kDuctor);
    board.poke(on, static_cast<std::uint8_t>(board.peek(on) + 5));
    board.poke(static_cast<std::uint16_t>(on + 1),
               static_cast<std::uint8_t>(board.peek(on + 1) + 4));
    board.poke(memory_map::kColorGain, 90);
}

/// What reads the controller is shown under way, and then what it came to.
Task watchReading(DemoStage& stage, QString what, QString picture, const char* summary)
{
    for (int read = kStride; read <= kStrides * kStride; read += kStride)
        co_await stage.step({}, {}, [&stage, read] {
            return stage.control<QProgressBar>("prgCompare").value() > read;
        });
    co_await stage.step(what, picture, summaryHas(stage, summary));
}

Task writeTwoOfThree(DemoStage& stage)
{
    auto& tree = *stage.control<QTreeView>("treCompare").model();
    tick(tree, {"Labels"}, Qt::Unchecked);
    tick(tree, {"Labels", QStringLiteral("Label %1").arg(kLabel), "Ductor 3 ON"}, Qt::Checked);
    stage.press("cmdWrite");
    co_await watchReading(stage, "Two of them are restored and proved", "compare-restored",
                          "2 written, 2 verified");
    stage.press("cmdClose");
    co_await stage.step({}, {}, [&stage] { return &stage.frontWindow() == &stage.window(); });
}

/// What a set-up file does not hold goes on paper; it is shown only.
Task showBoardSheet(DemoStage& stage)
{
    stage.triggerMenu("mnuToolsBoardSheet");
    co_await stage.waitForWindow("frmReportPreview", "What only the board holds stands on a sheet",
                                 "board-sheet");
    stage.later([&stage] { stage.frontWindow().close(); });
    co_await stage.step({}, {}, [&stage] { return &stage.frontWindow() == &stage.window(); });
}

} // namespace

Task demoCompare(DemoStage& stage)
{
    co_await stage.goOnline();
    stage.triggerMenu("mnuFileUpload(0)");
    co_await stage.answerBox("Data Upload", "Yes", {});
    co_await stage.step({}, {}, [&stage] { return &stage.frontWindow() == &stage.window(); });
    changeThree(stage.board());
    stage.triggerMenu("mnuToolsCompare");
    co_await stage.waitForWindow("frmCompare", "Compare and Restore", {});
    stage.press("cmdCompare");
    co_await watchReading(stage, "Every value that differs is listed", "compare", "differ");
    co_await writeTwoOfThree(stage);
    co_await showBoardSheet(stage);
    co_await stage.goOffline();
}

} // namespace tambrix
