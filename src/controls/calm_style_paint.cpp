// How the program's look is painted; its measures stand in calm_style.cpp.

#include "controls/calm_style.h"
#include "controls/plate.h"
#include "controls/tones.h"

#include <QAbstractSpinBox>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

#include <algorithm>

namespace tambrix {

namespace {

bool is(const QStyleOption& option, QStyle::StateFlag state)
{
    return option.state.testFlag(state);
}

bool isPrimary(const QWidget* widget)
{
    return widget != nullptr && widget->property("primary").toBool() && widget->isEnabled();
}

void paintButton(QPainter& painter, const QStyleOption& option, const QWidget* widget)
{
    const Tones& tones = tonesOf(option.palette);
    const bool focus = is(option, QStyle::State_HasFocus);
    const bool primary = isPrimary(widget);
    QColor ground = primary ? tones.accent : option.palette.color(QPalette::Button);
    if (is(option, QStyle::State_Sunken) || is(option, QStyle::State_On))
        ground = primary ? tones.bar : tones.tint;
    else if (is(option, QStyle::State_MouseOver) && is(option, QStyle::State_Enabled))
        ground = primary ? ground.lighter(110) : tones.track;
    const QColor ring = primary ? option.palette.color(QPalette::WindowText) : tones.accent;
    const auto* button = qobject_cast<const QPushButton*>(widget);
    const bool leading = button != nullptr && button->isDefault();
    paintPlate(painter, option.rect, ground,
               focus     ? ring
               : primary ? tones.accent
               : leading ? tones.accent
                         : tones.fieldLine,
               focus ? 2 : 1);
}

void paintCheck(QPainter& painter, const QRectF& box, const QColor& color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const double unit = box.width() / 24;
    painter.setPen(
        QPen(color, std::max(2.0, 2 * unit), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{box.topLeft() + QPointF(7, 12.5) * unit,
                                   box.topLeft() + QPointF(11, 16.5) * unit,
                                   box.topLeft() + QPointF(17.5, 7.5) * unit});
    painter.restore();
}

void paintCheckBox(QPainter& painter, const QStyleOption& option)
{
    const Tones& tones = tonesOf(option.palette);
    const bool on = is(option, QStyle::State_On) || is(option, QStyle::State_NoChange);
    const bool live = is(option, QStyle::State_Enabled);
    const QColor line = on && live ? tones.accent : tones.fieldLine;
    const bool marked = is(option, QStyle::State_HasFocus);
    paintPlate(painter, option.rect, on ? tones.tint : option.palette.color(QPalette::Base),
               marked ? tones.accent : line, marked || (on && live) ? 2 : 1, 4);
    if (is(option, QStyle::State_On))
        paintCheck(painter, option.rect, live ? tones.accent : tones.dim);
    else if (is(option, QStyle::State_NoChange))
        painter.fillRect(option.rect.adjusted(5, option.rect.height() / 2 - 1, -5,
                                              -option.rect.height() / 2 + 1),
                         tones.accent);
}

/// The large box, and its caption below it.
void paintTallBox(const CalmStyle& style, QPainter& painter, const QStyleOptionButton& box,
                  const QWidget* widget)
{
    QStyleOptionButton part = box;
    part.rect = style.subElementRect(QStyle::SE_CheckBoxIndicator, &box, widget);
    paintCheckBox(painter, part);
    style.drawItemText(&painter, style.subElementRect(QStyle::SE_CheckBoxContents, &box, widget),
                       Qt::AlignHCenter | Qt::AlignBottom | Qt::TextShowMnemonic, box.palette,
                       is(box, QStyle::State_Enabled), box.text, QPalette::WindowText);
}

void paintToolBar(QPainter& painter, const QStyleOption& bar)
{
    painter.fillRect(bar.rect, tonesOf(bar.palette).card);
    painter.fillRect(QRect(bar.rect.left(), bar.rect.bottom(), bar.rect.width(), 1),
                     tonesOf(bar.palette).line);
}

void paintRadio(QPainter& painter, const QStyleOption& option)
{
    const Tones& tones = tonesOf(option.palette);
    const bool on = is(option, QStyle::State_On);
    const bool live = is(option, QStyle::State_Enabled);
    const double half = option.rect.height() / 2.0;
    paintPlate(painter, option.rect, option.palette.color(QPalette::Base),
               on && live ? tones.accent : tones.dim, on ? 2 : 1, half);
    if (!on)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(live ? tones.accent : tones.dim);
    painter.drawEllipse(QRectF(option.rect).center(), half / 2, half / 2);
    painter.restore();
}

void paintArrow(QPainter& painter, const QRect& place, bool up, const QColor& color)
{
    const double unit = std::max(4.0, std::min(place.height(), place.width()) / 5.0);
    const QPointF middle = QRectF(place).center();
    const double way = up ? -1 : 1;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF{middle + QPointF(-unit, -way * unit / 2),
                                  middle + QPointF(unit, -way * unit / 2),
                                  middle + QPointF(0, way * unit / 2)});
}

void paintSpinBox(const CalmStyle& style, QPainter& painter, const QStyleOptionSpinBox& box,
                  const QWidget* widget)
{
    const Tones& tones = tonesOf(box.palette);
    const bool focus = is(box, QStyle::State_HasFocus);
    const bool live = is(box, QStyle::State_Enabled);
    paintPlate(painter, box.rect, box.palette.color(live ? QPalette::Base : QPalette::Window),
               focus ? tones.accent : tones.fieldLine, focus ? 2 : 1);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto part : {QStyle::SC_SpinBoxUp, QStyle::SC_SpinBoxDown}) {
        const bool up = part == QStyle::SC_SpinBoxUp;
        const QRect place = style.subControlRect(QStyle::CC_SpinBox, &box, part, widget);
        const bool can = live && box.stepEnabled.testFlag(up ? QAbstractSpinBox::StepUpEnabled
                                                             : QAbstractSpinBox::StepDownEnabled);
        if (can && box.activeSubControls == part)
            painter.fillRect(place.adjusted(1, 2, -2, -2),
                             is(box, QStyle::State_Sunken) ? tones.tint : tones.track);
        painter.fillRect(QRect(place.left(), box.rect.top() + 2, 1, box.rect.height() - 4),
                         tones.line);
        paintArrow(painter, place, up, can ? tones.dim : tones.line);
    }
    painter.restore();
}

void paintGroupBox(const CalmStyle& style, QPainter& painter, const QStyleOptionGroupBox& box,
                   const QWidget* widget)
{
    const Tones& tones = tonesOf(box.palette);
    paintPlate(painter, box.rect, tones.card, tones.line, 1, kPlateCorner + 1);
    if (box.text.isEmpty())
        return;
    painter.save();
    QFont font = painter.font();
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(tones.dim);
    painter.drawText(
        style.subControlRect(QStyle::CC_GroupBox, &box, QStyle::SC_GroupBoxLabel, widget),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, box.text);
    painter.restore();
}

void paintProgress(QPainter& painter, const QStyleOptionProgressBar& bar)
{
    const double range = std::max(1, bar.maximum - bar.minimum);
    const double share = std::clamp((bar.progress - bar.minimum) / range, 0.0, 1.0);
    QRect filled = bar.rect;
    filled.setWidth(qRound(filled.width() * share));
    painter.save();
    painter.setClipRect(filled);
    const QColor color = bar.palette.color(QPalette::Highlight);
    paintPlate(painter, bar.rect, color, color);
    painter.restore();
}

} // namespace

void CalmStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const
{
    if (const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        control == CC_GroupBox && box != nullptr)
        return paintGroupBox(*this, *painter, *box, widget);
    if (const auto* box = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
        control == CC_SpinBox && box != nullptr)
        return paintSpinBox(*this, *painter, *box, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void CalmStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    if (element == CE_PushButtonLabel && isPrimary(widget)) {
        QStyleOptionButton label = *qstyleoption_cast<const QStyleOptionButton*>(option);
        label.palette.setColor(QPalette::ButtonText, tonesOf(option->palette).onAccent);
        return QProxyStyle::drawControl(element, &label, painter, widget);
    }
    if (const auto* box = qstyleoption_cast<const QStyleOptionButton*>(option);
        element == CE_CheckBox && box != nullptr && hasCaptionBelow(widget))
        return paintTallBox(*this, *painter, *box, widget);
    if (element == CE_ToolBar)
        return paintToolBar(*painter, *option);
    if (element == CE_ProgressBarGroove) {
        const Tones& tones = tonesOf(option->palette);
        return paintPlate(*painter, option->rect, tones.track, tones.track);
    }
    if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
        element == CE_ProgressBarContents && bar != nullptr)
        return paintProgress(*painter, *bar);
    QProxyStyle::drawControl(element, option, painter, widget);
}

void CalmStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case PE_PanelButtonCommand:
        return paintButton(*painter, *option, widget);
    case PE_IndicatorCheckBox:
        return paintCheckBox(*painter, *option);
    case PE_IndicatorRadioButton:
        return paintRadio(*painter, *option);
    case PE_FrameDefaultButton:
        return;
    case PE_FrameTabWidget:
        return paintPlate(*painter, option->rect, option->palette.color(QPalette::Window),
                          tonesOf(option->palette).line, 1, 4);
    case PE_Frame:
        return paintPlate(*painter, option->rect, Qt::transparent,
                          tonesOf(option->palette).fieldLine, 1, 4);
    case PE_PanelScrollAreaCorner:
        return painter->fillRect(option->rect, option->palette.color(QPalette::Base));
    case PE_FrameFocusRect:
        if (qobject_cast<const QPushButton*>(widget) != nullptr)
            return; // its line says it
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

} // namespace tambrix
