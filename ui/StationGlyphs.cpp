#include "StationGlyphs.h"

#include <QRadialGradient>

namespace StationGlyphs {

QPixmap drawn(const Paint &paint)
{
    QPixmap pm(16, 16);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    paint(p);
    return pm;
}

ImageList listOf(std::initializer_list<std::pair<const char *, Paint>> pictures)
{
    ImageList list;
    for (const auto &[key, paint] : pictures)
        list.add(QString::fromUtf8(key), drawn(paint));
    return list;
}

void placed(QPainter &p, QPointF at, qreal factor, const Paint &paint)
{
    p.save();
    p.translate(at);
    p.scale(factor, factor);
    paint(p);
    p.restore();
}

void outlined(QPainter &p, const QPainterPath &shape, const QColor &fill, const QColor &line)
{
    p.fillPath(shape, fill);
    p.strokePath(shape, QPen(line, 1));
}

void outlinedRect(QPainter &p, const QRectF &r, const QColor &fill, const QColor &line, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(r, radius, radius);
    outlined(p, path, fill, line);
}

void outlinedCircle(QPainter &p, QPointF centre, qreal radius, const QColor &fill, const QColor &line)
{
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    outlined(p, path, fill, line);
}

void bolt(QPainter &p)
{
    QPainterPath path;
    path.moveTo(9, 0);
    path.lineTo(3, 9);
    path.lineTo(8, 9);
    path.lineTo(6, 16);
    path.lineTo(13, 6);
    path.lineTo(8, 6);
    path.closeSubpath();
    outlined(p, path, QColor(255, 200, 0), QColor(160, 90, 0));
}

void warningTriangle(QPainter &p)
{
    QPainterPath tri;
    tri.moveTo(8, 1);
    tri.lineTo(15, 14);
    tri.lineTo(1, 14);
    tri.closeSubpath();
    outlined(p, tri, QColor(255, 210, 0), QColor(120, 80, 0));
    p.setPen(QPen(Qt::black, 2));
    p.drawLine(QPointF(8, 5), QPointF(8, 9));
    p.drawPoint(QPointF(8, 12));
}

void controller(QPainter &p, const QColor &body)
{
    outlinedRect(p, QRectF(1.5, 2.5, 13, 11), body, body.darker(200), 1.5);
    outlinedRect(p, QRectF(3.5, 4.5, 9, 4), QColor(180, 235, 160), QColor(20, 40, 20));
    p.setPen(Qt::NoPen);
    const QColor leds[] = {QColor(255, 60, 40), QColor(80, 230, 80), QColor(80, 230, 80)};
    for (int i = 0; i < 3; ++i) {
        p.setBrush(leds[i]);
        p.drawEllipse(QPointF(5 + 3 * i, 11), 1.1, 1.1);
    }
}

void padlock(QPainter &p, const QRectF &r)
{
    const qreal w = r.width(), h = r.height();
    const QRectF body(r.left() + 0.5, r.top() + h * 0.45, w - 1, h * 0.55 - 0.5);
    QPainterPath shackle;
    shackle.moveTo(r.left() + w * 0.25, body.top());
    shackle.lineTo(r.left() + w * 0.25, r.top() + w * 0.25 + 0.5);
    shackle.arcTo(QRectF(r.left() + w * 0.25, r.top() + 0.5, w * 0.5, w * 0.5), 180, -180);
    shackle.lineTo(r.left() + w * 0.75, body.top());
    p.strokePath(shackle, QPen(QColor(35, 35, 40), 2.6));
    p.strokePath(shackle, QPen(QColor(195, 200, 210), 1));
    outlinedRect(p, body, QColor(240, 185, 30), QColor(110, 70, 0), 0.5);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(60, 40, 0));
    p.drawEllipse(QPointF(body.center().x(), body.center().y() - 0.3), 0.9, 0.9);
}

void blockedController(QPainter &p)
{
    controller(p, QColor(190, 40, 40));
    padlock(p, QRectF(8, 6, 8, 10));
}

void capacitor(QPainter &p, bool on)
{
    const QColor plate = on ? QColor(210, 0, 0) : QColor(105, 105, 105);
    outlinedRect(p, QRectF(0.5, 1.5, 15, 13), on ? QColor(255, 225, 70) : QColor(215, 215, 215),
                 on ? QColor(200, 130, 0) : QColor(150, 150, 150), 2);
    const QColor lead = on ? QColor(90, 30, 0) : QColor(90, 90, 90);
    p.fillRect(QRect(2, 7, 3, 2), lead);
    p.fillRect(QRect(11, 7, 3, 2), lead);
    p.fillRect(QRect(5, 3, 2, 10), plate);
    p.fillRect(QRect(9, 3, 2, 10), plate);
}

void lamp(QPainter &p, bool lit)
{
    const QPointF c(8, 8);
    if (lit) {
        QRadialGradient glow(c, 8);
        glow.setColorAt(0.6, QColor(120, 255, 120, 200));
        glow.setColorAt(1.0, QColor(120, 255, 120, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(glow);
        p.drawEllipse(c, 8, 8);
    }
    QRadialGradient face(QPointF(6.5, 6.5), 6.5);
    face.setColorAt(0, lit ? QColor(235, 255, 225) : QColor(90, 115, 90));
    face.setColorAt(0.45, lit ? QColor(60, 240, 60) : QColor(45, 70, 45));
    face.setColorAt(1, lit ? QColor(0, 170, 0) : QColor(25, 40, 25));
    p.setPen(QPen(lit ? QColor(0, 110, 0) : QColor(20, 20, 20), 1));
    p.setBrush(face);
    p.drawEllipse(c, 5.5, 5.5);
}

void factory(QPainter &p)
{
    outlinedRect(p, QRectF(11.5, 1.5, 2, 7), QColor(130, 130, 135), QColor(60, 60, 65));
    QPainterPath hall;
    hall.moveTo(0.5, 15.5);
    hall.lineTo(0.5, 5.5);
    hall.lineTo(5, 8.5);
    hall.lineTo(5, 5.5);
    hall.lineTo(9.5, 8.5);
    hall.lineTo(15.5, 8.5);
    hall.lineTo(15.5, 15.5);
    hall.closeSubpath();
    outlined(p, hall, QColor(185, 85, 50), QColor(90, 35, 15));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 235, 130));
    for (int x : {2, 6, 10})
        p.drawRect(QRectF(x, 10.5, 3, 2.5));
}

}
