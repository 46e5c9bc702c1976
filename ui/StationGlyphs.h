#pragma once

#include "ImageList.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>

// The drawing helpers behind the station's pictures (StationImages): a
// 16x16 canvas and the glyphs that more than one image list shows. Each
// glyph paints into the 16x16 square of the painter's current coordinates.
namespace StationGlyphs {

using Paint = std::function<void(QPainter &)>;

// A transparent 16x16 pixmap painted, antialiased, by `paint`.
QPixmap drawn(const Paint &paint);
// A list of pictures drawn in this order, with these keys.
ImageList listOf(std::initializer_list<std::pair<const char *, Paint>> pictures);
// `paint` shrunk by `factor` with its top left corner moved to `at`.
void placed(QPainter &p, QPointF at, qreal factor, const Paint &paint);
// A closed shape filled and outlined with a 1-pixel line.
void outlined(QPainter &p, const QPainterPath &shape, const QColor &fill, const QColor &line);
void outlinedRect(QPainter &p, const QRectF &r, const QColor &fill, const QColor &line, qreal radius = 0);
void outlinedCircle(QPainter &p, QPointF centre, qreal radius, const QColor &fill, const QColor &line);

void bolt(QPainter &p);
void warningTriangle(QPainter &p);
// A controller: a box with a small display and three lamps.
void controller(QPainter &p, const QColor &body = QColor(40, 100, 170));
// A padlock filling `r`.
void padlock(QPainter &p, const QRectF &r);
// A controller with a padlock, its body turned red.
void blockedController(QPainter &p);
// The circuit symbol of a capacitor stage, lit (red on yellow) or dark (grey).
void capacitor(QPainter &p, bool on);
// A round signal lamp, glowing green or dark.
void lamp(QPainter &p, bool lit);
// A factory hall with a saw-tooth roof and a chimney: the plant.
void factory(QPainter &p);

}
