#include "controls/tones.h"

#include <algorithm>
#include <cmath>

namespace tambrix {

namespace {

Tones lightTones()
{
    Tones tones;
    tones.card = QColor(0xffffff);
    tones.line = QColor(0xdde1e6);
    tones.fieldLine = QColor(0xb6bec8);
    tones.dim = QColor(0x55606e);
    tones.track = QColor(0xe3e8ec);
    tones.bar = QColor(0x3a7cc6);
    tones.accent = QColor(0x0a63bc);
    tones.onAccent = QColor(0xffffff);
    tones.tint = QColor(0xdce9f7);
    tones.good = QColor(0x16703c);
    tones.alarm = QColor(0xbe0018);
    tones.onAlarm = QColor(0xffffff);
    tones.alarmGround = QColor(0xfdecee);
    tones.unusual = QColor(0x8f5400);
    tones.off = QColor(0xc9ced6);
    tones.plate = QColor(0xffffff);
    return tones;
}

Tones darkTones()
{
    Tones tones;
    tones.card = QColor(0x1e2228);
    tones.line = QColor(0x31373f);
    tones.fieldLine = QColor(0x56606b);
    tones.dim = QColor(0x9ea8b3);
    tones.track = QColor(0x323a43);
    tones.bar = QColor(0x5aa9f5);
    tones.accent = QColor(0x5aa9f5);
    tones.onAccent = QColor(0x10151a);
    tones.tint = QColor(0x1d3a58);
    tones.good = QColor(0x47c27d);
    tones.alarm = QColor(0xff6b6b);
    tones.onAlarm = QColor(0x10151a);
    tones.alarmGround = QColor(0x3a1c20);
    tones.unusual = QColor(0xe2a33c);
    tones.off = QColor(0x3c444e);
    tones.plate = QColor(0xd3dce4);
    return tones;
}

/// Relative luminance, 0 to 1.
double luminance(const QColor& color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::WindowText).lightness() >
           palette.color(QPalette::Active, QPalette::Window).lightness();
}

const Tones& tonesOf(const QPalette& palette)
{
    static const Tones light = lightTones();
    static const Tones dark = darkTones();
    return isDark(palette) ? dark : light;
}

double contrast(const QColor& text, const QColor& ground)
{
    const auto [darker, lighter] = std::minmax({luminance(text), luminance(ground)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace tambrix
