#pragma once

#include "reports/AlarmHistory.h"

#include <QFont>
#include <QFontMetricsF>
#include <QRectF>
#include <array>

class QPainter;

// An alarm history laid out as a table on pages of one size. Fonts and
// columns are measured on the painter's device and the rows are split into
// pages before any page is painted, so that every footer knows the count.
class AlarmSheet {
public:
    // `page` is the area inside the margins, in the painter's units.
    AlarmSheet(const AlarmHistory &history, QPainter &painter, QSizeF page);

    int pageCount() const;
    // Paints page `index` (from 0) where the painter stands; the caller turns the pages.
    void paintPage(int index);

private:
    static constexpr int Columns = 5;

    qreal mm(qreal millimetres) const;
    QFontMetricsF metrics(const QFont &font) const;
    // The inside of a column, its padding left out.
    QRectF cell(int column, qreal top, qreal height) const;
    QFont tableFont() const;
    void paintHeader();
    void paintRow(const AlarmHistory::Row &row, qreal top);
    void paintCell(int column, qreal top, const QString &text);
    void paintFooter(int index);

    const AlarmHistory &m_history;
    QPainter &m_painter;
    QSizeF m_page;
    std::array<qreal, Columns + 1> m_edges{}; // left edge of each column, then the right edge of the last
    QFont m_titleFont;
    QFont m_font;
    qreal m_rowHeight = 0;
    qreal m_bodyTop = 0; // where the first row of a page begins
    int m_rowsPerPage = 1;
};
