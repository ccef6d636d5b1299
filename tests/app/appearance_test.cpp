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
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::WindowText, QPalette::Window},         {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},        {QPalette::ButtonText, QPalette::Button},
        {QPalette::ToolTipText, QPalette::ToolTipBase},   {QPalette::Link, QPalette::Base},
        {QPalette::HighlightedText, QPalette::Highlight},
    };
    for (const auto& [text, ground] : pairs) {
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const double least = group == QPalette::Disabled ? 2.5 : 4.5;
            EXPECT_GE(contrast(palette.color(group, text), palette.color(group, ground)), least)
                << text;
        }
    }
    const Tones& tones = tonesOf(palette);
    const QColor text = palette.color(QPalette::WindowText);
    const QColor window = palette.color(QPalette::Window);
    std::vector<std::pair<QColor, QColor>> tonePairs = {{text, tones.card},
                                                        {text, tones.track},
                                                        {text, tones.tint},
                                                        {tones.onAccent, tones.accent},
                                                        {tones.onAlarm, tones.alarm},
                                                        {tones.onAlarm, tones.good},
                                                        {tones.alarm, tones.alarmGround},
                                                        {tones.dim, tones.alarmGround},
                                                        {QColor(0, 0, 255), tones.plate},
                                                        {QColor(192, 0, 0), tones.plate}};
    for (const QColor& color : {tones.dim, tones.accent, tones.good, tones.alarm, tones.unusual})
        tonePairs.insert(tonePairs.end(), {{color, tones.card}, {color, window}});
    for (const auto& [color, ground] : tonePairs)
        EXPECT_GE(contrast(color, ground), 4.5) << qPrintable(color.name() + ground.name());
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
