#include "reports/BillingPrint.h"

#include "reports/AlarmPrint.h"
#include "reports/BillingSheet.h"
#include "reports/BillingStatement.h"
#include "reports/PagedDocument.h"

#include <QPagedPaintDevice>

void BillingPrint::setUpPage(QPagedPaintDevice &device)
{
    AlarmPrint::setUpPage(device); // the same A4 portrait with 15 mm margins
}

void BillingPrint::paint(const BillingStatement &statement, QPainter &painter, QPagedPaintDevice &device)
{
    BillingSheet sheet(statement, painter, QSizeF(device.width(), device.height()));
    PagedDocument::paintPages(device, sheet.pageCount(), [&sheet](int page) { sheet.paintPage(page); });
}

void BillingPrint::savePdf(const BillingStatement &statement, const QString &path)
{
    PagedDocument::savePdf(
        path, QStringLiteral("Rozliczenie energii biernej"), setUpPage,
        [&statement](QPainter &painter, QPagedPaintDevice &device) { paint(statement, painter, device); });
}
