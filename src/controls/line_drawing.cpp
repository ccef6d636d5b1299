#include "controls/line_drawing.h"

#include <QList>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace tambrix {

namespace {

/// One letter of a path and the numbers behind it.
struct Steps
{
    char kind;     ///< a capital letter
    bool relative; ///< to where the pen stands
    QList<qreal> numbers;
};

/// Numbers need nothing between them where a sign or a second point begins the next one.
QList<qreal> numbersIn(const QString& text)
{
    static const QRegularExpression number(QStringLiteral(R"(-?(\d+\.?\d*|\.\d+))"));
    QList<qreal> numbers;
    for (const QRegularExpressionMatch& match : number.globalMatch(text))
        numbers.append(match.captured().toDouble());
    return numbers;
}

/// Three points a curve.
void drawCurves(QPainterPath& path, const Steps& steps)
{
    const QList<qreal>& n = steps.numbers;
    for (qsizetype i = 0; i + 5 < n.size(); i += 6) {
        const QPointF from = steps.relative ? path.currentPosition() : QPointF();
        path.cubicTo(from + QPointF(n[i], n[i + 1]), from + QPointF(n[i + 2], n[i + 3]),
                     from + QPointF(n[i + 4], n[i + 5]));
    }
}

/// A point behind the first one of a move is a line's end.
void drawLines(QPainterPath& path, const Steps& steps)
{
    const QList<qreal>& n = steps.numbers;
    for (qsizetype i = 0; i + 1 < n.size(); i += 2) {
        const QPointF from = steps.relative ? path.currentPosition() : QPointF();
        const QPointF to = from + QPointF(n[i], n[i + 1]);
        if (steps.kind == 'M' && i == 0)
            path.moveTo(to);
        else
            path.lineTo(to);
    }
}

void drawStraight(QPainterPath& path, const Steps& steps)
{
    for (const qreal number : steps.numbers) {
        QPointF to = path.currentPosition();
        qreal& moved = steps.kind == 'H' ? to.rx() : to.ry();
        moved = steps.relative ? moved + number : number;
        path.lineTo(to);
    }
}

/// Whether the steps are of a kind that is known.
bool draw(QPainterPath& path, const Steps& steps)
{
    switch (steps.kind) {
    case 'M':
    case 'L':
        drawLines(path, steps);
        return true;
    case 'H':
    case 'V':
        drawStraight(path, steps);
        return true;
    case 'C':
        drawCurves(path, steps);
        return true;
    case 'Z':
        path.closeSubpath();
        return true;
    default:
        return false;
    }
}

void drawPath(QPainterPath& path, const QString& data)
{
    static const QRegularExpression letter(QStringLiteral("([A-Za-z])([^A-Za-z]*)"));
    for (const QRegularExpressionMatch& match : letter.globalMatch(data)) {
        const QChar kind = match.capturedView(1).front();
        if (!draw(path, {kind.toUpper().toLatin1(), kind.isLower(), numbersIn(match.captured(2))}))
            return;
    }
}

} // namespace

QPainterPath lineDrawing(const QByteArray& svg)
{
    QPainterPath path;
    QXmlStreamReader reader(svg);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement &&
            reader.name() == QLatin1String("path"))
            drawPath(path, reader.attributes().value(QLatin1String("d")).toString());
    }
    return path;
}

} // namespace tambrix
