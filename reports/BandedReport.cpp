#include "reports/BandedReport.h"

#include "reports/ReportTable.h"

#include <QPaintDevice>
#include <QPainter>
#include <algorithm>

namespace {

constexpr qreal TwipsPerInch = 1440;
constexpr qreal RuleTwips = 10;          // half a point
constexpr int TitleLine = 330;           // a report header's line this high holds the title's larger type
constexpr int WrappedHead = 450;         // a box this high holds a column head of two lines
constexpr int RunOnTolerance = 15;       // twips between boxes drawn to abut

using Label = ReportLayout::Label;

QRectF rect(const ReportLayout::Box &b)
{
    return QRectF(b.left, b.top, b.width, b.height);
}

bool named(const Label &label, const char *name)
{
    return label.name.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

qreal shapesBottom(const ReportLayout::Section &section)
{
    int bottom = 0;
    for (const ReportLayout::Shape &s : section.shapes)
        bottom = std::max(bottom, s.box.top + s.box.height);
    return bottom;
}

// The Symbol font's Latin letters stand for Greek ones ("f" is phi).
QString greek(QString text)
{
    static const QString lower = QStringLiteral("αβχδεφγηιϕκλμνοπθρστυϖωξψζ");
    static const QString upper = QStringLiteral("ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ");
    for (QChar &c : text) {
        if (c >= u'a' && c <= u'z')
            c = lower[c.unicode() - u'a'];
        else if (c >= u'A' && c <= u'Z')
            c = upper[c.unicode() - u'A'];
    }
    return text;
}

// A label ending in blanks is continued on its line by the control drawn
// against its right edge ("Raport dobowy dla  " and the title after it).
bool continues(const Label &before, const Label &label)
{
    return before.text.endsWith(u' ') && before.box.top == label.box.top &&
           std::abs(before.box.left + before.box.width - label.box.left) <= RunOnTolerance;
}

// Numbers stand right in their boxes, a moment or a day left.
Qt::Alignment alignmentOf(const QString &picture)
{
    const bool number = std::all_of(picture.cbegin(), picture.cend(),
                                    [](QChar c) { return QStringLiteral("0#,.;()").contains(c); });
    return number ? Qt::AlignRight : Qt::AlignLeft;
}

}

BandedReport::BandedReport(const ReportTable &table, QDate printed, QPainter &painter, QSizeF page)
    : m_table(table), m_layout(ReportLayout::of(table.kind())), m_printed(printed), m_painter(painter),
      m_text(painter.device())
{
    const QPaintDevice *device = painter.device();
    m_scale = QSizeF(device->logicalDpiX() / TwipsPerInch, device->logicalDpiY() / TwipsPerInch);
    m_pageTwips = QSizeF(page.width() / m_scale.width(), page.height() / m_scale.height());
    m_pages = ReportPagination::pages(m_layout, table.rowCount(), m_pageTwips.height());
}

void BandedReport::paintPage(int index)
{
    m_page = index;
    const ReportPage &page = m_pages[std::size_t(index)];
    m_painter.save();
    m_painter.scale(m_scale.width(), m_scale.height());
    qreal top = page.reportHeader ? paintBand(ReportLayout::RaportNagl, 0, -1) : 0;
    top = paintBand(ReportLayout::Section2, top, -1);
    for (int row = page.firstRow; row < page.endRow; ++row)
        top = paintBand(ReportLayout::Section1, top, row);
    if (page.reportFooter)
        paintBand(ReportLayout::Section5, top, -1);
    const ReportLayout::Section &footer = m_layout.sections[ReportLayout::Section3];
    paintBand(ReportLayout::Section3, m_pageTwips.height() - footer.height, -1);
    m_painter.restore();
}

qreal BandedReport::paintBand(ReportLayout::Band band, qreal top, int row)
{
    const Section &section = m_layout.sections[band];
    m_painter.save();
    m_painter.translate(0, top);
    for (const ReportLayout::Shape &shape : section.shapes) // under the texts
        m_painter.fillRect(rect(shape.box), QColor(shape.colour));
    paintRules(band);
    paintLabels(band);
    paintFields(section, row);
    paintFigures(section);
    m_painter.restore();
    return top + section.height;
}

// Lines part the columns of the head, the details and the report footer,
// and close the head and each detail below.
void BandedReport::paintRules(ReportLayout::Band band)
{
    const bool table = band == ReportLayout::Section2 || band == ReportLayout::Section1;
    if (!table && band != ReportLayout::Section5)
        return;
    const Section &section = m_layout.sections[band];
    const qreal bottom = table ? section.height : shapesBottom(section); // the footer's: down its grey lines
    m_painter.setPen(QPen(Qt::black, RuleTwips));
    for (int x : m_layout.columnRules)
        m_painter.drawLine(QPointF(x, 0), QPointF(x, bottom));
    if (table)
        m_painter.drawLine(QPointF(0, bottom), QPointF(m_pageTwips.width(), bottom));
}

void BandedReport::paintLabels(ReportLayout::Band band)
{
    const Section &section = m_layout.sections[band];
    const Label *before = nullptr;
    qreal end = 0; // where the text before ended
    for (const Label &label : section.labels) {
        QRectF box = rect(label.box);
        if (before && continues(*before, label))
            box.setLeft(end);
        const bool title = band == ReportLayout::RaportNagl && label.box.height >= TitleLine;
        end = box.left() + m_text.paint(m_painter, box, labelText(label), Qt::AlignLeft,
                                        title ? ReportText::Style::Title : ReportText::Style::Body,
                                        label.box.height >= WrappedHead);
        before = &label;
    }
}

void BandedReport::paintFields(const Section &section, int row)
{
    for (const ReportLayout::Field &f : section.fields)
        m_text.paint(m_painter, rect(f.box), m_table.text(row, f.field, f.picture), alignmentOf(f.picture),
                     ReportText::Style::Body);
}

void BandedReport::paintFigures(const Section &section)
{
    for (const ReportLayout::Figure &f : section.figures)
        m_text.paint(m_painter, rect(f.box), m_table.figureText(f.figure, f.field, f.picture), Qt::AlignRight,
                     ReportText::Style::Body);
}

QString BandedReport::labelText(const Label &label) const
{
    if (named(label, "tytul"))
        return m_table.tytul();
    if (named(label, "podtytul"))
        return m_table.podtytul();
    if (label.symbolFont)
        return greek(label.text);
    QString text = label.text;
    text.replace(QLatin1String("%d"), m_printed.toString(QStringLiteral("dd.MM.yyyy")));
    text.replace(QLatin1String("%p"), QString::number(m_page + 1));
    return text.replace(QLatin1String("%P"), QString::number(pageCount()));
}
