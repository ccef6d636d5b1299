#pragma once

#include "reports/report_layout.h"

class QPagedPaintDevice;
class QPainter;

namespace tambrix {

/// A report on the pages of one paint device: printer, preview or PDF file.
class ReportPainter
{
public:
    /// Lays the report out for the device's paper. Narrow paper makes the type smaller.
    ReportPainter(Report report, const QPagedPaintDevice& device);

    int pageCount() const;

    /// Paints page `index` (from 0) on the device's current page.
    void paintPage(QPainter& painter, int index) const;

private:
    void paintBody(QPainter& painter, std::size_t index) const;
    void paintHeader(QPainter& painter, int index) const;
    void paintLine(QPainter& painter, const ReportLine& line) const;
    void paintCells(QPainter& painter, const ReportLine& line, double height) const;

    Report m_report;
    double m_deviceScale = 1; ///< device pixels in a point
    QSizeF m_paper;           ///< printable area, in points of the report's own type
    std::vector<ReportPage> m_pages;
};

} // namespace tambrix
