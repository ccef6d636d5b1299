#include "bench/benchmarks.h"
#include "bench/figures.h"
#include "bench/link_under_test.h"
#include "datasets/labels_window.h"

#include <QApplication>
#include <QClipboard>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include <stdexcept>

namespace tambrix::bench {

namespace {

constexpr int kRounds = 5;
constexpr QSize kSize(1200, 680);

/// What one round took, in seconds.
struct Times
{
    double open = 0;
    double scroll = 0;
    double paste = 0;
    double undo = 0;
};

/// A value for every ON and CYCLE of every label, as a spreadsheet copies them.
QString spreadsheet(bool zero)
{
    QString text;
    for (int label = 0; label < kLabels; ++label) {
        QStringList fields;
        for (int i = 0; i < kEntriesPerLabel; ++i)
            fields += QString::number(zero ? 0 : i < kDuctors ? label : 200 + label);
        text += fields.join(u'\t') + QStringLiteral("\r\n");
    }
    return text;
}

void scrollThrough(QTableView& view)
{
    for (int row = 0; row < kLabels; row += 5) {
        view.scrollTo(view.model()->index(row, 0), QAbstractItemView::PositionAtTop);
        view.grab();
    }
}

/// Puts every field into a cell; the second eight into those of the first, as the labels' table
/// shows ON or CYCLE.
void fill(QAbstractItemModel& model, const QString& text)
{
    const QStringList rows = text.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    for (int row = 0; row < rows.size(); ++row) {
        const QStringList fields = rows[row].split(u'\t');
        for (int i = 0; i < fields.size(); ++i)
            model.setData(model.index(row, LabelsModel::FirstDuctor + i % kDuctors), fields[i]);
    }
}

Times bareTable()
{
    Times times;
    QStandardItemModel model(kLabels, LabelsModel::Columns);
    fill(model, spreadsheet(true));
    QDialog window;
    QTableView* view = nullptr;
    times.open = seconds([&] {
        view = new QTableView;
        view->setModel(&model);
        (new QVBoxLayout(&window))->addWidget(view);
        window.resize(kSize);
        window.show();
        window.grab();
    });
    times.scroll = seconds([&] { scrollThrough(*view); });
    times.paste = seconds([&] {
        fill(model, spreadsheet(false));
        window.grab();
    });
    times.undo = seconds([&] {
        fill(model, spreadsheet(true));
        window.grab();
    });
    return times;
}

Times labelsTable(ProgramState& state)
{
    Times times;
    std::unique_ptr<LabelsWindow> window;
    times.open = seconds([&] {
        window = std::make_unique<LabelsWindow>(state, LabelsHooks{});
        window->resize(kSize);
        window->show();
        window->grab();
    });
    window->model().show(LabelsModel::Shown::On);
    times.scroll = seconds([&] { scrollThrough(window->view()); });
    window->view().setCurrentIndex(window->model().index(0, LabelsModel::FirstDuctor));
    times.paste = seconds([&] {
        QApplication::clipboard()->setText(spreadsheet(false));
        window->paste();
        window->grab();
    });
    times.undo = seconds([&] {
        state.undoStack.undo();
        window->grab();
    });
    return times;
}

void compare(const char* what, const std::vector<Times>& own, const std::vector<Times>& bare,
             double Times::*part)
{
    std::vector<double> ours, theirs;
    for (const Times& times : own)
        ours.push_back(times.*part);
    for (const Times& times : bare)
        theirs.push_back(times.*part);
    reportAtMost(what, median(ours) / median(theirs), 3);
}

} // namespace

void labelsTableCost()
{
    const BenchFolder folder(9600);
    SteadyClock clock;
    QtSerialPort port(clock, {});
    AbsentOperator nobody;
    ProgramState state(QDir(QString::fromStdString(folder.path().string())), port, clock, nobody);
    state.InitSetupData();
    state.gOfflineEditing = true;
    std::vector<Times> own, bare;
    for (int round = 0; round < rounds(kRounds); ++round) {
        bare.push_back(bareTable());
        own.push_back(labelsTable(state));
        if (state.gWorkingData != state.gDefaultData)
            throw std::runtime_error("the labels' table was not undone");
    }
    compare("labels' window opened / with a bare QTableView", own, bare, &Times::open);
    compare("  scrolled", own, bare, &Times::scroll);
    compare("  100 x 8 x 2 values pasted", own, bare, &Times::paste);
    compare("  undone", own, bare, &Times::undo);
}

} // namespace tambrix::bench
