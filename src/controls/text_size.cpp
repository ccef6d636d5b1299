#include "controls/text_size.h"

#include <QFontInfo>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <array>

namespace tambrix {

namespace {

constexpr const char* kSizeProperty = "textSize";
constexpr const char* kBoldProperty = "textBold";

constexpr std::array kSteps = {200, 150, 125, 100, 75};

/// What a screen needs at 100 %, in the pixel size of the desktop's font (12 on most).
constexpr int kPlaceWidth = 103;
constexpr int kPlaceHeight = 46;

constexpr int kLargeFont = 15; // px; it can still be read at 60 %

/// At 100 % the text of a screen is a third larger than the desktop's.
constexpr double kTextAt100 = 4.0 / 3.0;

double factorOf(int size)
{
    constexpr std::array factors = {1.0, 1.25, 1.5};
    return factors.at(static_cast<std::size_t>(size));
}

double pointsOf(const QFont& font)
{
    return QFontInfo(font).pointSizeF();
}

void applySize(QWidget& control, double textPoints)
{
    QFont font = control.font();
    font.setPointSizeF(textPoints * factorOf(control.property(kSizeProperty).toInt()));
    font.setBold(control.property(kBoldProperty).toBool());
    control.setFont(font);
}

} // namespace

void setTextSize(QWidget& control, TextSize size, bool bold)
{
    control.setProperty(kSizeProperty, static_cast<int>(size));
    control.setProperty(kBoldProperty, bold);
    applySize(control, pointsOf(control.font()));
}

int scaleStep(const QSize& place, const QFont& desktop)
{
    const int pixels = QFontInfo(desktop).pixelSize();
    const auto fits = [&](int step) {
        return place.width() * 100 >= kPlaceWidth * pixels * step &&
               place.height() * 100 >= kPlaceHeight * pixels * step;
    };
    for (const int step : kSteps) { // from the largest
        if (fits(step))
            return step;
    }
    return smallestStep(desktop);
}

int smallestStep(const QFont& desktop)
{
    return QFontInfo(desktop).pixelSize() < kLargeFont ? 75 : 60;
}

void applyStep(QWidget& screen, int percent, const QFont& desktop)
{
    const double points = pointsOf(desktop) * kTextAt100 * percent / 100;
    QFont font = screen.font();
    font.setPointSizeF(points);
    screen.setFont(font);
    for (QWidget* control : screen.findChildren<QWidget*>()) {
        if (control->property(kSizeProperty).isValid())
            applySize(*control, points);
    }
}

int gridOf(const QFont& font)
{
    return std::max(QFontInfo(font).pixelSize() / 2, 1);
}

} // namespace tambrix
