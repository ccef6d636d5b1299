// What HistoryPlots draws of its data, and what the hand does with it.

#include "controls/tones.h"
#include "data/operating_mode.h"
#include "history/history_plots.h"
#include "history/history_text.h"

#include <qcustomplot.h>

#include <QKeyEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tambrix {

namespace {

constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();
constexpr double kZoomStep = 1.5;
constexpr double kPanStep = 0.15;
constexpr double kPointerStep = 0.01; // of the width
constexpr UtcMs kNarrowest = 10 * kSecond;
constexpr UtcMs kWidest = 400 * kDay;
constexpr double kAlarmHalf = 0.35;   // of the height of an alarm's line
constexpr int kTextMargin = 6;        // px
constexpr double kFinestPart = 0.001; // of the width: what is shorter is drawn as long as this

double seconds(UtcMs time)
{
    return static_cast<double>(time) / kSecond;
}

UtcMs milliseconds(double time)
{
    return std::llround(time * kSecond);
}

QString dateFormat(UtcMs span)
{
    if (span <= 10 * kMinute)
        return QStringLiteral("HH:mm:ss");
    return span <= 36 * kHour ? QStringLiteral("HH:mm") : QStringLiteral("yyyy-MM-dd\nHH:mm");
}

/// The first of `texts` for which there is room, or what can be recognised of the last one.
QString fitting(QStringList texts, int room, const QFont& font)
{
    constexpr qsizetype kRecognised = 4; // characters after the first word
    const QFontMetrics metrics(font);
    const QString word = texts.back().section(u' ', 0, 0);
    const QString cut = metrics.elidedText(texts.back(), Qt::ElideRight, room);
    if (cut.size() > word.size() + kRecognised)
        texts += cut;
    texts += word;
    const auto text = std::ranges::find_if(
        texts, [&](const QString& one) { return metrics.horizontalAdvance(one) <= room; });
    return text == texts.end() ? QString() : *text;
}

QColor groundOf(OperatingMode mode, const Tones& tones)
{
    QColor manual = tones.unusual;
    manual.setAlphaF(0.35F);
    return mode == OperatingMode::Auto     ? tones.tint
           : mode == OperatingMode::Manual ? manual
                                           : tones.track;
}

} // namespace

void HistoryPlots::show(PlotData data)
{
    m_data = std::move(data);
    setAccessibleDescription(summaryOf(m_data));
    showTime();
    showSpeed();
    showCycles();
    showBars(palette());
    pointAt(m_pointed);
    m_plot->replot();
}

void HistoryPlots::showTime()
{
    m_setting = true;
    const QSharedPointer<QCPAxisTickerDateTime> ticker(new QCPAxisTickerDateTime);
    ticker->setDateTimeFormat(dateFormat(m_data.span.length()));
    ticker->setTickCount(8);
    for (int row = 0; row < Rows; ++row) {
        timeAxis(row).setTicker(ticker);
        timeAxis(row).setRange(seconds(m_data.span.begin), seconds(m_data.span.end));
    }
    m_setting = false;
}

void HistoryPlots::showSpeed()
{
    QVector<double> times;
    std::array<QVector<double>, 3> values;
    double top = 100;
    for (const SpeedRow& row : m_data.speed) {
        times += seconds(row.begin);
        values[0] += row.range ? row.range->low : kNothing;
        values[1] += row.range ? row.range->high : kNothing;
        values[2] += row.range ? row.range->last : kNothing;
        top = std::max<double>(top, row.range ? row.range->high : 0);
    }
    m_lowest->setData(times, values[0], true);
    m_highest->setData(times, values[1], true);
    m_speed->setData(times, values[2], true);
    m_rects[Speed]->axis(QCPAxis::atLeft)->setRange(0, top * 1.1);
}

void HistoryPlots::showCycles()
{
    QVector<double> times;
    QVector<double> rates;
    double top = 10;
    UtcMs before = 0;
    for (const RatePoint& point : m_data.counted) {
        if (point.time.begin != before && !times.empty()) { // off line in between
            times += seconds(before);
            rates += kNothing;
        }
        times += seconds(point.time.begin);
        rates += point.rate.value_or(kNothing);
        top = std::max(top, point.rate.value_or(0));
        before = point.time.end;
    }
    if (!times.empty()) {
        times += seconds(before);
        rates += rates.back();
    }
    m_counted->setData(times, rates, true);
    times.clear();
    rates.clear();
    for (const ExpectedPoint& point : m_data.expected) {
        times += seconds(point.time);
        rates += point.rate.value_or(kNothing);
        top = std::max(top, point.rate.value_or(0));
    }
    m_expected->setData(times, rates, true);
    m_rects[Cycles]->axis(QCPAxis::atLeft)->setRange(0, top * 1.2);
    m_units[Cycles]->setText(QStringLiteral("ductor %1, expected").arg(m_data.ductor + 1));
}

