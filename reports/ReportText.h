#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QRectF>
#include <QString>

class QPainter;
class QPaintDevice;

// The texts of a printed report on a painter that paints in twips, in
// Arial (Liberation Sans through fontconfig on Linux): 8 pt, or 10 pt bold
// for the report's title lines; a line in the middle of its box's first
// line, lines wrapped in the middle of their box. A text that
// would not fit its box is printed a little smaller rather than cut.
class ReportText {
public:
    enum class Style { Body, Title };

    explicit ReportText(QPaintDevice *device);

    // Paints `text` in `box` (word-wrapped when `wrap`) and returns the width it took.
    qreal paint(QPainter &painter, const QRectF &box, const QString &text, Qt::Alignment align, Style style,
                bool wrap = false) const;

private:
    struct Face {
        QFont font;
        QFontMetricsF metrics;
    };
    Face face(Style style, int twips) const;
    // The room `text` takes: one line, or lines wrapped to the box's width.
    static QSizeF need(const Face &face, const QRectF &box, const QString &text, bool wrap);

    QPaintDevice *m_device;
    Face m_body, m_title; // at full size, for the texts that fit, which are nearly all
};
