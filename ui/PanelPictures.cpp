#include "PanelPictures.h"

#include <QGuiApplication>
#include <QPainter>
#include <QRadialGradient>

namespace PanelPictures {

namespace {

// An empty picture of the logical size at the application's pixel ratio.
QPixmap canvas(int width, int height)
{
    const qreal ratio = qApp ? qApp->devicePixelRatio() : 1.0;
    QPixmap p(QSize(width, height) * ratio);
    p.setDevicePixelRatio(ratio);
    p.fill(Qt::transparent);
    return p;
}

QPixmap rocker(bool upperBarred)
{
    QPixmap p = canvas(11, 17);
    QPainter painter(&p);
    painter.fillRect(0, 0, 11, 17, Qt::black);
    painter.fillRect(1, 1, 9, 7, Qt::white);
    painter.fillRect(1, 9, 9, 7, Qt::white);
    const int top = upperBarred ? 1 : 9;
    for (int bar = 0; bar < 4; ++bar)
        painter.fillRect(2, top + 2 * bar, 7, 1, QColor(128, 128, 128));
    return p;
}

}

QPixmap rockerUp()
{
    return rocker(true);
}

QPixmap rockerDown()
{
    return rocker(false);
}

QPixmap lamp(Lamp colour)
{
    struct Shades {
        QColor face, rim;
    };
    static const Shades shades[] = {{QColor(192, 192, 192), QColor(128, 128, 128)},
                                    {QColor(255, 0, 0), QColor(132, 0, 0)},
                                    {QColor(0, 255, 0), QColor(0, 151, 0)}};
    const Shades &s = shades[int(colour)];
    QPixmap p = canvas(8, 8);
    QPainter painter(&p);
    painter.setRenderHint(QPainter::Antialiasing);
    // lit from the upper left: the face colour in the middle, the rim round it
    QRadialGradient light(QPointF(3.2, 3.2), 4.2);
    light.setColorAt(0.0, s.face);
    light.setColorAt(0.55, s.face);
    light.setColorAt(1.0, s.rim);
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(QRectF(0, 0, 8, 8));
    return p;
}

}
