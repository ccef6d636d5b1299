#include "reports/standby_window.h"

#include "controls/forms.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kWindowWidth = 360;

} // namespace

StandbyWindow::StandbyWindow(Report report, QPagedPaintDevice& device, PageRange range,
                             QWidget* parent)
    : QDialog(parent),
      m_device(device),
      m_report(std::move(report), device),
      m_range(range),
      m_page(new QLabel),
      m_progress(new QProgressBar),
      m_loop([] { return true; })
{
    setObjectName(QStringLiteral("frmWait"));
    setWindowTitle(QStringLiteral("Please Standby ..."));
    setMinimumWidth(kWindowWidth);
    if (m_range.last == 0)
        m_range.last = m_report.pageCount();
    m_range.first = std::max(m_range.first, 1);
    m_range.last = std::min(m_range.last, m_report.pageCount());

    m_page->setObjectName(QStringLiteral("lblWait"));
    m_page->setText(QStringLiteral("Making the report"));
    m_progress->setObjectName(QStringLiteral("prgWait"));
    m_progress->setAccessibleName(QStringLiteral("Pages made"));
    m_progress->setRange(0, std::max(1, m_range.last - m_range.first + 1));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdWaitCancel"));
    connect(buttons, &QDialogButtonBox::rejected, this, &StandbyWindow::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_page);
    layout->addWidget(m_progress);
    layout->addWidget(buttons);
}

StandbyWindow::~StandbyWindow() = default;

StandbyWindow::Outcome StandbyWindow::make()
{
    CenterForm(*this);
    m_loop.start(paintPages());
    exec();
    if (auto* printer = dynamic_cast<QPrinter*>(&m_device); printer && m_outcome != Outcome::Made)
        printer->abort(); // or ending the painter would send the pages made so far
    m_loop.stop();        // ends the painter where it stands
    return m_outcome;
}

Task StandbyWindow::paintPages()
{
    QPainter painter;
    if (!painter.begin(&m_device)) {
        finish(Outcome::Failed);
        co_return;
    }
    for (int page = m_range.first; page <= m_range.last; ++page) {
        m_page->setText(QStringLiteral("Making page %1 of %2").arg(page).arg(m_report.pageCount()));
        co_await m_loop.pendingEvents();
        if (!paintOne(painter, page)) {
            finish(Outcome::Failed);
            co_return;
        }
        m_progress->setValue(page - m_range.first + 1);
    }
    co_await m_loop.pendingEvents();
    finish(painter.end() ? Outcome::Made : Outcome::Failed);
}

bool StandbyWindow::paintOne(QPainter& painter, int page)
{
    if (page > m_range.first && !m_device.newPage())
        return false;
    m_report.paintPage(painter, page - 1);
    return true;
}

void StandbyWindow::finish(Outcome outcome)
{
    m_outcome = outcome;
    done(outcome == Outcome::Made ? QDialog::Accepted : QDialog::Rejected);
}

void StandbyWindow::reject()
{
    finish(Outcome::Cancelled);
}

} // namespace tambrix
