#include "reports/AlarmPrint.h"

#include "reports/AlarmHistory.h"
#include "reports/AlarmSheet.h"
#include "reports/PagedDocument.h"

#include <QPageLayout>
#include <QPagedPaintDevice>

void AlarmPrint::setUpPage(QPagedPaintDevice &device)
{
    device.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15),
                                     QPageLayout::Millimeter));
}

void AlarmPrint::paint(const AlarmHistory &history, QPainter &painter, QPagedPaintDevice &device)
{
    // the device's size is its area inside the margins, where the painter's origin lies
    AlarmSheet sheet(history, painter, QSizeF(device.width(), device.height()));
    PagedDocument::paintPages(device, sheet.pageCount(), [&sheet](int page) { sheet.paintPage(page); });
}

void AlarmPrint::savePdf(const AlarmHistory &history, const QString &path)
{
    PagedDocument::savePdf(path, history.title(), setUpPage,
                           [&history](QPainter &painter, QPagedPaintDevice &device) { paint(history, painter, device); });
}
