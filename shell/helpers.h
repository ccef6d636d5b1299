#pragma once

#include <QDateTime>
#include <QString>

class QLineEdit;
class QWidget;

namespace tambrix {

/// Moves a dialog to the centre of the desktop that it is on.
void CenterForm(QWidget& dialog);

/// Selects an entry field's whole text.
void SelectAllText(QLineEdit& field);

/// Name of one control of an array of like controls: "txtSetup(0)".
QString arrayName(const char* name, int index);

/// Gives the widget and what it holds a font of this many points.
void setPoints(QWidget& widget, int points);

/// The path's folder and base name with another extension (given without a point).
QString ChangeExtension(const QString& path, const QString& extension);

/// Board type code of a controller program: the character code of the first character of the
/// .FNX file of the same folder and base name; 68 when that file is missing or empty.
int ProgramFileTypeChar(const QString& path);

/// Today's date, without a time, as date stamp of a data set.
QDateTime today();

/// Text of the link (UTF-8) as Qt has it.
inline QString fromLink(const std::string& text)
{
    return QString::fromStdString(text);
}

} // namespace tambrix
