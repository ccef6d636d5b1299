#include "controls/line_icon.h"

#include "controls/line_drawing.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPen>

/// A static library's resources must be asked for, outside every namespace.
void loadIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace tambrix {

namespace {

constexpr qreal kDrawingSide = 24; // of all drawings
constexpr qreal kLineWidth = 1.75;

class LineEngine : public QIconEngine
{
public:
    explicit LineEngine(const QPainterPath& lines) : m_lines(lines) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette::ColorGroup group =
            mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor color = QGuiApplication::palette().color(group, QPalette::WindowText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kDrawingSide, rect.height() / kDrawingSide);
        painter->strokePath(m_lines,
                            QPen(color, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect({}, size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new LineEngine(*this); }

private:
    QPainterPath m_lines;
};

} // namespace

QIcon lineIcon(const QString& name)
{
    loadIcons();
    QFile file(":/tambrix/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new LineEngine(lineDrawing(file.readAll()))); // the icon owns its engine
}

} // namespace tambrix
