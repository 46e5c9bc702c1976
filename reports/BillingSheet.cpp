#include "reports/BillingSheet.h"

#include "reports/BillingStatement.h"
#include "reports/BillingText.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <numeric>

namespace {

constexpr qreal PaddingMm = 0.8;

QFont face(qreal points, bool bold)
{
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setStyleHint(QFont::SansSerif);
    f.setPointSizeF(points);
    f.setBold(bold);
    return f;
}

}

BillingSheet::BillingSheet(const BillingStatement &statement, QPainter &painter, QSizeF page)
    : m_painter(painter), m_page(page), m_title(face(14, true)), m_heading(face(10, true)), m_text(face(8.5, false)),
      m_table(face(7.5, false)), m_bold(face(7.5, true))
{
    build(statement);
    for (Item &item : m_items)
        item.height = measure(item);
    paginate();
}

qreal BillingSheet::mm(qreal millimetres) const
{
    return millimetres * m_painter.device()->logicalDpiY() / 25.4;
}

void BillingSheet::build(const BillingStatement &s)
{
    text(Kind::Title, QStringLiteral("Rozliczenie energii biernej"));
    text(Kind::Text, BillingText::subtitle(s));
    for (const BillingText::Section &section : BillingText::sections(s)) {
        text(Kind::Heading, section.heading);
        for (const QString &line : section.lines)
            text(Kind::Text, line);
        if (section.table)
            table(section.table->captions, section.table->weights, section.table->rows);
    }
}

void BillingSheet::text(Kind kind, const QString &line)
{
    m_items.push_back({kind, {line}, {}, -1, 0});
}

void BillingSheet::table(const QStringList &captions, const std::vector<qreal> &weights,
                         const std::vector<QStringList> &rows)
{
    const int head = int(m_items.size());
    m_items.push_back({Kind::Captions, captions, weights, -1, 0});
    for (const QStringList &row : rows)
        m_items.push_back({Kind::Row, row, weights, head, 0});
}

const QFont &BillingSheet::fontOf(Kind kind) const
{
    switch (kind) {
    case Kind::Title: return m_title;
    case Kind::Heading: return m_heading;
    case Kind::Text: return m_text;
    case Kind::Captions: return m_bold;
    case Kind::Row: break;
    }
    return m_table;
}

qreal BillingSheet::measure(const Item &item) const
{
    const QFontMetricsF metrics(fontOf(item.kind), m_painter.device());
    switch (item.kind) {
    case Kind::Title: return metrics.height() + mm(2);
    case Kind::Heading: return metrics.height() + mm(4); // room above: a heading opens a section
    case Kind::Text:
        return metrics.boundingRect(QRectF(0, 0, m_page.width(), 1e6), Qt::TextWordWrap, item.cells.front()).height() +
               mm(1);
    case Kind::Captions: return 2 * metrics.lineSpacing() + mm(1.5); // a caption may take two lines
    case Kind::Row: break;
    }
    return metrics.height() * 1.3;
}

// Items one under another; a row that starts a page brings its table's captions along.
void BillingSheet::paginate()
{
    const qreal footer = QFontMetricsF(m_table, m_painter.device()).height() * 1.5;
    const qreal room = m_page.height() - footer;
    m_pages.push_back({});
    qreal used = 0;
    for (int i = 0; i < int(m_items.size()); ++i) {
        const Item &item = m_items[std::size_t(i)];
        // a heading or captions stay with the line after them
        const qreal keep = item.kind == Kind::Heading || item.kind == Kind::Captions
                               ? item.height + (i + 1 < int(m_items.size()) ? m_items[std::size_t(i + 1)].height : 0)
                               : item.height;
        if (used > 0 && used + keep > room) {
            m_pages.push_back({});
            used = 0;
            if (item.kind == Kind::Row) {
                m_pages.back().push_back(item.captions);
                used += m_items[std::size_t(item.captions)].height;
            }
        }
        m_pages.back().push_back(i);
        used += item.height;
    }
}

void BillingSheet::paintPage(int index)
{
    qreal top = 0;
    for (int i : m_pages[std::size_t(index)]) {
        paint(m_items[std::size_t(i)], top);
        top += m_items[std::size_t(i)].height;
    }
    m_painter.setFont(m_table);
    m_painter.drawText(QRectF(0, 0, m_page.width(), m_page.height()), Qt::AlignRight | Qt::AlignBottom,
                       QStringLiteral("strona %1/%2").arg(index + 1).arg(pageCount()));
}

void BillingSheet::paint(const Item &item, qreal top)
{
    m_painter.setFont(fontOf(item.kind));
    if (item.kind != Kind::Captions && item.kind != Kind::Row) {
        const Qt::Alignment bottom = item.kind == Kind::Heading ? Qt::AlignBottom : Qt::AlignTop;
        m_painter.drawText(QRectF(0, top, m_page.width(), item.height), Qt::AlignLeft | Qt::TextWordWrap | bottom,
                           item.cells.front());
        return;
    }
    const qreal total = std::accumulate(item.weights.begin(), item.weights.end(), 0.0);
    const QFontMetricsF metrics(fontOf(item.kind), m_painter.device());
    qreal left = 0;
    for (std::size_t c = 0; c < item.weights.size() && c < std::size_t(item.cells.size()); ++c) {
        const qreal width = m_page.width() * item.weights[c] / total;
        const QRectF cell(left + mm(PaddingMm), top, width - 2 * mm(PaddingMm), item.height);
        const Qt::Alignment side = c == 0 ? Qt::AlignLeft : Qt::AlignRight;
        if (item.kind == Kind::Captions)
            m_painter.drawText(cell, side | Qt::AlignBottom | Qt::TextWordWrap, item.cells[qsizetype(c)]);
        else
            m_painter.drawText(cell, side | Qt::AlignVCenter,
                               metrics.elidedText(item.cells[qsizetype(c)], Qt::ElideRight, cell.width()));
        left += width;
    }
    if (item.kind == Kind::Captions) {
        m_painter.setPen(QPen(Qt::black, mm(0.2)));
        m_painter.drawLine(QPointF(0, top + item.height - mm(0.5)),
                           QPointF(m_page.width(), top + item.height - mm(0.5)));
    }
}
