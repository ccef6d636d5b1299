#pragma once

#include "platform/cooperative_loop.h"
#include "reports/report_painter.h"

#include <QDialog>

class QLabel;
class QProgressBar;

namespace tambrix {

/// Pages to print, counted from 1; all of them while `last` is 0.
struct PageRange
{
    int first = 1;
    int last = 0;
};

/// "Please Standby ...": makes a report page after page while it is open, each in a turn of its
/// own, and shows how far it is. Cancel ends it before the next page.
class StandbyWindow : public QDialog
{
    Q_OBJECT

public:
    enum class Outcome { Made, Cancelled, Failed };

    StandbyWindow(Report report, QPagedPaintDevice& device, PageRange range = {},
                  QWidget* parent = nullptr);
    ~StandbyWindow() override;

    /// Makes the report, behind the modal window, and says how that ended.
    Outcome make();

    void reject() override; ///< Cancel, Escape, closing the window

private:
    Task paintPages();
    bool paintOne(QPainter& painter, int page);
    void finish(Outcome outcome);

    QPagedPaintDevice& m_device;
    ReportPainter m_report;
    PageRange m_range;
    Outcome m_outcome = Outcome::Cancelled;
    QLabel* m_page;
    QProgressBar* m_progress;
    CooperativeLoop m_loop;
};

} // namespace tambrix
