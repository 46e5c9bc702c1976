#include "StationImages.h"

#include "StationGlyphs.h"

#include <QPolygonF>
#include <cmath>
#include <numbers>

using namespace StationGlyphs;

namespace {

const QColor ink(40, 40, 50);

void arrow(QPainter &p, qreal y, bool right, const QColor &colour)
{
    const qreal tip = right ? 15.5 : 0.5, base = right ? 10 : 6;
    QPainterPath path;
    path.addRect(QRectF(right ? 1 : base, y - 1.5, right ? base - 1 : 15 - base, 3));
    QPainterPath head;
    head.addPolygon(QPolygonF({{base, y - 4}, {tip, y}, {base, y + 4}}));
    head.closeSubpath();
    outlined(p, path.united(head), colour, colour.darker(180));
}

void linkArrows(QPainter &p)
{
    arrow(p, 4.5, true, QColor(40, 170, 60));
    arrow(p, 11.5, false, QColor(40, 110, 210));
}

void database(QPainter &p)
{
    QPainterPath body;
    body.addRect(QRectF(2.5, 3.5, 11, 9));
    body.addEllipse(QRectF(2.5, 10.5, 11, 4.5));
    body.setFillRule(Qt::WindingFill);
    outlined(p, body.simplified(), QColor(80, 130, 200), QColor(20, 50, 110));
    p.setPen(QPen(QColor(20, 50, 110), 1));
    for (qreal y : {5.5, 8.5})
        p.drawArc(QRectF(2.5, y, 11, 4), 180 * 16, 180 * 16);
    p.setPen(QPen(QColor(20, 50, 110), 1));
    p.setBrush(QColor(170, 200, 240));
    p.drawEllipse(QRectF(2.5, 1.5, 11, 4.5));
}

void page(QPainter &p)
{
    QPainterPath sheet;
    sheet.addPolygon(QPolygonF({{2.5, 0.5}, {10, 0.5}, {13.5, 4}, {13.5, 15.5}, {2.5, 15.5}}));
    sheet.closeSubpath();
    outlined(p, sheet, Qt::white, QColor(100, 100, 110));
    QPainterPath fold;
    fold.addPolygon(QPolygonF({{10, 0.5}, {10, 4}, {13.5, 4}}));
    fold.closeSubpath();
    outlined(p, fold, QColor(210, 210, 215), QColor(100, 100, 110));
}

void report(QPainter &p)
{
    page(p);
    p.setPen(QPen(QColor(200, 30, 30), 1.5));
    p.drawLine(QPointF(4.5, 3.5), QPointF(8.5, 3.5));
    p.setPen(QPen(QColor(60, 70, 120), 1));
    for (qreal y : {6.5, 8.5, 10.5, 12.5})
        p.drawLine(QPointF(4.5, y), QPointF(y > 12 ? 8.5 : 11.5, y));
}

void chart(QPainter &p)
{
    outlinedRect(p, QRectF(2.5, 0.5, 13, 13), Qt::white, QColor(170, 170, 180));
    p.setPen(QPen(QColor(215, 215, 225), 1));
    for (qreal y : {4.5, 8.5})
        p.drawLine(QPointF(3, y), QPointF(15, y));
    p.setPen(QPen(ink, 1.5));
    p.drawPolyline(QPolygonF({{1.5, 0.5}, {1.5, 14.5}, {15.5, 14.5}}));
    p.setPen(QPen(QColor(220, 30, 30), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF({{3, 11}, {6, 7}, {9, 9.5}, {12, 3.5}, {15, 5.5}}));
}

void flashBadge(QPainter &p)
{
    outlinedCircle(p, {8, 8}, 7.5, QColor(200, 30, 30), QColor(110, 0, 0));
    placed(p, {3.2, 2.4}, 0.7, bolt);
}

void dataSheet(QPainter &p)
{
    outlinedRect(p, QRectF(0.5, 1.5, 15, 13), Qt::white, QColor(60, 70, 100));
    p.fillRect(QRectF(1, 2, 14, 3), QColor(60, 110, 190));
    p.setPen(QPen(QColor(150, 160, 180), 1));
    for (qreal x : {5.5, 10.5})
        p.drawLine(QPointF(x, 5), QPointF(x, 14));
    for (qreal y : {7.5, 10.5})
        p.drawLine(QPointF(1, y), QPointF(15, y));
    p.setPen(QPen(QColor(60, 70, 100), 1));
    p.drawLine(QPointF(1, 4.5), QPointF(15, 4.5));
}

void binoculars(QPainter &p)
{
    const QColor body(55, 55, 65), line(20, 20, 25);
    for (qreal x : {1.5, 9.5})
        outlinedRect(p, QRectF(x, 2.5, 5, 7), body, line, 1);
    outlinedRect(p, QRectF(6.5, 4.5, 3, 3), body, line);
    for (qreal x : {4, 12}) {
        outlinedCircle(p, {x, 11.5}, 3.5, body, line);
        outlinedCircle(p, {x, 11.5}, 2, QColor(120, 180, 240), QColor(30, 60, 110));
    }
}

void printer(QPainter &p)
{
    outlinedRect(p, QRectF(4.5, 0.5, 7, 6), Qt::white, QColor(110, 110, 120));
    outlinedRect(p, QRectF(0.5, 5.5, 15, 7), QColor(170, 175, 185), QColor(60, 60, 70), 1.5);
    p.fillRect(QRectF(12, 7, 2, 1.5), QColor(40, 200, 40));
    outlinedRect(p, QRectF(3.5, 10.5, 9, 5), Qt::white, QColor(110, 110, 120));
    p.setPen(QPen(QColor(60, 70, 120), 1));
    p.drawLine(QPointF(5, 12.5), QPointF(11, 12.5));
    p.drawLine(QPointF(5, 14.5), QPointF(9, 14.5));
}

void star(QPainter &p, QPointF c, qreal r)
{
    QPolygonF points;
    for (int i = 0; i < 10; ++i) {
        const qreal a = std::numbers::pi * (i / 5.0 - 0.5), k = i % 2 ? 0.45 : 1.0;
        points << c + QPointF(std::cos(a), std::sin(a)) * r * k;
    }
    QPainterPath path;
    path.addPolygon(points);
    path.closeSubpath();
    outlined(p, path, QColor(255, 215, 0), QColor(170, 110, 0));
}

void wand(QPainter &p)
{
    p.setPen(QPen(ink, 2.5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(2, 14), QPointF(9, 7));
    p.setPen(QPen(Qt::white, 1.2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(7.5, 8.5), QPointF(8.8, 7.2));
    star(p, {11, 5}, 5);
    p.setPen(QPen(QColor(90, 160, 255), 1));
    p.drawLine(QPointF(3, 2), QPointF(3, 6));
    p.drawLine(QPointF(1, 4), QPointF(5, 4));
}

void sliders(QPainter &p)
{
    outlinedRect(p, QRectF(0.5, 0.5, 15, 15), QColor(215, 220, 228), QColor(90, 95, 110), 2);
    const QColor knobs[] = {QColor(220, 40, 40), QColor(40, 170, 60), QColor(40, 110, 210)};
    const qreal heights[] = {9, 4.5, 7};
    for (int i = 0; i < 3; ++i) {
        const qreal x = 4 + 4 * i;
        p.setPen(QPen(ink, 1));
        p.drawLine(QPointF(x, 3), QPointF(x, 13));
        outlinedRect(p, QRectF(x - 2, heights[i], 4, 3), knobs[i], knobs[i].darker(200));
    }
}

void bell(QPainter &p)
{
    QPainterPath shape;
    shape.moveTo(1.5, 12.5);
    shape.quadTo(4, 11, 4, 8);
    shape.lineTo(4, 6.5);
    shape.arcTo(QRectF(4, 2.5, 8, 8), 180, -180);
    shape.lineTo(12, 8);
    shape.quadTo(12, 11, 14.5, 12.5);
    shape.closeSubpath();
    outlinedCircle(p, {8, 14}, 1.8, QColor(200, 140, 20), QColor(120, 70, 0));
    outlined(p, shape, QColor(250, 195, 40), QColor(130, 80, 0));
    outlinedCircle(p, {8, 1.8}, 1.3, QColor(250, 195, 40), QColor(130, 80, 0));
    p.setPen(QPen(QColor(255, 245, 190), 1.2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(6, 6), QPointF(6, 9.5));
}

void key(QPainter &p)
{
    const QColor gold(235, 180, 30), line(110, 70, 0);
    QPainterPath shaft;
    shaft.addRect(QRectF(7, 6.5, 8.5, 3));
    shaft.addRect(QRectF(11, 9, 1.8, 3.5));
    shaft.addRect(QRectF(13.7, 9, 1.8, 2.5));
    shaft.setFillRule(Qt::WindingFill);
    outlined(p, shaft.simplified(), gold, line);
    QPainterPath ring;
    ring.addEllipse(QPointF(4.5, 8), 4, 4);
    ring.addEllipse(QPointF(3.7, 8), 1.5, 1.5);
    outlined(p, ring, gold, line);
}

void frontPanel(QPainter &p)
{
    outlinedRect(p, QRectF(0.5, 0.5, 15, 15), QColor(225, 215, 190), QColor(90, 85, 70), 1.5);
    outlinedRect(p, QRectF(2.5, 2.5, 11, 5), QColor(20, 20, 20), QColor(20, 20, 20));
    p.setPen(QPen(QColor(255, 50, 30), 1));
    for (qreal x : {4.5, 8.0, 11.5})
        p.drawLine(QPointF(x - 1, 5), QPointF(x + 1, 5));
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 5; ++i) {
        p.setBrush(i % 2 ? QColor(60, 210, 60) : QColor(230, 40, 30));
        p.drawEllipse(QPointF(3 + 2.5 * i, 10), 0.95, 0.95);
    }
    p.setBrush(QColor(90, 95, 110));
    for (int i = 0; i < 4; ++i)
        p.drawRect(QRectF(2.5 + 3 * i, 12.5, 2, 1.5));
}

void exclamation(QPainter &p)
{
    outlinedCircle(p, {8, 8}, 7.5, QColor(235, 90, 20), QColor(150, 30, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawRoundedRect(QRectF(6.8, 2.8, 2.4, 7), 1, 1);
    p.drawEllipse(QPointF(8, 12.3), 1.3, 1.3);
}

}

namespace StationImages {

QIcon alarmFlash()
{
    return QIcon(drawn(bolt));
}

QIcon lostLink()
{
    return QIcon(drawn([](QPainter &p) {
        p.setPen(QPen(QColor(60, 60, 60), 2));
        p.drawLine(1, 8, 6, 8);
        p.drawLine(10, 8, 15, 8);
        p.setPen(QPen(QColor(220, 0, 0), 2));
        p.drawLine(6, 4, 10, 12);
        p.drawLine(10, 4, 6, 12);
    }));
}

QIcon limitExceeded()
{
    return QIcon(drawn(warningTriangle));
}

ImageList mainImages()
{
    return listOf({
        {"komunikacja", linkArrows},                                  // 1
        {"baza", database},                                           // 2
        {"raport", report},                                           // 3
        {"wykres", chart},                                            // 4
        {"blysk", bolt},                                              // 5
        {"blysk1", flashBadge},                                       // 6
        {"uwaga", warningTriangle},                                   // 7
        {"Dane", dataSheet},                                          // 8
        {"lornetka", binoculars},                                     // 9
        {"drukarka", printer},                                        // 10
        {"czarodziej", wand},                                         // 11
        {"panel", sliders},                                           // 12
        {"alarm", bell},                                              // 13
        {"regulator", [](QPainter &p) { controller(p); }},            // 14
        {"zablokowany", blockedController},                           // 15
        {"klucz", key},                                               // 16
        {"panelregulatora", frontPanel},                              // 17
        {"stopienzal", [](QPainter &p) { capacitor(p, true); }},      // 18
        {"stopienwyl", [](QPainter &p) { capacitor(p, false); }},     // 19
        {"lampaciemna", [](QPainter &p) { lamp(p, false); }},         // 20
        {"lampajasna", [](QPainter &p) { lamp(p, true); }},           // 21
    });
}

ImageList modeImages()
{
    return listOf({
        {"Wykrzyknik", exclamation},
        {"ZablokRegul", blockedController},
        {"Regul", [](QPainter &p) { controller(p); }},
    });
}

}
