#include "controls/rule.h"

#include "controls/tones.h"

#include <QPainter>

namespace tambrix {

Rule::Rule()
{
    setFixedHeight(1);
}

void Rule::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), tonesOf(palette()).line);
}

} // namespace tambrix
