#include "controls/line_drawing.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <string>

using namespace tambrix;

namespace {

/// Each point with how the pen comes there: M moves, L draws a line, C and c make a curve.
std::string pointsOf(const QByteArray& data)
{
    const QPainterPath path = lineDrawing("<svg><rect/><path d=\"" + data + "\"/></svg>");
    QStringList points;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element point = path.elementAt(i);
        points.append(
            QStringLiteral("%1%2,%3").arg(QChar(u"MLCc"[point.type])).arg(point.x).arg(point.y));
    }
    return points.join(u' ').toStdString();
}

} // namespace

TEST(LineDrawing, PathsOfStraightAndCurvedSteps)
{
    const struct
    {
        const char* data;
        const char* points;
    } cases[] = {
        {"M19 12H5M11 6l-6 6 6 6", "M19,12 L5,12 M11,6 L5,12 L11,18"},
        {"m7 15 3.5-4.5.5.25V2v1", "M7,15 L10.5,10.5 L11,10.75 L11,2 L11,3"},
        {"M4 5h6v-2H4z", "M4,5 L10,5 L10,3 L4,3 L4,5"},
        {"M1 1c-.8.4-1 1-1 2C1 2 3 4 5 6", "M1,1 C0.2,1.4 c0,2 c0,3 C1,2 c3,4 c5,6"},
        {"M1 2 3", "M1,2"},
        {"M1 2L3 4A5 5 0 0 1 9 9L6 6", "M1,2 L3,4"},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(pointsOf(c.data), c.points) << c.data;
}
