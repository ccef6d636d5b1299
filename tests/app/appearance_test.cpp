#include "app/appearance.h"
#include "controls/palettes.h"
#include "controls/tones.h"

#include <QApplication>
#include <QProxyStyle>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

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
    const Tones& tones = tonesOf(palette);
    const QColor text = palette.color(QPalette::WindowText);
    for (const QColor& ground : {tones.card, tones.track, tones.tint})
        EXPECT_GE(contrast(text, ground), 4.5) << ground.name().toStdString();
    for (const QColor& color : {tones.dim, tones.accent, tones.good, tones.alarm, tones.unusual}) {
        EXPECT_GE(contrast(color, tones.card), 4.5) << color.name().toStdString();
        EXPECT_GE(contrast(color, palette.color(QPalette::Window)), 4.5)
            << color.name().toStdString();
    }
    EXPECT_GE(contrast(tones.onAccent, tones.accent), 4.5);
    EXPECT_GE(contrast(tones.onAlarm, tones.alarm), 4.5);
    EXPECT_GE(contrast(tones.onAlarm, tones.good), 4.5);
    EXPECT_GE(contrast(tones.alarm, tones.alarmGround), 4.5);
    EXPECT_GE(contrast(tones.dim, tones.alarmGround), 4.5);
    for (const QColor& state : {QColor(0, 0, 255), QColor(192, 0, 0)})
        EXPECT_GE(contrast(state, tones.plate), 4.5) << state.name().toStdString();
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
    applyAppearance(true, Theme::Dark);
    EXPECT_EQ(QApplication::style()->objectName().toLower(), "windows");
    applyAppearance(false, Theme::Dark);
    const auto* calm = qobject_cast<QProxyStyle*>(QApplication::style());
    ASSERT_NE(calm, nullptr);
    EXPECT_EQ(calm->baseStyle()->objectName().toLower(), "fusion");
}

#endif
