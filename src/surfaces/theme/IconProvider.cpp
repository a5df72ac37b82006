// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/IconProvider.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace zumeta {

IconProvider::IconProvider()
    : QQuickImageProvider(QQuickImageProvider::Image)
{}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    const QStringList parts = id.split(QLatin1Char('/'));
    QFile file(QStringLiteral(":/qt/qml/Zumeta/theme/icons/%1.svg").arg(parts.value(0)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // QtSvg knows no current colour and would draw it black.
    const QColor colour(QLatin1Char('#') + parts.value(1));
    QSvgRenderer renderer(file.readAll().replace("currentColor", colour.name().toLatin1()));
    const QSize wanted = requestedSize.isValid() ? requestedSize : renderer.defaultSize();
    QImage image(wanted, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    // Afterwards and as a whole: strokes that cross would show through each other.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(image.rect(), QColor(0, 0, 0, colour.alpha()));
    *size = wanted;
    return image;
}

}
