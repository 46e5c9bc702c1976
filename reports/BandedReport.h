#pragma once

#include "reports/ReportLayout.h"
#include "reports/ReportPagination.h"
#include "reports/ReportText.h"

#include <QDate>
#include <QSizeF>
#include <vector>

class QPainter;
class ReportTable;

// A report table painted in the banded layout of its kind on pages of one
// size. The pages are worked out before any is painted, so that "strona
// %p/%P" knows the count; a page is painted in twips, the layout's unit, on
// the painter scaled by the device's resolution.
class BandedReport {
public:
    // `page` is the area inside the margins, in the painter's device units;
    // `printed` is the date the report header shows.
    BandedReport(const ReportTable &table, QDate printed, QPainter &painter, QSizeF page);

    int pageCount() const { return int(m_pages.size()); }
    // Paints page `index` (from 0) where the painter stands; the caller turns the pages.
    void paintPage(int index);

private:
    using Section = ReportLayout::Section;

    // Paints a band with its top at `top` and returns where the next begins.
    qreal paintBand(ReportLayout::Band band, qreal top, int row);
    void paintRules(ReportLayout::Band band);
    void paintLabels(ReportLayout::Band band);
    void paintFields(const Section &section, int row);
    void paintFigures(const Section &section);
    QString labelText(const ReportLayout::Label &label) const;

    const ReportTable &m_table;
    const ReportLayout &m_layout;
    QDate m_printed;
    QPainter &m_painter;
    ReportText m_text;
    QSizeF m_scale;     // device units per twip
    QSizeF m_pageTwips; // the area inside the margins
    std::vector<ReportPage> m_pages;
    int m_page = 0; // the page being painted
};
