#include "app/appearance.h"

#include <QApplication>
#include <QProxyStyle>

#include <gtest/gtest.h>

#include <cmath>

using namespace tambrix;

namespace {

/// Relative luminance and contrast as accessibility guidelines reckon them.
double luminance(const QColor& color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double one = luminance(a) + 0.05;
    const double other = luminance(b) + 0.05;
    return one > other ? one / other : other / one;
}

void expectEveryTextStandsOut(const QPalette& palette)
{
    struct Pair
    {
        QPalette::ColorRole text, ground;
    };
    const Pair pairs[] = {
        {QPalette::WindowText, QPalette::Window},         {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},        {QPalette::ButtonText, QPalette::Button},
        {QPalette::ToolTipText, QPalette::ToolTipBase},   {QPalette::Link, QPalette::Base},
        {QPalette::HighlightedText, QPalette::Highlight},
    };
    const auto stands = [&](QPalette::ColorGroup group, const Pair& pair) {
        return contrast(palette.color(group, pair.text), palette.color(group, pair.ground));
    };
    for (const Pair& pair : pairs) {
        EXPECT_GE(stands(QPalette::Active, pair), 4.5) << pair.text;
        EXPECT_GE(stands(QPalette::Inactive, pair), 4.5) << pair.text;
        EXPECT_GE(stands(QPalette::Disabled, pair), 2.5) << pair.text;
    }
}

} // namespace

TEST(Appearance, EveryTextStandsOutFromItsGround)
{
    QApplication::setStyle("Fusion");
    expectEveryTextStandsOut(lightPalette());
    expectEveryTextStandsOut(darkPalette());
}

#if !defined(Q_OS_WIN) && !defined(Q_OS_MACOS)

TEST(Appearance, AStyleThatTheUserAskedForStays)
{
    QApplication::setStyle("Windows");
    applyAppearance(true);
    EXPECT_EQ(QApplication::style()->objectName().toLower(), "windows");
    applyAppearance(false);
    const auto* calm = qobject_cast<QProxyStyle*>(QApplication::style());
    ASSERT_NE(calm, nullptr);
    EXPECT_EQ(calm->baseStyle()->objectName().toLower(), "fusion");
}

#endif
