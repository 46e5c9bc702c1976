#include "reports/ReportText.h"

#include <QPainter>
#include <algorithm>

namespace {

// sizes in twips (1/20 pt), so that the painter's twips are the font's pixels
constexpr int BodyTwips = 160, TitleTwips = 200;
constexpr int ShrinkStep = 10, SmallestTwips = 100;
constexpr int Flags = Qt::AlignVCenter | Qt::TextDontClip;
// A line of one text stands in the first line of its box, so that texts in
// boxes of different heights drawn at one top share a baseline.
constexpr qreal LineTwips = 225;

}

ReportText::ReportText(QPaintDevice *device)
    : m_device(device), m_body(face(Style::Body, BodyTwips)), m_title(face(Style::Title, TitleTwips))
{
}

ReportText::Face ReportText::face(Style style, int twips) const
{
    QFont f(QStringLiteral("Arial"));
    f.setStyleHint(QFont::SansSerif);
    f.setPixelSize(twips);
    f.setBold(style == Style::Title);
    return {f, QFontMetricsF(f, m_device)};
}

QSizeF ReportText::need(const Face &face, const QRectF &box, const QString &text, bool wrap)
{
    if (!wrap)
        return {face.metrics.horizontalAdvance(text), face.metrics.height()};
    return face.metrics.boundingRect(QRectF(0, 0, box.width(), 1e6), Flags | Qt::TextWordWrap, text).size();
}

qreal ReportText::paint(QPainter &painter, const QRectF &box, const QString &text, Qt::Alignment align, Style style,
                        bool wrap) const
{
    if (text.isEmpty())
        return 0;
    Face used = style == Style::Title ? m_title : m_body;
    QSizeF size = need(used, box, text, wrap);
    for (int twips = used.font.pixelSize();
         twips > SmallestTwips && (size.width() > box.width() || size.height() > box.height());) {
        used = face(style, twips -= ShrinkStep);
        size = need(used, box, text, wrap);
    }
    painter.setFont(used.font);
    if (wrap) {
        painter.drawText(box, int(align) | Flags | Qt::TextWordWrap, text);
    } else { // one line straight at its baseline: no layout of a paragraph for every cell
        const qreal x = align & Qt::AlignRight ? box.right() - size.width() : box.left();
        const qreal line = std::min(box.height(), LineTwips);
        const qreal baseline = box.top() + (line + used.metrics.ascent() - used.metrics.descent()) / 2;
        painter.drawText(QPointF(x, baseline), text);
    }
    return size.width();
}
