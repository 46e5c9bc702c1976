#pragma once

#include <QFont>
#include <QSizeF>
#include <QStringList>
#include <vector>

class QPainter;
struct BillingStatement;

// A bill laid out for print: the title, the tariff with every value used,
// then texts and tables one under another, a table's captions repeated at
// the top of each page it runs onto. The items are measured and put on
// pages before any page is painted, so that "strona N/M" knows the count.
class BillingSheet {
public:
    // `page` is the area inside the margins, in the painter's units.
    BillingSheet(const BillingStatement &statement, QPainter &painter, QSizeF page);

    int pageCount() const { return int(m_pages.size()); }
    // Paints page `index` (from 0) where the painter stands; the caller turns the pages.
    void paintPage(int index);

private:
    enum class Kind { Title, Heading, Text, Captions, Row };
    struct Item {
        Kind kind;
        QStringList cells;          // one for a text
        std::vector<qreal> weights; // of a table's columns
        int captions = -1;          // a row's table captions
        qreal height = 0;
    };

    void build(const BillingStatement &s);
    void text(Kind kind, const QString &line);
    // A table: the captions, then the rows; the first column is text, the others figures.
    void table(const QStringList &captions, const std::vector<qreal> &weights, const std::vector<QStringList> &rows);
    void paginate();
    const QFont &fontOf(Kind kind) const;
    qreal measure(const Item &item) const;
    qreal mm(qreal millimetres) const;
    void paint(const Item &item, qreal top);

    QPainter &m_painter;
    QSizeF m_page;
    QFont m_title, m_heading, m_text, m_table, m_bold;
    std::vector<Item> m_items;
    std::vector<std::vector<int>> m_pages;
};
