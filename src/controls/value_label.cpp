#include "controls/value_label.h"

#include "controls/text_size.h"
#include "controls/tones.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace tambrix {

namespace {

/// Values change several times a second; their labels keep one width.
const QString kWidestValue = QStringLiteral("00000");

constexpr double kCorner = 4;

} // namespace

ValueLabel::ValueLabel(const QString& name, const QString& what, const QString& value)
    : m_what(spokenText(what))
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setValue(value);
}

void ValueLabel::setValue(const QString& value)
{
    if (value == text() && !accessibleName().isEmpty())
        return;
    const bool kept = std::exchange(m_fits, fitsAsBefore(value) || fits(value));
    setText(value);
    setAccessibleName(m_what + QStringLiteral(": ") + value);
    if (!kept || !m_fits)
        emit roomChanged();
}

/// Whether what is shown fits and `next` differs from it in digits alone. All digits are as wide,
/// and measuring a text takes longer than showing it.
bool ValueLabel::fitsAsBefore(const QString& next) const
{
    return m_fits && std::ranges::equal(text(), next, [](QChar before, QChar after) {
               return before == after || (before.isDigit() && after.isDigit());
           });
}

/// Whether `text` is no wider than the room that is kept. Numbers are not measured: nothing in them
/// is wider than a digit.
bool ValueLabel::fits(const QString& text) const
{
    const auto ofNumbers = [](QChar c) {
        return c.isDigit() || c == u'-' || c == u'.' || c == u',';
    };
    if (text.size() <= m_widest.size() && std::all_of(text.begin(), text.end(), ofNumbers))
        return true;
    const QFontMetrics metrics = fontMetrics();
    return metrics.horizontalAdvance(text) <= metrics.horizontalAdvance(m_widest);
}

void ValueLabel::setWidest(const QString& widest)
{
    m_widest = widest;
    m_fits = fits(text());
    updateGeometry();
    emit roomChanged();
}

void ValueLabel::setOnPlate()
{
    m_onPlate = true;
}

QSize ValueLabel::minimumSizeHint() const
{
    const int grid = gridOf(font());
    return QLabel::minimumSizeHint().expandedTo(
        {fontMetrics().horizontalAdvance(m_widest) + 2 * grid, fontMetrics().height()});
}

void ValueLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    m_fits = fits(text());
    emit roomChanged();
}

/// On a dark desktop the plate is light, as the given colours of a state text need it.
void ValueLabel::paintEvent(QPaintEvent* event)
{
    if (m_onPlate) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tonesOf(QGuiApplication::palette()).plate);
        painter.drawRoundedRect(rect(), kCorner, kCorner);
    }
    QLabel::paintEvent(event);
}

ValueLabel* makeValueLabel(const QString& name, const QString& value, const QString& what)
{
    auto* label = new ValueLabel(name, what, value);
    label->setWidest(kWidestValue);
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setIndent(6);
    setTextSize(*label, TextSize::Value);
    return label;
}

void setTabSequence(std::span<QWidget* const> controls)
{
    for (std::size_t i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls[i - 1], controls[i]);
}

} // namespace tambrix
