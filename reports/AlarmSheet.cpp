#include "reports/AlarmSheet.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <algorithm>
#include <numeric>

namespace {

const std::array<QString, 5> Captions{QStringLiteral("Data powstania"), QStringLiteral("Kod regulatora"),
                                      QStringLiteral("Tresc alarmu"), QStringLiteral("Data potwierdzenia"),
                                      QStringLiteral("Data dezaktywacji")};
// the widths the table has always had, in proportion
const std::array<qreal, 5> Weights{1440, 1300, 4550, 1500, 1500};
const QString DateFormat = QStringLiteral("dd/MM/yy HH:mm:ss");
const QString WidestDate = QStringLiteral("00/00/00 00:00:00");
constexpr qreal PaddingMm = 0.6;

QString shown(ZDate date)
{
    return date.isZero() ? QString() : date.toString(DateFormat);
}

}

AlarmSheet::AlarmSheet(const AlarmHistory &history, QPainter &painter, QSizeF page)
    : m_history(history), m_painter(painter), m_page(page)
{
    const qreal total = std::accumulate(Weights.begin(), Weights.end(), 0.0);
    for (int i = 0; i < Columns; ++i)
        m_edges[i + 1] = m_edges[i] + page.width() * Weights[i] / total;
    m_titleFont = QFont(QStringLiteral("DejaVu Sans"), 11, QFont::Bold);
    m_font = tableFont();
    m_rowHeight = metrics(m_font).height() * 1.35;
    // the title, a gap, captions of up to two lines and the rule under them
    m_bodyTop = metrics(m_titleFont).height() + mm(3) + 2 * metrics(m_font).lineSpacing() + mm(1.5);
    const qreal body = m_page.height() - m_bodyTop - m_rowHeight; // the footer's line stays free
    m_rowsPerPage = std::max(1, int(body / m_rowHeight));
}

int AlarmSheet::pageCount() const
{
    const int rows = int(m_history.rows.size());
    return std::max(1, (rows + m_rowsPerPage - 1) / m_rowsPerPage);
}

qreal AlarmSheet::mm(qreal millimetres) const
{
    return millimetres * m_painter.device()->logicalDpiY() / 25.4;
}

QFontMetricsF AlarmSheet::metrics(const QFont &font) const
{
    return QFontMetricsF(font, m_painter.device());
}

QRectF AlarmSheet::cell(int column, qreal top, qreal height) const
{
    return QRectF(m_edges[column] + mm(PaddingMm), top, m_edges[column + 1] - m_edges[column] - 2 * mm(PaddingMm), height);
}

// Semi-condensed where the machine has that face, 9 pt where a whole date fits
// its column and smaller where it does not (DejaVu gets 8 pt): a date is never cut.
QFont AlarmSheet::tableFont() const
{
    const qreal room = std::min({cell(0, 0, 0).width(), cell(3, 0, 0).width(), cell(4, 0, 0).width()});
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setStretch(QFont::SemiCondensed);
    for (qreal size = 9; size > 5; size -= 0.5) {
        font.setPointSizeF(size);
        if (metrics(font).horizontalAdvance(WidestDate) <= room)
            break;
    }
    return font;
}

void AlarmSheet::paintPage(int index)
{
    paintHeader();
    const std::size_t first = std::size_t(index) * std::size_t(m_rowsPerPage);
    const std::size_t end = std::min(m_history.rows.size(), first + std::size_t(m_rowsPerPage));
    for (std::size_t r = first; r < end; ++r)
        paintRow(m_history.rows[r], m_bodyTop + qreal(r - first) * m_rowHeight);
    paintFooter(index);
}

void AlarmSheet::paintHeader()
{
    m_painter.setFont(m_titleFont);
    const QFontMetricsF title = metrics(m_titleFont);
    m_painter.drawText(QRectF(0, 0, m_page.width(), title.height()), Qt::AlignLeft | Qt::AlignVCenter,
                       title.elidedText(m_history.title(), Qt::ElideRight, m_page.width()));
    m_painter.setFont(m_font);
    const qreal top = title.height() + mm(3), height = m_bodyTop - mm(1.5) - top;
    for (int i = 0; i < Columns; ++i) // a caption wider than its column goes on two lines
        m_painter.drawText(cell(i, top, height), Qt::AlignLeft | Qt::AlignBottom | Qt::TextWordWrap, Captions[i]);
    m_painter.setPen(QPen(Qt::black, mm(0.2)));
    m_painter.drawLine(QPointF(0, m_bodyTop - mm(0.75)), QPointF(m_page.width(), m_bodyTop - mm(0.75)));
}

void AlarmSheet::paintRow(const AlarmHistory::Row &row, qreal top)
{
    const std::array<QString, Columns> cells{shown(row.raised), row.kod, row.text, shown(row.confirmed),
                                             shown(row.deactivated)};
    for (int i = 0; i < Columns; ++i)
        paintCell(i, top, cells[i]);
}

void AlarmSheet::paintCell(int column, qreal top, const QString &text)
{
    const QRectF area = cell(column, top, m_rowHeight);
    // one line per row: a line break in a text would run into the next row
    m_painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                       metrics(m_font).elidedText(text.simplified(), Qt::ElideRight, area.width()));
}

void AlarmSheet::paintFooter(int index)
{
    const QRectF line(0, m_page.height() - m_rowHeight, m_page.width(), m_rowHeight);
    m_painter.drawText(line, Qt::AlignRight | Qt::AlignBottom,
                       QStringLiteral("strona %1/%2").arg(index + 1).arg(pageCount()));
}
