#include "toolkit/look/yicon.h"

#include <algorithm>

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace {

constexpr char folder[] = ":/vorn/icons/";

// What points in the direction of reading.
const QStringList& directed()
{
    static const QStringList names = {QStringLiteral("back"), QStringLiteral("forward"),
                                      QStringLiteral("log"), QStringLiteral("motion")};
    return names;
}

// The drawing's own colour is "currentColor", which Qt's renderer takes for black.
QByteArray drawing(const QString& name, const QColor& colour)
{
    QFile file(folder + name + QStringLiteral(".svg"));
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll().replace("currentColor", colour.name().toLatin1());
}

QPixmap render(const QString& name, int pixels, const QColor& colour)
{
    QSvgRenderer renderer(drawing(name, colour));
    if (!renderer.isValid() || pixels <= 0)
        return QPixmap();
    QPixmap picture(pixels, pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(colour.alphaF());
    renderer.render(&painter, QRectF(picture.rect()));
    return picture;
}

} // namespace

QStringList YIcon::names()
{
    QStringList names;
    for (const QString& file : QDir(folder).entryList({QStringLiteral("*.svg")}, QDir::Files))
        names << file.chopped(4);
    return names;
}

QPixmap YIcon::pixmap(const QString& name, int size, const QColor& colour, double ratio)
{
    const int pixels = qRound(size * ratio);
    const QString key =
        QStringLiteral("vorn-icon/%1/%2/%3").arg(name, colour.name(QColor::HexArgb)).arg(pixels);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = render(name, pixels, colour);
        QPixmapCache::insert(key, picture);
    }
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void YIcon::draw(QPainter& painter, const QString& name, const QRect& place, const QColor& colour)
{
    const int size = std::min(place.width(), place.height());
    const double ratio = painter.device()->devicePixelRatioF();
    const QRect square(place.left() + (place.width() - size) / 2,
                       place.top() + (place.height() - size) / 2, size, size);
    const bool turned = painter.layoutDirection() == Qt::RightToLeft && directed().contains(name);
    QPixmap picture = pixmap(name, size, colour, ratio);
    if (turned)
        picture = picture.transformed(QTransform::fromScale(-1, 1));
    picture.setDevicePixelRatio(ratio);
    painter.drawPixmap(square.topLeft(), picture);
}
