#pragma once

#include <QStringList>

class QWidget;

namespace tambrix {

/// What cannot be read whole in this window as it is shown now: controls that have less place than
/// their text needs, that reach beyond what holds them, or fields whose text is longer than they
/// are. Each by its control name or text. What can be scrolled is not cut.
QStringList cutTexts(const QWidget& window);

} // namespace tambrix
