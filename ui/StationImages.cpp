#include "StationImages.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>

namespace {

QIcon drawn(const std::function<void(QPainter &)> &paint)
{
    QPixmap pm(16, 16);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    paint(p);
    return QIcon(pm);
}

}

namespace StationImages {

QIcon alarmFlash()
{
    return drawn([](QPainter &p) {
        QPainterPath bolt;
        bolt.moveTo(9, 0);
        bolt.lineTo(3, 9);
        bolt.lineTo(8, 9);
        bolt.lineTo(6, 16);
        bolt.lineTo(13, 6);
        bolt.lineTo(8, 6);
        bolt.closeSubpath();
        p.fillPath(bolt, QColor(255, 200, 0));
        p.setPen(QColor(160, 90, 0));
        p.drawPath(bolt);
    });
}

QIcon lostLink()
{
    return drawn([](QPainter &p) {
        p.setPen(QPen(QColor(60, 60, 60), 2));
        p.drawLine(1, 8, 6, 8);
        p.drawLine(10, 8, 15, 8);
        p.setPen(QPen(QColor(220, 0, 0), 2));
        p.drawLine(6, 4, 10, 12);
        p.drawLine(10, 4, 6, 12);
    });
}

QIcon limitExceeded()
{
    return drawn([](QPainter &p) {
        QPainterPath tri;
        tri.moveTo(8, 1);
        tri.lineTo(15, 14);
        tri.lineTo(1, 14);
        tri.closeSubpath();
        p.fillPath(tri, QColor(255, 210, 0));
        p.setPen(QColor(120, 80, 0));
        p.drawPath(tri);
        p.setPen(QPen(Qt::black, 2));
        p.drawLine(8, 5, 8, 9);
        p.drawPoint(8, 12);
    });
}

}
