#include "controls/plain_texts.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

namespace tambrix {

PlainTexts::PlainTexts(QObject* parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

/// Boxes and tool tips show their text in a label of their own, too.
bool PlainTexts::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish) {
        auto* label = qobject_cast<QLabel*>(watched);
        if (label != nullptr && label->textFormat() == Qt::AutoText)
            label->setTextFormat(Qt::PlainText);
    }
    return false;
}

} // namespace tambrix
