#include "controls/palettes.h"

namespace tambrix {

namespace {

/// The colours that the roles of a palette are made of.
struct Grounds
{
    QColor window, base, alternate, button, toolTip, text, disabledText, placeholder, highlight,
        disabledHighlight, highlightedText, link;
};

QPalette paletteOf(const Grounds& grounds)
{
    QPalette palette(grounds.button, grounds.window);
    palette.setColor(QPalette::Window, grounds.window);
    palette.setColor(QPalette::Base, grounds.base);
    palette.setColor(QPalette::AlternateBase, grounds.alternate);
    palette.setColor(QPalette::Button, grounds.button);
    palette.setColor(QPalette::ToolTipBase, grounds.toolTip);
    palette.setColor(QPalette::Highlight, grounds.highlight);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, grounds.disabledHighlight);
    palette.setColor(QPalette::HighlightedText, grounds.highlightedText);
    palette.setColor(QPalette::Link, grounds.link);
    palette.setColor(QPalette::PlaceholderText, grounds.placeholder);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, grounds.text);
        palette.setColor(QPalette::Disabled, role, grounds.disabledText);
    }
    return palette;
}

} // namespace

QPalette lightPalette()
{
    Grounds light;
    light.window = QColor(0xf1f2f4);
    light.base = QColor(0xffffff);
    light.alternate = QColor(0xf5f6f8);
    light.button = QColor(0xffffff);
    light.toolTip = QColor(0xffffff);
    light.text = QColor(0x17212b);
    light.disabledText = QColor(0x8a929b);
    light.placeholder = QColor(0x55606e);
    light.highlight = QColor(0x0a63bc);
    light.disabledHighlight = QColor(0x8a929b);
    light.highlightedText = QColor(0xffffff);
    light.link = QColor(0x0a63bc);
    return paletteOf(light);
}

QPalette darkPalette()
{
    Grounds dark;
    dark.window = QColor(0x15181c);
    dark.base = QColor(0x121518);
    dark.alternate = QColor(0x1a1e23);
    dark.button = QColor(0x272c33);
    dark.toolTip = QColor(0x272c33);
    dark.text = QColor(0xe8ecf0);
    dark.disabledText = QColor(0x7c8590);
    dark.placeholder = QColor(0x9ea8b3);
    dark.highlight = QColor(0x2a6db3);
    dark.disabledHighlight = QColor(0x3c444e);
    dark.highlightedText = QColor(0xffffff);
    dark.link = QColor(0x6cb4f7);
    return paletteOf(dark);
}

} // namespace tambrix
