#pragma once

#include <QProxyStyle>

namespace tambrix {

/// Marks the one button of a window that the user most probably wants. A look only: what Enter
/// does is not changed by it.
void setPrimary(QWidget& button, bool primary);

/// A check box that is marked so is large and has its caption below it.
void setCaptionBelow(QWidget& checkBox);

bool hasCaptionBelow(const QWidget* widget);

/// The program's look: cards for frames, flat one-pixel lines, round corners, no gradients. All
/// measures grow with the type of the control. Colours are the palette's and `tonesOf` it.
class CalmStyle : public QProxyStyle
{
    Q_OBJECT

public:
    CalmStyle();

    /// Targets of 40 px and more, the arrows of a field side by side, in all windows at once.
    static void setLargeControls(bool large);
    static bool largeControls();

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace tambrix
