#include "history/history_plots.h"

#include "controls/palettes.h"
#include "controls/tones.h"

#include <qcustomplot.h>

#include <QEvent>
#include <QVBoxLayout>

namespace tambrix {

namespace {

constexpr int kAnySize = 10'000;        // px
constexpr QSize kSmallestRect(50, 24);  // px
constexpr QSize kSmallestBands(50, 40); // two lines of text
constexpr std::array kHeights = {5, 4, 4, 1};

QColor faint(QColor colour)
{
    colour.setAlphaF(0.25F);
    return colour;
}

} // namespace

HistoryPlots::HistoryPlots() : m_plot(new QCustomPlot)
{
    setObjectName(QStringLiteral("picHistory"));
    setAccessibleName(QStringLiteral("History plots"));
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_plot);
    m_plot->setFocusPolicy(Qt::NoFocus);
    m_plot->setFocusProxy(this);
    m_plot->setMouseTracking(true);
    m_plot->installEventFilter(this);
    makeRects();
    makeTitles();
    makeGraphs();
    makeCrosshair();
    colour(palette());
    connect(m_plot, &QCustomPlot::afterLayout, this, &HistoryPlots::fitToSize);
}

QCPAxis& HistoryPlots::timeAxis(int row) const
{
    return *m_rects[static_cast<std::size_t>(row)]->axis(QCPAxis::atBottom);
}

void HistoryPlots::makeRects()
{
    m_plot->setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    m_plot->plotLayout()->clear();
    auto* margins = new QCPMarginGroup(m_plot);
    for (int row = 0; row < Rows; ++row) {
        const auto at = static_cast<std::size_t>(row);
        auto* rect = new QCPAxisRect(m_plot);
        m_plot->plotLayout()->addElement(row, 1, rect);
        m_plot->plotLayout()->setRowStretchFactor(row, kHeights[at]);
        rect->setMinimumSize(row == Bands ? kSmallestBands : kSmallestRect);
        rect->setMarginGroup(QCP::msLeft | QCP::msRight, margins);
        rect->setMinimumMargins(QMargins(4, 2, 4, 2));
        rect->setRangeDrag(Qt::Horizontal);
        rect->setRangeZoom(Qt::Horizontal);
        rect->setupFullAxesBox();
        for (const auto side : {QCPAxis::atTop, QCPAxis::atRight})
            rect->axis(side)->setTicks(false);
        rect->axis(QCPAxis::atBottom)->setTickLabels(row == Bands);
        m_rects[at] = rect;
        connect(rect->axis(QCPAxis::atBottom), qOverload<const QCPRange&>(&QCPAxis::rangeChanged),
                this, [this](const QCPRange& range) { want(range.lower, range.upper); });
    }
    m_plot->plotLayout()->setColumnStretchFactor(0, 1);
    m_plot->plotLayout()->setColumnStretchFactor(1, 12);
    m_plot->plotLayout()->setRowSpacing(2);
    makeValueAxes();
}

/// Alarms have a row for each ductor, the bands need no numbers, the others a few.
void HistoryPlots::makeValueAxes()
{
    for (const Row row : {Speed, Cycles})
        m_rects[row]->axis(QCPAxis::atLeft)->ticker()->setTickCount(4);
    QCPAxis* alarms = m_rects[Alarms]->axis(QCPAxis::atLeft);
    alarms->setRange(0.5, kDuctors + 0.5);
    alarms->setRangeReversed(true);
    alarms->grid()->setVisible(false);
    m_rects[Bands]->axis(QCPAxis::atLeft)->setRange(0, 2);
    m_rects[Bands]->axis(QCPAxis::atLeft)->setTickLabels(false);
    m_rects[Bands]->axis(QCPAxis::atLeft)->setTicks(false);
    m_rects[Bands]->axis(QCPAxis::atLeft)->grid()->setVisible(false);
}

void HistoryPlots::makeGraphs()
{
    const auto graph = [this](Row row) {
        return m_plot->addGraph(m_rects[row]->axis(QCPAxis::atBottom),
                                m_rects[row]->axis(QCPAxis::atLeft));
    };
    m_lowest = graph(Speed);
    m_highest = graph(Speed);
    m_highest->setChannelFillGraph(m_lowest);
    m_speed = graph(Speed);
    m_expected = graph(Cycles);
    m_expected->setLineStyle(QCPGraph::lsStepLeft);
    m_counted = graph(Cycles);
    m_counted->setLineStyle(QCPGraph::lsStepLeft);
}

