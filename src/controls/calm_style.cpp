// The measures of the program's look; how it is painted stands in calm_style_paint.cpp.

#include "controls/calm_style.h"

#include "controls/text_size.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QStyleOptionGroupBox>

#include <algorithm>

namespace tambrix {

namespace {

bool s_largeControls = false;

constexpr int kSmallestTarget = 28;
constexpr int kLargeTarget = 40;

int gridAt(const QWidget* widget)
{
    return widget == nullptr ? gridOf(QFont()) : gridOf(widget->font());
}

/// The height of what is pressed or typed into.
int targetHeight(int natural)
{
    return std::max(natural, s_largeControls ? kLargeTarget : kSmallestTarget);
}

QFont bold(QFont font)
{
    font.setBold(true);
    return font;
}

QRect groupBoxPart(const QStyleOptionGroupBox& box, QStyle::SubControl part, const QWidget* widget)
{
    const int grid = gridAt(widget);
    const QFontMetrics metrics(bold(widget == nullptr ? QFont() : widget->font()));
    const int top = box.text.isEmpty() ? 0 : grid + metrics.height();
    if (part == QStyle::SC_GroupBoxLabel)
        return {box.rect.x() + 2 * grid, box.rect.y() + grid + grid / 4,
                metrics.horizontalAdvance(box.text) + 2, metrics.height()};
    if (part == QStyle::SC_GroupBoxContents)
        return box.rect.adjusted(0, top, 0, 0);
    return box.rect;
}

/// The arrows stand one above the other at the right end, or side by side when they are large.
QRect spinBoxPart(const QRect& whole, QStyle::SubControl part, int grid)
{
    const bool beside = s_largeControls;
    const int arrow = beside ? std::max(whole.height(), kLargeTarget) : std::max(2 * grid, 20);
    const int column = beside ? 2 * arrow : arrow;
    const int x = whole.right() + 1 - column;
    const int half = whole.height() / 2;
    switch (part) {
    case QStyle::SC_SpinBoxUp:
        return beside ? QRect(x + arrow, whole.y(), arrow, whole.height())
                      : QRect(x, whole.y(), arrow, half);
    case QStyle::SC_SpinBoxDown:
        return beside ? QRect(x, whole.y(), arrow, whole.height())
                      : QRect(x, whole.y() + half, arrow, whole.height() - half);
    case QStyle::SC_SpinBoxEditField:
        return whole.adjusted(grid / 2, 2, -column - grid / 4, -2);
    default:
        return whole;
    }
}

} // namespace

void setPrimary(QWidget& button, bool primary)
{
    if (button.property("primary").toBool() == primary)
        return;
    button.setProperty("primary", primary);
    button.update();
}

void setCaptionBelow(QWidget& checkBox)
{
    checkBox.setProperty("captionBelow", true);
}

bool hasCaptionBelow(const QWidget* widget)
{
    return widget != nullptr && widget->property("captionBelow").toBool();
}

CalmStyle::CalmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void CalmStyle::setLargeControls(bool large)
{
    s_largeControls = large;
    for (QWidget* widget : QApplication::allWidgets()) {
        QEvent changed(QEvent::StyleChange);
        QApplication::sendEvent(widget, &changed);
        widget->updateGeometry();
    }
}

bool CalmStyle::largeControls()
{
    return s_largeControls;
}

int CalmStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const
{
    const int grid = gridAt(widget);
    switch (metric) {
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return 2 * grid;
    case PM_LayoutTopMargin: // a frame's caption has its space already
        return qobject_cast<const QGroupBox*>(widget) != nullptr ? grid : 2 * grid;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return 3 * grid / 2;
    case PM_ToolBarItemMargin:
    case PM_ToolBarItemSpacing:
        return grid;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        if (hasCaptionBelow(widget))
            return targetHeight(11 * grid / 2);
        return s_largeControls ? 3 * grid : QProxyStyle::pixelMetric(metric, option, widget);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int CalmStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0; // the desktop has an icon for OK and none for our own buttons
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QSize CalmStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                  const QSize& contents, const QWidget* widget) const
{
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const int grid = gridAt(widget);
    switch (type) {
    case CT_PushButton:
        return {std::max(contents.width() + 4 * grid, 10 * grid), targetHeight(9 * grid / 2)};
    case CT_SpinBox: {
        const int arrows =
            spinBoxPart(QRect(0, 0, 0, targetHeight(18 * grid / 5)), SC_SpinBoxUp, grid).width();
        return {contents.width() + grid + arrows * (s_largeControls ? 2 : 1),
                targetHeight(18 * grid / 5)};
    }
    case CT_CheckBox:
        if (hasCaptionBelow(widget)) {
            const int side = pixelMetric(PM_IndicatorWidth, option, widget);
            return {side, side + grid / 2 + widget->fontMetrics().height()};
        }
        [[fallthrough]];
    case CT_RadioButton:
    case CT_ComboBox:
        return {size.width(), targetHeight(size.height())};
    case CT_ToolButton:
    case CT_MenuItem:
    case CT_MenuBarItem:
    case CT_TabBarTab:
    case CT_ItemViewItem:
        return {size.width(), s_largeControls ? targetHeight(size.height()) : size.height()};
    case CT_GroupBox:
        if (const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option))
            size.setWidth(std::max(
                contents.width(), groupBoxPart(*box, SC_GroupBoxLabel, widget).width() + 4 * grid));
        return size;
    default:
        return size;
    }
}

QRect CalmStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl part, const QWidget* widget) const
{
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (control == CC_GroupBox && box != nullptr && part != SC_GroupBoxCheckBox)
        return groupBoxPart(*box, part, widget);
    if (control == CC_SpinBox)
        return visualRect(option->direction, option->rect,
                          spinBoxPart(option->rect, part, gridAt(widget)));
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect CalmStyle::subElementRect(SubElement element, const QStyleOption* option,
                                const QWidget* widget) const
{
    if (!hasCaptionBelow(widget))
        return QProxyStyle::subElementRect(element, option, widget);
    const int side = pixelMetric(PM_IndicatorWidth, option, widget);
    const QRect whole = option->rect;
    const QRect indicator(whole.x() + (whole.width() - side) / 2, whole.y(), side, side);
    switch (element) {
    case SE_CheckBoxIndicator:
        return indicator;
    case SE_CheckBoxContents:
        return {whole.x(), indicator.bottom() + 1, whole.width(),
                whole.bottom() - indicator.bottom()};
    case SE_CheckBoxClickRect:
    case SE_CheckBoxFocusRect:
        return whole;
    default:
        return QProxyStyle::subElementRect(element, option, widget);
    }
}

} // namespace tambrix
