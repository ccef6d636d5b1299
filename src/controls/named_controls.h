#pragma once

#include <QString>

class QGroupBox;
class QLabel;
class QPushButton;

namespace tambrix {

/// Name of one control of an array of like controls: "txtSetup(0)".
QString arrayName(const char* name, int index);

/// A caption as an accessibility tool reads it out: without key marks and colon.
QString spokenText(const QString& caption);

/// A frame with its caption; `name` is its control name.
QGroupBox* makeFrame(const QString& name, const QString& caption);

/// A label whose text is shown as it is.
QLabel* makeLabel(const QString& name, const QString& text);

/// A label for what stands beside the matter: units, hints, ranges.
QLabel* makeDimLabel(const QString& text);

/// A button, named without its key marks, that does not take Enter for itself: Enter moves on from
/// field to field.
QPushButton* makeButton(const QString& name, const QString& caption);

} // namespace tambrix