void HistoryPlots::makeCrosshair()
{
    for (int row = 0; row < Rows; ++row) {
        auto* line = new QCPItemStraightLine(m_plot);
        line->setClipAxisRect(m_rects[static_cast<std::size_t>(row)]);
        for (QCPItemPosition* point : {line->point1, line->point2}) {
            point->setAxes(&timeAxis(row),
                           m_rects[static_cast<std::size_t>(row)]->axis(QCPAxis::atLeft));
            point->setType(QCPItemPosition::ptPlotCoords);
            point->setTypeY(QCPItemPosition::ptAxisRectRatio);
            point->setAxisRect(m_rects[static_cast<std::size_t>(row)]);
        }
        line->setVisible(false);
        m_lines[static_cast<std::size_t>(row)] = line;
    }
    m_tip = new QCPItemText(m_plot);
    m_tip->position->setAxes(&timeAxis(Speed), m_rects[Speed]->axis(QCPAxis::atLeft));
    m_tip->position->setAxisRect(m_rects[Speed]);
    m_tip->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
    m_tip->setPadding(QMargins(6, 4, 6, 4));
    m_tip->setTextAlignment(Qt::AlignLeft);
    m_tip->setVisible(false);
}

QCPTextElement* HistoryPlots::makeHead(const char* text, int above)
{
    auto* head = new QCPTextElement(m_plot, QLatin1String(text));
    head->setTextFlags(Qt::AlignLeft | Qt::AlignTop);
    head->setMargins(QMargins(0, above, 8, 0));
    return head;
}

void HistoryPlots::addTitle(Row row, const char* title, const char* unit)
{
    auto* both = new QCPLayoutGrid;
    both->setRowSpacing(0);
    both->setMaximumSize(kAnySize, kAnySize); // not as high as its texts
    m_titles[row] = makeHead(title, 6);
    m_units[row] = makeHead(unit, 2);
    m_units[row]->setMaximumSize(kAnySize, kAnySize);
    both->addElement(0, 0, m_titles[row]);
    both->addElement(1, 0, m_units[row]);
    m_plot->plotLayout()->addElement(row, 0, both);
}

void HistoryPlots::makeTitles()
{
    addTitle(Speed, "Speed", "cans per minute");
    addTitle(Cycles, "Cycles a minute", "counted, expected");
    addTitle(Alarms, "Alarms", "ductor");
    addTitle(Bands, "Mode, label", "");
}

void HistoryPlots::colourAxis(QCPAxis& axis, const QPalette& palette)
{
    const Tones& tones = tonesOf(palette);
    axis.setBasePen(QPen(tones.line));
    axis.setTickPen(QPen(tones.line));
    axis.setSubTickPen(QPen(Qt::NoPen));
    axis.setTickLabelColor(tones.dim);
    axis.setTickLabelFont(font());
    axis.grid()->setPen(QPen(tones.line, 0, Qt::DotLine));
    axis.grid()->setZeroLinePen(QPen(tones.line));
}

void HistoryPlots::colour(const QPalette& palette)
{
    const Tones& tones = tonesOf(palette);
    m_plot->setBackground(palette.color(QPalette::Window));
    QFont bold = font();
    bold.setBold(true);
    for (std::size_t row = 0; row < m_rects.size(); ++row) {
        m_rects[row]->setBackground(tones.card);
        m_titles[row]->setTextColor(palette.color(QPalette::WindowText));
        m_titles[row]->setFont(bold);
        m_units[row]->setTextColor(tones.dim);
        m_units[row]->setFont(font());
        for (QCPAxis* axis : m_rects[row]->axes())
            colourAxis(*axis, palette);
        m_lines[row]->setPen(QPen(tones.accent, 1, Qt::DashLine));
    }
    m_lowest->setPen(QPen(Qt::NoPen));
    m_highest->setPen(QPen(Qt::NoPen));
    m_highest->setBrush(faint(tones.bar));
    m_speed->setPen(QPen(tones.accent, 2));
    m_expected->setPen(QPen(tones.dim, 1));
    m_counted->setPen(QPen(tones.unusual, 2));
    m_tip->setBrush(palette.color(QPalette::ToolTipBase));
    m_tip->setColor(palette.color(QPalette::ToolTipText));
    m_tip->setPen(QPen(tones.accent));
    m_tip->setFont(font());
    m_fitted = {};
    showBars(palette);
}

QPixmap HistoryPlots::picture(int scale)
{
    const QPalette shown = palette();
    colour(lightPalette());
    const QPixmap picture = m_plot->toPixmap(m_plot->width(), m_plot->height(), scale);
    colour(shown);
    m_plot->replot(QCustomPlot::rpQueuedReplot);
    return picture;
}

void HistoryPlots::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool look = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (!look || m_tip == nullptr)
        return;
    colour(palette());
    m_plot->replot(QCustomPlot::rpQueuedReplot);
}

} // namespace tambrix
