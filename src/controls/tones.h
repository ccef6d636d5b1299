#pragma once

#include <QColor>
#include <QPalette>

namespace tambrix {

/// The colours that a palette has no role for. Colour is never alone: a word or a symbol stands
/// with it. Every text colour reads 4.5 : 1 or better on `card`, and on the window.
struct Tones
{
    QColor card;        ///< ground of a frame
    QColor line;        ///< round a frame
    QColor fieldLine;   ///< round what can be pressed or typed into
    QColor dim;         ///< captions of frames, units, what is not known
    QColor track;       ///< what a bar or a ring has not filled
    QColor bar;         ///< what it has filled
    QColor accent;      ///< focus, primary button
    QColor onAccent;    ///< text on it
    QColor tint;        ///< ground of what is ticked
    QColor good;        ///< on line and in order
    QColor alarm;       ///< alarms and refused values only
    QColor onAlarm;     ///< text on it, and on `good`
    QColor alarmGround; ///< of the banner that tells an alarm
    QColor unusual;     ///< not wrong: simulated, by hand
    QColor off;         ///< a lamp that is not lit
    QColor plate;       ///< ground of state texts, whose blue and dark red are given
};

/// Whether text in this palette is lighter than its ground.
bool isDark(const QPalette& palette);

/// The set of colours that belongs to a light or a dark palette.
const Tones& tonesOf(const QPalette& palette);

/// How strongly a text stands out from its ground, 1 to 21, as accessibility guidelines reckon.
double contrast(const QColor& text, const QColor& ground);

} // namespace tambrix
