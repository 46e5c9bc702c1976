#include "StationImages.h"

#include "StationGlyphs.h"

using namespace StationGlyphs;

namespace {

void plainController(QPainter &p)
{
    controller(p);
}

// A controller drawn small, 10x8 pixels from `x`, `y`, for the group.
void smallController(QPainter &p, int x, int y)
{
    const QColor body(40, 100, 170);
    outlinedRect(p, QRectF(x + 0.5, y + 0.5, 9, 7), body, body.darker(200));
    p.fillRect(QRect(x + 2, y + 2, 6, 2), QColor(180, 235, 160));
    p.fillRect(QRect(x + 2, y + 5, 1, 1), QColor(255, 60, 40));
    p.fillRect(QRect(x + 4, y + 5, 1, 1), QColor(80, 230, 80));
    p.fillRect(QRect(x + 6, y + 5, 1, 1), QColor(80, 230, 80));
}

void controllerGroup(QPainter &p)
{
    for (int i = 0; i < 3; ++i)
        smallController(p, 6 - 3 * i, 4 * i);
}

void folder(QPainter &p)
{
    QPainterPath back;
    back.moveTo(0.5, 14.5);
    back.lineTo(0.5, 2.5);
    back.lineTo(5.5, 2.5);
    back.lineTo(7, 4.5);
    back.lineTo(15.5, 4.5);
    back.lineTo(15.5, 14.5);
    back.closeSubpath();
    outlined(p, back, QColor(225, 175, 50), QColor(130, 90, 10));
    QPainterPath front;
    front.addPolygon(QPolygonF({{0.5, 14.5}, {2.5, 7.5}, {15.5, 7.5}, {15.5, 14.5}}));
    front.closeSubpath();
    outlined(p, front, QColor(250, 210, 90), QColor(130, 90, 10));
}

}

namespace StationImages {

ImageList controllerTreeImages()
{
    return listOf({
        {"korzen", factory},
        {"regulator", plainController},
        {"regulatory", controllerGroup},
        {"zablokowany", blockedController},
        {"stopienzal", [](QPainter &p) { capacitor(p, true); }},
        {"stopienwyl", [](QPainter &p) { capacitor(p, false); }},
    });
}

ImageList structureTreeImages()
{
    return listOf({
        {"korzen", factory},
        {"element", folder},
        {"regulator", plainController},
    });
}

}
