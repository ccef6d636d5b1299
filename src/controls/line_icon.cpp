#include "controls/line_icon.h"

#include "controls/tones.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

/// A static library's resources must be asked for, outside every namespace.
void loadIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace tambrix {

namespace {

class LineEngine : public QIconEngine
{
public:
    explicit LineEngine(const QByteArray& drawing) : m_drawing(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QGuiApplication::palette();
        const QColor color = mode == QIcon::Disabled
                                 ? palette.color(QPalette::Disabled, QPalette::WindowText)
                                 : palette.color(QPalette::WindowText);
        QByteArray drawing = m_drawing;
        QSvgRenderer renderer(drawing.replace("#000", color.name().toLatin1()));
        renderer.render(painter, rect);
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
    QByteArray m_drawing;
};

} // namespace

QIcon lineIcon(const QString& name)
{
    loadIcons();
    QFile file(":/tambrix/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new LineEngine(file.readAll())); // the icon owns its engine
}

} // namespace tambrix
