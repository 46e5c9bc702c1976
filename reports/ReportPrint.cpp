#include "reports/ReportPrint.h"

#include "reports/BandedReport.h"
#include "reports/PagedDocument.h"
#include "reports/ReportLayout.h"
#include "reports/ReportTable.h"

#include <QPageLayout>
#include <QPagedPaintDevice>

void ReportPrint::setUpPage(QPagedPaintDevice &device)
{
    // the layout is 9184 twips (162 mm) wide: 24 mm either side centres it on A4
    device.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(24, 15, 24, 15),
                                     QPageLayout::Millimeter));
}

void ReportPrint::paint(const ReportTable &table, QDate printed, QPainter &painter, QPagedPaintDevice &device)
{
    // the device's size is its area inside the margins, where the painter's origin lies
    BandedReport report(table, printed, painter, QSizeF(device.width(), device.height()));
    PagedDocument::paintPages(device, report.pageCount(), [&report](int page) { report.paintPage(page); });
}

void ReportPrint::savePdf(const ReportTable &table, QDate printed, const QString &path)
{
    const ReportLayout::Label *heading = ReportLayout::of(table.kind()).label(QStringLiteral("Label1"));
    const QString title = ((heading ? heading->text : QString()) + table.tytul() + table.podtytul()).simplified();
    PagedDocument::savePdf(path, title, setUpPage, [&](QPainter &painter, QPagedPaintDevice &device) {
        paint(table, printed, painter, device);
    });
}
