#pragma once

#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>

namespace tambrix {

/// What goes on the paper of a printer that can be out of order, or run out of paper.
class PaperEngine : public QPrintEngine, public QPaintEngine
{
public:
    QStringList pages; ///< the texts on each, every one between bars
    int sheets = 99;   ///< 0: the printer does not even begin
    bool aborted = false;

    PaperEngine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice* /*device*/) override { return newPage(); }
    bool end() override { return true; }
    bool newPage() override
    {
        pages.append(QStringLiteral("|"));
        return --sheets >= 0;
    }
    bool abort() override { return aborted = true; }
    void drawTextItem(const QPointF& /*at*/, const QTextItem& item) override
    {
        pages.back() += item.text() + u'|';
    }
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*at*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    using QPaintEngine::drawPolygon;
    void drawPixmap(const QRectF& /*at*/, const QPixmap& /*what*/, const QRectF& /*part*/) override
    {
    }
    void updateState(const QPaintEngineState& /*state*/) override {}
    Type type() const override { return User; }
    void setProperty(PrintEnginePropertyKey /*key*/, const QVariant& /*value*/) override {}
    QVariant property(PrintEnginePropertyKey /*key*/) const override { return {}; }
    QPrinter::PrinterState printerState() const override { return QPrinter::Active; }
    int metric(QPaintDevice::PaintDeviceMetric what) const override
    {
        if (what == QPaintDevice::PdmWidth || what == QPaintDevice::PdmHeight)
            return what == QPaintDevice::PdmWidth ? 595 : 842; // A4 in points
        if (what == QPaintDevice::PdmDevicePixelRatioScaled)
            return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
        return what == QPaintDevice::PdmDevicePixelRatio ? 1 : 72;
    }
};

struct Paper : QPrinter
{
    PaperEngine engine;
    Paper() { setEngines(&engine, &engine); }
};

} // namespace tambrix