void HistoryPlots::showBars(const QPalette& palette)
{
    for (QCPAbstractItem* bar : m_bars)
        m_plot->removeItem(bar);
    m_bars.clear();
    const Tones& tones = tonesOf(palette);
    for (const AlarmSpan& alarm : m_data.alarms)
        addBar(Alarms, alarm.time, alarm.ductor + 1 - kAlarmHalf, alarm.ductor + 1 + kAlarmHalf,
               tones.alarm);
    showModes(tones, palette.color(QPalette::WindowText));
    showLabels(tones, palette.color(QPalette::WindowText));
}

/// Only the mode of the inputs counts: what else they say does not end a band.
void HistoryPlots::showModes(const Tones& tones, const QColor& text)
{
    std::optional<TimeSpan> band;
    OperatingMode mode = OperatingMode::Off;
    const auto draw = [&] {
        if (!band)
            return;
        addBar(Bands, *band, 1, 2, groundOf(mode, tones));
        addText(*band, 1.5, {operatingModeText(mode)}, text);
    };
    for (const ValueSpan& span : m_data.inputs) {
        if (!span.value)
            continue;
        const OperatingMode now = operatingMode(static_cast<int>(*span.value));
        if (band && now == mode && band->end == span.time.begin) {
            band->end = span.time.end;
            continue;
        }
        draw();
        band = span.time;
        mode = now;
    }
    draw();
}

void HistoryPlots::showLabels(const Tones& tones, const QColor& text)
{
    for (const ValueSpan& span : m_data.labels) {
        if (!span.value)
            continue;
        addBar(Bands, span.time, 0, 1, tones.card);
        const QString label = labelText(*span.value, m_data.names);
        addText(span.time, 0.5, {QStringLiteral("label ") + label, label}, text);
    }
}

void HistoryPlots::addBar(Row row, TimeSpan time, double from, double to, const QColor& ground)
{
    const double finest = seconds(m_data.span.length()) * kFinestPart;
    auto* bar = new QCPItemRect(m_plot);
    bar->setClipAxisRect(m_rects[row]);
    for (QCPItemPosition* corner : {bar->topLeft, bar->bottomRight})
        corner->setAxes(&timeAxis(row), m_rects[row]->axis(QCPAxis::atLeft));
    bar->topLeft->setCoords(seconds(time.begin), to);
    bar->bottomRight->setCoords(std::max(seconds(time.end), seconds(time.begin) + finest), from);
    bar->setBrush(ground);
    bar->setPen(row == Bands ? QPen(tonesOf(palette()).line) : QPen(Qt::NoPen));
    m_bars.push_back(bar);
}

/// `texts` say the same in different lengths, see fitting().
void HistoryPlots::addText(TimeSpan time, double height, const QStringList& texts,
                           const QColor& colour)
{
    const UtcMs begin = std::max(time.begin, m_data.span.begin);
    const UtcMs end = std::min(time.end, m_data.span.end);
    const double part =
        static_cast<double>(end - begin) / static_cast<double>(m_data.span.length());
    const QString text =
        fitting(texts, static_cast<int>(part * m_rects[Bands]->width()) - 2 * kTextMargin, font());
    if (text.isEmpty())
        return;
    auto* item = new QCPItemText(m_plot);
    item->setClipAxisRect(m_rects[Bands]);
    item->position->setAxes(&timeAxis(Bands), m_rects[Bands]->axis(QCPAxis::atLeft));
    item->position->setCoords(seconds(begin), height);
    item->setPositionAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    item->setPadding(QMargins(kTextMargin, 0, 0, 0));
    item->setText(text);
    item->setColor(colour);
    item->setFont(font());
    m_bars.push_back(item);
}

