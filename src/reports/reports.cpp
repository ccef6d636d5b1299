#include "reports/reports.h"

#include "reports/board_sheet.h"
#include "reports/report_setup.h"
#include "shell/tools_menu.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPageLayout>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QSaveFile>
#include <QScopedValueRollback>
#include <QToolBar>

namespace tambrix {

namespace {

constexpr QMarginsF kPageMargins(15, 15, 15, 15); // mm; within what every office printer prints
constexpr QSize kPreviewSize(900, 660);

/// The preview window lends the printer a paint engine that keeps pages as pictures.
bool isPreview(const QPrinter& device)
{
    return device.paintEngine()->type() == QPaintEngine::Picture;
}

void showPages(const ReportPainter& report, QPrinter& device)
{
    QPainter painter(&device);
    for (int page = 0; painter.isActive() && page < report.pageCount(); ++page) {
        if (page > 0)
            device.newPage();
        report.paintPage(painter, page);
    }
}

} // namespace

Report Reports::content() const
{
    const QDateTime now = QDateTime::currentDateTime();
    return m_labels.empty() ? reportContent(m_state, now) : labelReport(m_state, m_labels, now);
}

QPrinter& Reports::printer()
{
    if (!m_printer) {
        m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        m_printer->setPageMargins(kPageMargins, QPageLayout::Millimeter);
        m_printer->setDocName(QStringLiteral("TAMBRIX Report"));
    }
    return *m_printer;
}

void Reports::addTo(ToolsMenu& menu)
{
    menu.addCommand(
        {QStringLiteral("Board &Sheet..."), QStringLiteral("mnuToolsBoardSheet"), {}, [this] {
             showBoardSheet();
         }});
}

void Reports::showSetup()
{
    ReportSetup dialog(m_state, {[this] { preview(); }, [this] { savePdf(); }, [this] { print(); }},
                       QApplication::activeWindow());
    dialog.exec();
}

void Reports::print()
{
    QPrintDialog dialog(&printer(), QApplication::activeWindow());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() == QDialog::Accepted)
        printOn(printer(), content());
}

void Reports::printOn(QPrinter& device, const Report& report)
{
    const PageRange range = device.printRange() == QPrinter::PageRange
                                ? PageRange{device.fromPage(), device.toPage()}
                                : PageRange{};
    StandbyWindow standby(report, device, range, QApplication::activeWindow());
    if (standby.make() == StandbyWindow::Outcome::Failed)
        sayFailed(QStringLiteral("The report could not be printed."),
                  QStringLiteral("Check that the printer is on and ready."));
}

void Reports::preview()
{
    previewOf(content());
}

void Reports::showBoardSheet()
{
    if (m_state.gLink.isBusy() || !m_state.offerOnline() || !m_state.canReachBoard())
        return;
    if (const auto sheet = boardSheet(m_state, QDateTime::currentDateTime()))
        previewOf(*sheet);
}

/// The window's own tool bar gets the PDF file beside its printer.
void Reports::previewOf(const Report& report)
{
    QPrintPreviewDialog dialog(&printer(), QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("frmReportPreview"));
    dialog.setWindowTitle(QStringLiteral("Report Preview"));
    dialog.resize(kPreviewSize);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [this, &report](QPrinter* device) {
                         if (isPreview(*device))
                             showPages(ReportPainter(report, *device), *device);
                         else // the dialog's own Print button
                             printOn(*device, report);
                     });
    if (auto* bar = dialog.findChild<QToolBar*>()) {
        QAction* save = bar->addAction(QStringLiteral("PDF..."));
        save->setToolTip(QStringLiteral("Save as PDF"));
        save->setObjectName(QStringLiteral("mnuPreviewPdf"));
        QObject::connect(save, &QAction::triggered, &dialog, [&] { savePdfOf(report); });
    }
    dialog.exec();
}

void Reports::savePdf()
{
    savePdfOf(content());
}

void Reports::savePdfOf(const Report& report)
{
    const QString ending = m_labels.empty() ? QStringLiteral(" report") : QStringLiteral(" labels");
    const auto path = m_state.prompts.askSaveFile(
        {QStringLiteral("Save Report as PDF"), QStringLiteral("PDF Files(*.pdf)|*.pdf|"),
         QFileInfo(m_state.gFileNamePath).path(),
         QFileInfo(report.name).completeBaseName() + ending + QStringLiteral(".pdf"),
         QStringLiteral("pdf")});
    if (path)
        writePdfOf(report, *path);
}

void Reports::previewLabels(const std::vector<int>& labels)
{
    const QScopedValueRollback chosen(m_labels, labels);
    if (!labels.empty())
        preview();
}

void Reports::saveLabelsPdf(const std::vector<int>& labels)
{
    const QScopedValueRollback chosen(m_labels, labels);
    if (!labels.empty())
        savePdf();
}

void Reports::writePdf(const QString& path)
{
    writePdfOf(content(), path);
}

void Reports::writePdfOf(const Report& report, const QString& path)
{
    QSaveFile file(path);
    const QString failed = QStringLiteral("The report could not be saved in\r\n%1")
                               .arg(QDir::toNativeSeparators(path));
    if (!file.open(QIODevice::WriteOnly))
        return sayFailed(failed, file.errorString());
    StandbyWindow::Outcome outcome{};
    {
        QPdfWriter pdf(&file);
        pdf.setTitle(QStringLiteral("TAMBRIX Report"));
        pdf.setPageLayout(printer().pageLayout());
        pdf.setPageMargins(kPageMargins, QPageLayout::Millimeter);
        outcome = StandbyWindow(report, pdf, {}, QApplication::activeWindow()).make();
    }
    if (outcome == StandbyWindow::Outcome::Cancelled)
        return file.cancelWriting();
    if (outcome == StandbyWindow::Outcome::Failed || !file.flush() || !file.commit())
        sayFailed(failed, file.errorString());
}

void Reports::sayFailed(const QString& what, const QString& reason)
{
    m_state.prompts.showMessage({BoxIcon::Critical, BoxButtons::Ok, "Print Report",
                                 (what + QStringLiteral("\r\n\r\n") + reason).toStdString()});
}

} // namespace tambrix
