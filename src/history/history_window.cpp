#include "history/history_window.h"

#include "data/whole_file.h"
#include "history/ductor_view.h"
#include "history/history_plots.h"

#include <QBuffer>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTextDocument>

namespace tambrix {

namespace {

constexpr int kMostChanges = 50'000; // registers: a transfer writes some 1,600 and is one line
constexpr int kPrintScale = 2;

/// An empty table says so.
void tellEmpty(const QTableView& view, const QString& title, const HistoryTable& table)
{
    static_cast<QGroupBox*>(view.parentWidget())
        ->setTitle(table.rows.empty() ? title + QStringLiteral(": none in this time") : title);
}

} // namespace

TimeSpan HistoryWindow::spanOf(Span span, UtcMs now)
{
    HistoryReader reader(m_source.recorder.store().path());
    switch (span) {
    case Span::Hour:
        return {now - kHour, now};
    case Span::Shift:
        return {reader.shiftBegin(now), now};
    case Span::Day:
        return localDay(now);
    case Span::All:
        break;
    }
    const TimeSpan all = reader.extent();
    return all.length() > 0 ? all : TimeSpan{now - kHour, now};
}

void HistoryWindow::choose(Span span)
{
    m_span = spanOf(span, m_source.recorder.now());
    markSpan(span);
    if (span != Span::Hour) // it may end at another time than now
        m_follow->setChecked(false);
    reload();
}

void HistoryWindow::markSpan(std::optional<Span> span)
{
    for (std::size_t i = 0; i < m_spans.size(); ++i)
        m_spans[i]->setChecked(span && i == static_cast<std::size_t>(*span));
}

void HistoryWindow::showSpan(TimeSpan span)
{
    m_follow->setChecked(false);
    markSpan(std::nullopt);
    m_span = span;
    if (!m_reload.isActive()) // a held key or a drag comes faster than it would end
        m_reload.start();
}

/// The span keeps its length and ends now.
void HistoryWindow::follow()
{
    if (!m_follow->isChecked() || !isVisible())
        return;
    const UtcMs now = m_source.recorder.now();
    m_span = {now - m_span.length(), now};
    reload();
}

void HistoryWindow::reload()
{
    SqlResult result = SqlResult::Done;
    {
        HistoryReader reader(m_source.recorder.store().path());
        showPage(reader);
        result = reader.result();
    } // closed: the file may have to be set aside
    if (result != SqlResult::Done)
        showTrouble(result);
}

void HistoryWindow::showPage(HistoryReader& reader)
{
    const UtcMs now = m_source.recorder.now();
    PlotData plots = readPlotData(reader, m_span, m_ductor->currentIndex(), m_plots->width());
    plots.names = m_source.labelNames;
    m_summary->setText(summaryOf(plots));
    m_plots->show(std::move(plots)); // what stands at the crosshair takes the place of the summary
    const HistoryTable alarms = alarmTable(m_plots->data().alarms, now, m_source.labelNames);
    if (alarms != m_alarmRows)
        showTable(*m_alarms, alarms);
    m_alarmRows = alarms;
    tellEmpty(*m_alarms, QStringLiteral("Alarms"), alarms);
    const HistoryTable changes =
        changeTable(changeLines(reader.writes(m_span, kMostChanges), m_source.labelNames), now);
    if (changes != m_changeRows)
        showTable(*m_changes, changes);
    m_changeRows = changes;
    tellEmpty(*m_changes, QStringLiteral("Changes"), changes);
}

void HistoryWindow::showTrouble(SqlResult result)
{
    switch (result) {
    case SqlResult::Damaged:
        m_summary->setText(QStringLiteral("A part of the history cannot be read."));
        m_source.recorder.store().check();
        break;
    case SqlResult::Missing:
        m_summary->setText(QStringLiteral("This program cannot read the history: a newer version "
                                          "wrote it, or Qt's driver for SQLite is missing."));
        break;
    default:
        m_summary->setText(QStringLiteral("Nothing recorded yet. Recording begins with View > "
                                          "Online Data."));
    }
}

void HistoryWindow::pointAtRow(const QTableView& view)
{
    if (const auto time = timeOfRow(view.currentIndex()))
        m_plots->pointAt(time);
}

HistoryPage HistoryWindow::page() const
{
    return {m_plots->data(), m_alarmRows, m_changeRows};
}

void HistoryWindow::exportCsv()
{
    const auto file = m_source.prompts.askSaveFile(
        {QStringLiteral("Export History"), QStringLiteral("CSV Files(*.csv)|*.csv|"),
         m_source.folder, QStringLiteral("history.csv"), QStringLiteral("csv")});
    if (file)
        saved(QStringLiteral("Export History"), *file, writeWholeFile(*file, historyCsv(page())));
}

void HistoryWindow::savePdf()
{
    const auto file = m_source.prompts.askSaveFile(
        {QStringLiteral("Save PDF"), QStringLiteral("PDF Files(*.pdf)|*.pdf|"), m_source.folder,
         QStringLiteral("history.pdf"), QStringLiteral("pdf")});
    if (!file)
        return;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        historyDocument(page(), m_plots->picture(kPrintScale))->print(&pdf);
    } // ended: the last bytes are there
    saved(QStringLiteral("Save PDF"), *file, writeWholeFile(*file, bytes));
}

void HistoryWindow::print()
{
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        historyDocument(page(), m_plots->picture(kPrintScale))->print(&printer);
}

void HistoryWindow::copyPicture()
{
    QGuiApplication::clipboard()->setPixmap(m_plots->picture(kPrintScale));
}

void HistoryWindow::showDuctor()
{
    const QString file = m_source.recorder.store().path();
    const auto read = [file, this](int ductor) {
        HistoryReader reader(file);
        return readDuctorReport(reader, ductor, m_source.recorder.now(), m_source.labelNames);
    };
    auto* view = new DuctorView(read, m_ductor->currentIndex(), this);
    view->setAttribute(Qt::WA_DeleteOnClose);
    view->show();
}

void HistoryWindow::recordUnseen()
{
    m_seconds->setEnabled(m_unseen->isChecked());
    m_source.recordUnseen(m_unseen->isChecked() ? std::optional(m_seconds->value()) : std::nullopt);
}

void HistoryWindow::saved(const QString& title, const QString& file,
                          const std::optional<QString>& failure)
{
    if (failure)
        say(title, QStringLiteral("The file could not be saved:\n%1\n\n%2")
                       .arg(QDir::toNativeSeparators(file), *failure));
    else
        m_summary->setText(QStringLiteral("Saved as %1.").arg(QDir::toNativeSeparators(file)));
}

void HistoryWindow::say(const QString& title, const QString& text)
{
    m_source.prompts.showMessage(
        {BoxIcon::Information, BoxButtons::Ok, title.toStdString(), text.toStdString()});
}

} // namespace tambrix
