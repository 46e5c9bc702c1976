#include "reports/AlarmPrint.h"

#include "base/RunTimeError.h"
#include "reports/AlarmHistory.h"
#include "reports/AlarmSheet.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

void AlarmPrint::setUpPage(QPagedPaintDevice &device)
{
    device.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15),
                                     QPageLayout::Millimeter));
}

void AlarmPrint::paint(const AlarmHistory &history, QPainter &painter, QPagedPaintDevice &device)
{
    // the device's size is its area inside the margins, where the painter's origin lies
    AlarmSheet sheet(history, painter, QSizeF(device.width(), device.height()));
    for (int page = 0; page < sheet.pageCount(); ++page) {
        if (page > 0)
            device.newPage();
        sheet.paintPage(page);
    }
}

void AlarmPrint::savePdf(const AlarmHistory &history, const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw RunTimeError::fileNotSaved(path, file.errorString());
    {
        QPdfWriter pdf(&file);
        pdf.setResolution(300);
        pdf.setTitle(history.title());
        pdf.setCreator(QStringLiteral("Zorbel"));
        setUpPage(pdf);
        QPainter painter;
        if (!painter.begin(&pdf))
            throw RunTimeError::fileNotSaved(path, QStringLiteral("nie można rozpocząć dokumentu PDF"));
        paint(history, painter, pdf);
    } // the painter ends the document before the file is committed
    if (!file.commit())
        throw RunTimeError::fileNotSaved(path, file.errorString());
}
