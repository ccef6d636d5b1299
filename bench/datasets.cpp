#include "bench/benchmarks.h"
#include "bench/board_process.h"
#include "bench/figures.h"
#include "bench/link_under_test.h"
#include "bench/program_application.h"
#include "data/controller_reading.h"
#include "datasets/compare_tree.h"

#include <QApplication>
#include <QProcess>
#include <QStandardItemModel>
#include <QTreeView>

#include <stdexcept>

namespace tambrix::bench {

namespace {

constexpr int kRounds = 5;
constexpr int kRows = gDataUpperBound + 1;

template <typename Engine> void runToEnd(Engine& engine)
{
    while (!engine.ended())
        engine.step();
}

/// Reading the controller for a comparison against an upload of the same entries.
void compareReading()
{
    const BoardProcess board({QStringLiteral("--baud"), QStringLiteral("9600")});
    LinkUnderTest link(board.device(), 9600);
    SetupDataRecord data = defaultSetupData({});
    std::vector<double> upload, compare;
    for (int round = 0; round < rounds(kRounds); ++round) {
        link.record([&](RSComm& comm) {
            upload.push_back(seconds([&] {
                BulkTransfer transfer(comm, data, transferPlan(transfer_code::kEverything, {}));
                runToEnd(transfer);
            }));
        });
        link.record([&](RSComm& comm) {
            compare.push_back(seconds([&] {
                ControllerReading reading(comm, &data);
                runToEnd(reading);
                const Comparison comparison(data, reading.data(), reading.running());
            }));
        });
    }
    reportAtMost("comparing with the controller / upload", median(compare) / median(upload), 1.03);
}

/// A view with 1,614 rows in groups, built, filtered, ticked and shown.
double bareView()
{
    return seconds([] {
        QStandardItemModel model(0, CompareTree::Columns);
        for (int row = 0; row < kRows; ++row) {
            QList<QStandardItem*> items;
            for (int column = 0; column < CompareTree::Columns; ++column)
                items += new QStandardItem(QString::number(row));
            items.front()->setCheckable(true);
            model.appendRow(items);
        }
        QTreeView view;
        view.setUniformRowHeights(true);
        view.setModel(&model);
        view.resize(1100, 500);
        view.grab();
        for (int row = 0; row < kRows; ++row)
            view.setRowHidden(row, {}, row % 2 == 0);
        view.grab();
        for (int row = 0; row < kRows; ++row)
            model.item(row)->setCheckState(Qt::Checked);
        view.grab();
    });
}

double compareView(Comparison& comparison)
{
    return seconds([&] {
        CompareTree tree;
        QTreeView view;
        view.setUniformRowHeights(true);
        view.setModel(&tree);
        view.resize(1100, 500);
        tree.show(&comparison);
        view.expandAll();
        view.grab();
        tree.setFilter(QStringLiteral("ON"));
        view.expandAll();
        view.grab();
        tree.setFilter({});
        view.expandAll();
        for (int row = 0; row < tree.rowCount(); ++row)
            tree.setData(tree.index(row, 0), Qt::Checked, Qt::CheckStateRole);
        view.grab();
    });
}

void treeCost()
{
    const SetupDataRecord left = defaultSetupData({});
    SetupDataRecord right = left;
    for (std::int32_t& value : right.Value)
        ++value;
    std::vector<double> bare, own;
    for (int round = 0; round < rounds(kRounds); ++round) {
        Comparison comparison(left, right);
        bare.push_back(bareView());
        own.push_back(compareView(comparison));
    }
    reportAtMost("1,614 rows built, filtered and ticked / a bare QTreeView",
                 median(own) / median(bare), 3);
}

} // namespace

int datasetsProcess(int argc, char* argv[])
{
    const ProgramApplication application(argc, argv);
    treeCost();
    labelsTableCost();
    compareReading();
    return 0;
}

void datasetsCost(const QString& program)
{
    if (QProcess::execute(program, {QStringLiteral("--datasets-process")}) != 0)
        throw std::runtime_error("the data sets were not compared");
}

} // namespace tambrix::bench
