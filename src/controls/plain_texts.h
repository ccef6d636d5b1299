#pragma once

#include <QObject>

namespace tambrix {

/// Texts are shown as they are: file names, names of presses and labels, what a board or a file
/// says. Left to itself Qt takes a text with a "<b>" for HTML, in labels, boxes and tool tips. A
/// label that was told its format keeps it. Works for the whole program as long as it lives.
class PlainTexts : public QObject
{
public:
    explicit PlainTexts(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tambrix
