#include "datasets/compare_window.h"

#include "data/csv_text.h"
#include "data/guarded_table.h"
#include "data/whole_file.h"
#include "datasets/compare_text.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QTextDocument>
#include <QTreeView>

namespace tambrix {

namespace {

using Kind = DatasetSource::Kind;

constexpr std::size_t kShownBackups = 10;

/// What the controller stores, as far as it is known: read back after a write, else compared.
std::optional<std::int32_t> storedValue(const ComparedEntry& entry)
{
    const bool verified = entry.outcome && entry.outcome->state == WriteState::Verified;
    return verified ? entry.outcome->value : entry.right;
}

QString runningNote(const Comparison& comparison)
{
    for (int i = kLabelSlot; i <= gDataUpperBound; ++i) {
        const ComparedEntry& entry = comparison.entries()[static_cast<std::size_t>(i)];
        if (entry.running && entry.right && entry.running != storedValue(entry))
            return QStringLiteral(
                       "Label %1 runs with other values than are stored for it: it takes "
                       "over the stored ones when it is loaded again.")
                .arg(entryAt(i).label);
    }
    return {};
}

} // namespace

CompareWindow::CompareWindow(ProgramState& state, QWidget* parent)
    : QDialog(parent), m_state(state), m_session(state, [this] {
          return !m_state.gLink.isBusy() && QApplication::activeModalWidget() == this;
      })
{
    build();
    connect(&m_session, &CompareSession::compared, this, &CompareWindow::showComparison);
    connect(&m_session, &CompareSession::progressed, this, &CompareWindow::showProgress);
    connect(&m_session, &CompareSession::ended, this, &CompareWindow::showEnd);
    connect(&m_tree, &CompareTree::ticksChanged, this, &CompareWindow::showState);
    fillSources();
    showState();
}

void CompareWindow::reject()
{
    if (m_session.running())
        m_session.cancel();
    else
        QDialog::reject();
}

void CompareWindow::fillSources()
{
    fillSource(*m_cboLeft, m_session.left);
    fillSource(*m_cboRight, m_session.right);
}

/// The fixed sources, the chosen file, and the latest backups.
void CompareWindow::fillSource(QComboBox& box, const DatasetSource& chosen)
{
    const QSignalBlocker quiet(box);
    box.clear();
    const auto add = [&](const DatasetSource& source, const QString& text) {
        box.addItem(text, QVariant::fromValue(static_cast<int>(source.kind)));
        box.setItemData(box.count() - 1, source.path, Qt::UserRole + 1);
        if (source == chosen)
            box.setCurrentIndex(box.count() - 1);
    };
    for (const Kind kind : {Kind::WorkingData, Kind::Controller}) {
        const DatasetSource source{kind, {}};
        add(source, source.title());
    }
    if (chosen.kind == Kind::File)
        add(chosen, chosen.title());
    add({Kind::File, {}}, QStringLiteral("File..."));
    const auto backups = m_session.backups().list();
    for (std::size_t i = 0; i < std::min(kShownBackups, backups.size()); ++i)
        add({Kind::Backup, backups[i].path}, QStringLiteral("Backup ") + backups[i].title);
}

void CompareWindow::chooseSource(QComboBox& box, DatasetSource& side)
{
    DatasetSource chosen{static_cast<Kind>(box.currentData().toInt()),
                         box.currentData(Qt::UserRole + 1).toString()};
    if (chosen.kind == Kind::File && chosen.path.isEmpty()) {
        const QFileInfo current(m_state.gFileNamePath);
        const auto path = m_state.prompts.askOpenFile(
            {QStringLiteral("Compare with File"), QStringLiteral("Setup Files(*.sdt)|*.sdt|"),
             current.path(), current.fileName(), QStringLiteral("sdt")});
        chosen = path ? DatasetSource{Kind::File, *path} : side;
    }
    side = chosen;
    fillSource(box, side);
}

void CompareWindow::showComparison()
{
    m_tree.setSides(m_session.left.columnTitle(), m_session.right.columnTitle());
    m_tree.show(m_session.comparison());
    m_view->expandAll();
    showFirstTicked();
    fillSources();
}

/// Of a thousand differences those that are to be written may be far down.
void CompareWindow::showFirstTicked()
{
    QModelIndex row = m_tree.index(0, 0);
    while (row.isValid() &&
           (m_tree.entryOf(row) < 0 || row.data(Qt::CheckStateRole) != Qt::Checked))
        row = m_view->indexBelow(row);
    m_view->scrollTo(row, QAbstractItemView::PositionAtCenter);
}

void CompareWindow::showProgress(const QString& what, int done, int total)
{
    const bool first = m_shownWork != what;
    if (first) {
        m_shownWork = what;
        m_clock.start();
        m_pace.start(0);
        showState();
    }
    const double now = static_cast<double>(m_clock.elapsed()) / 1000;
    const auto text = m_pace.text(now, done, total);
    if (!text)
        return;
    m_progress->setRange(0, total);
    m_progress->setValue(done);
    say(what + QStringLiteral(": ") + *text);
}

void CompareWindow::showEnd()
{
    m_shownWork.clear();
    m_progress->reset();
    m_tree.refresh();
    if (m_session.comparison() != nullptr)
        m_lblRunning->setText(runningNote(*m_session.comparison()));
    m_lblRunning->setVisible(!m_lblRunning->text().isEmpty());
    showState();
}

void CompareWindow::say(const QString& text)
{
    if (m_lblSummary->text() != text)
        m_lblSummary->setText(text);
}

void CompareWindow::showState()
{
    const bool running = m_session.running();
    const bool shown = m_session.comparison() != nullptr;
    const int ticked = m_tree.ticked();
    for (QWidget* control : std::initializer_list<QWidget*>{m_cboLeft, m_cboRight, m_cmdCompare})
        control->setEnabled(!running);
    m_view->setEnabled(shown && !running);
    for (QWidget* control : std::initializer_list<QWidget*>{m_cmdCopy, m_cmdSaveCsv, m_cmdPrint})
        control->setEnabled(shown && !running);
    m_cmdTake->setEnabled(shown && !running && ticked > 0);
    m_cmdWrite->setEnabled(m_session.canWrite() && ticked > 0);
    m_cmdRetry->setVisible(m_session.canRetry());
    m_cmdUndoLast->setEnabled(!running && m_session.backups().lastRestore().has_value());
    m_cmdCancel->setEnabled(running);
    m_progress->setEnabled(running);
    if (running)
        return;
    QString text = m_session.summary();
    if (ticked > 0)
        text += QStringLiteral("  %1 ticked").arg(ticked);
    if (const int hidden = ticked > 0 ? m_tree.tickedHidden() : 0; hidden > 0)
        text += QStringLiteral(", %1 of them hidden by the filter").arg(hidden);
    say(text);
}

std::vector<QStringList> CompareWindow::table()
{
    return comparisonTable(*m_session.comparison(), m_session.left.columnTitle(),
                           m_session.right.columnTitle());
}

void CompareWindow::copy()
{
    QApplication::clipboard()->setText(asTabText(table()));
    say(QStringLiteral("The list is on the clipboard."));
}

void CompareWindow::saveCsv()
{
    const auto path = m_state.prompts.askSaveFile(
        {QStringLiteral("Save as CSV"), QStringLiteral("CSV Files(*.csv)|*.csv|"),
         QFileInfo(m_state.gFileNamePath).path(), QStringLiteral("comparison.csv"),
         QStringLiteral("csv")});
    if (!path)
        return;
    const auto failure = writeWholeFile(*path, csvText(guardedTable(table())).toUtf8());
    say(failure ? QStringLiteral("The list could not be saved: %1.").arg(*failure)
                : QStringLiteral("Saved as %1.").arg(QFileInfo(*path).fileName()));
}

void CompareWindow::print()
{
    QTextDocument page;
    page.setHtml(
        asHtml(table(), QStringLiteral("%1: %2 and %3")
                            .arg(windowTitle(), m_session.left.title(), m_session.right.title())));
    QPrinter printer(QPrinter::HighResolution);
    QPrintPreviewDialog preview(&printer, this);
    preview.setObjectName(QStringLiteral("frmComparePreview"));
    connect(&preview, &QPrintPreviewDialog::paintRequested, &page,
            [&page](QPrinter* device) { page.print(device); });
    preview.exec();
}

} // namespace tambrix