/// What depends on the room that the rows have: the numbers of the ductors, one above the other,
/// and the texts in the bands.
void HistoryPlots::fitToSize()
{
    const QSize size(m_rects[Bands]->width(), m_rects[Alarms]->height());
    if (size == m_fitted)
        return;
    m_fitted = size;
    const int line = std::max(size.height() / kDuctors, 1);
    const int usual = QFontInfo(font()).pixelSize();
    const int step = 3 * line < 2 * usual ? 2 : 1; // too small to read: only each second one
    const QSharedPointer<QCPAxisTickerFixed> ductors(new QCPAxisTickerFixed);
    ductors->setTickOrigin(1);
    ductors->setTickStep(step);
    m_rects[Alarms]->axis(QCPAxis::atLeft)->setTicker(ductors);
    QFont numbers = font();
    numbers.setPixelSize(std::min(step * line, usual));
    m_rects[Alarms]->axis(QCPAxis::atLeft)->setTickLabelFont(numbers);
    showBars(palette());
}

void HistoryPlots::pointAt(std::optional<UtcMs> time)
{
    m_pointed = time && m_data.span.contains(*time) ? time : std::nullopt;
    const double at = seconds(m_pointed.value_or(0));
    for (QCPItemStraightLine* line : m_lines) {
        line->setVisible(m_pointed.has_value());
        line->point1->setCoords(at, 0);
        line->point2->setCoords(at, 1);
    }
    m_tip->setVisible(m_pointed.has_value());
    if (m_pointed) {
        const QString values = valuesAt(m_data, *m_pointed);
        const QString when = localTime(*m_pointed, m_data.span.end - 1);
        m_tip->setText(values.isEmpty() ? when : when + u'\n' + values);
        const bool left = *m_pointed > m_data.span.begin + m_data.span.length() / 2;
        m_tip->setPositionAlignment((left ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignTop);
        m_tip->position->setCoords(at, 0.04);
        emit pointed(when + QStringLiteral(": ") + (values.isEmpty() ? tr("not read") : values));
    }
    m_plot->replot(QCustomPlot::rpQueuedReplot);
}

/// The user has moved or zoomed one of the rows.
void HistoryPlots::want(double begin, double end)
{
    if (m_setting)
        return;
    const UtcMs middle = milliseconds((begin + end) / 2);
    const UtcMs length = std::clamp(milliseconds(end - begin), kNarrowest, kWidest);
    emit spanWanted({middle - length / 2, middle - length / 2 + length});
}

void HistoryPlots::pan(double part)
{
    const UtcMs by = std::llround(static_cast<double>(m_data.span.length()) * part);
    emit spanWanted({m_data.span.begin + by, m_data.span.end + by});
}

void HistoryPlots::zoom(double factor)
{
    const double half = seconds(m_data.span.length()) / 2;
    const double middle = m_pointed ? seconds(*m_pointed) : seconds(m_data.span.begin) + half;
    want(middle - half * factor, middle + half * factor);
}

void HistoryPlots::movePointer(int steps)
{
    const UtcMs step = std::llround(static_cast<double>(m_data.span.length()) * kPointerStep);
    const UtcMs from = m_pointed.value_or(m_data.span.begin + m_data.span.length() / 2);
    pointAt(std::clamp(from + steps * step, m_data.span.begin, m_data.span.end - 1));
}

void HistoryPlots::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_Left:
        return control ? movePointer(-1) : pan(-kPanStep);
    case Qt::Key_Right:
        return control ? movePointer(1) : pan(kPanStep);
    case Qt::Key_Plus:
        return zoom(1 / kZoomStep);
    case Qt::Key_Minus:
        return zoom(kZoomStep);
    case Qt::Key_Home:
        return pan(-1);
    case Qt::Key_End:
        return pan(1);
    default:
        QWidget::keyPressEvent(event);
    }
}

bool HistoryPlots::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseMove) {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        const QRect inside = m_rects[Speed]->rect();
        const bool over = mouse.pos().x() >= inside.left() && mouse.pos().x() <= inside.right();
        pointAt(over ? std::optional(milliseconds(timeAxis(Speed).pixelToCoord(mouse.pos().x())))
                     : std::nullopt);
    } else if (event->type() == QEvent::Leave) {
        pointAt(std::nullopt);
    } else if (event->type() == QEvent::MouseButtonPress) {
        setFocus(Qt::MouseFocusReason);
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tambrix
