#include "ZorbelLogo.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>

namespace {

// One period of the wave from x0 to x1 crossing the middle at cx, drawn
// only where from <= x <= to.
QPainterPath wave(double x0, double x1, double cy, double amplitude, double from, double to)
{
    const double cx = (x0 + x1) / 2;
    const double period = x1 - x0;
    QPainterPath path;
    for (double x = from; x <= to; x += 0.5) {
        const QPointF p(x, cy - amplitude * std::sin(2 * std::numbers::pi * (x - cx) / period));
        if (path.elementCount() == 0)
            path.moveTo(p);
        else
            path.lineTo(p);
    }
    return path;
}

}

ZorbelLogo::ZorbelLogo(int side, QWidget *parent) : QWidget(parent)
{
    setFixedSize(side, side);
}

void ZorbelLogo::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const double s = width();
    QLinearGradient tile(0, 0, 0, s);
    tile.setColorAt(0, QColor(0x1d, 0x5c, 0x8f));
    tile.setColorAt(1, QColor(0x10, 0x30, 0x52));
    p.setPen(Qt::NoPen);
    p.setBrush(tile);
    p.drawRoundedRect(QRectF(0, 0, s, s), s / 6, s / 6);

    // the wave is the line's voltage; it enters one plate and leaves the other
    const double cx = s / 2, cy = s / 2, gap = s / 6, x0 = s * 0.1, x1 = s * 0.9;
    QPen amber(QColor(0xf2, 0xb0, 0x1e), s / 20, Qt::SolidLine, Qt::RoundCap);
    p.setPen(amber);
    p.setBrush(Qt::NoBrush);
    p.drawPath(wave(x0, x1, cy, s * 0.2, x0, cx - gap / 2));
    p.drawPath(wave(x0, x1, cy, s * 0.2, cx + gap / 2, x1));

    QPen plate(Qt::white, s / 16, Qt::SolidLine, Qt::FlatCap);
    p.setPen(plate);
    const double half = s * 0.27;
    p.drawLine(QPointF(cx - gap / 2, cy - half), QPointF(cx - gap / 2, cy + half));
    p.drawLine(QPointF(cx + gap / 2, cy - half), QPointF(cx + gap / 2, cy + half));
}
