#pragma once

#include <QFont>
#include <QSize>

class QWidget;

namespace tambrix {

/// The sizes of type on a screen. The machine speed, as large as its frame, is the fourth.
enum class TextSize {
    Text,  ///< what the screen is written in
    Value, ///< a quarter more: numbers
    Title, ///< half more: titles, counts
};

/// Gives a control its size of type, in proportion to the screen that it will stand on. Numbers
/// and titles may be bold.
void setTextSize(QWidget& control, TextSize size, bool bold = false);

/// In per cent, the step of scale for a screen that has this much place on a desktop with this
/// font: 75 (the desktop's own font), 100 (a third more, read from a step away), 125, 150 or 200.
/// 60 only where a large font and a small window leave no other way.
int scaleStep(const QSize& place, const QFont& desktop);

/// The step below which nothing could be read.
int smallestStep(const QFont& desktop);

/// Writes the screen and all its controls in the type of this step.
void applyStep(QWidget& screen, int percent, const QFont& desktop);

/// Half the height of the type: 8 at 100 %. All spaces and controls are multiples of it, so that
/// they grow with the type.
int gridOf(const QFont& font);

} // namespace tambrix
