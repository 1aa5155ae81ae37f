#include "toolkit/texts/painted_texts.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

namespace {

// Paints nothing and notes the texts.
class Notes : public QPaintEngine
{
public:
    explicit Notes(std::vector<PaintedText>& found) : QPaintEngine(AllFeatures), m_texts(found) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override
    {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}

    void drawTextItem(const QPointF& at, const QTextItem& item) override
    {
        if (withoutBlanks(item.text()).isEmpty())
            return;
        const QFontMetricsF metrics(item.font());
        const QTransform toDevice = painter()->deviceTransform();
        const QRectF letters = metrics.tightBoundingRect(item.text()).translated(at);
        // The softened edge of a letter is no loss.
        const QRect wanted = toDevice.mapRect(letters.adjusted(1, 1, -1, -1)).toRect();
        QRegion shown = systemClip();
        if (painter()->hasClipping())
            shown &= toDevice.mapRect(painter()->clipBoundingRect()).toAlignedRect();
        const QRegion seen = shown.intersected(toDevice.mapRect(letters).toAlignedRect());
        m_texts.push_back(
            {item.text(), seen.boundingRect(), !QRegion(wanted).subtracted(shown).isEmpty()});
    }

private:
    std::vector<PaintedText>& m_texts;
};

class Paper : public QPaintDevice
{
public:
    Paper(const QSize& pixels, std::vector<PaintedText>& texts) : m_size(pixels), m_engine(texts) {}

    QPaintEngine* paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric what) const override
    {
        switch (what) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        default:
            return QPaintDevice::metric(what);
        }
    }

private:
    QSize m_size;
    mutable Notes m_engine;
};

} // namespace

PaintedTexts::PaintedTexts(QWidget& widget)
{
    Paper paper(widget.size(), m_texts);
    widget.render(&paper);
}

QString PaintedTexts::in(const QRect& place) const
{
    QString all;
    for (const PaintedText& painted : m_texts)
        if (painted.place.intersects(place))
            all += withoutBlanks(painted.text);
    return all;
}

QString PaintedTexts::cutIn(const QRect& place) const
{
    for (const PaintedText& painted : m_texts)
        if (painted.place.intersects(place) &&
            (painted.cut || painted.text.endsWith(QChar(0x2026))))
            return painted.text;
    return QString();
}

QString withoutBlanks(const QString& text)
{
    QString kept;
    for (const QChar letter : text)
        if (!letter.isSpace())
            kept += letter;
    return kept;
}
