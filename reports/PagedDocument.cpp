#include "reports/PagedDocument.h"

#include "base/RunTimeError.h"

#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

void PagedDocument::paintPages(QPagedPaintDevice &device, int count, const std::function<void(int)> &paintPage)
{
    for (int page = 0; page < count; ++page) {
        if (page > 0)
            device.newPage();
        paintPage(page);
    }
}

void PagedDocument::savePdf(const QString &path, const QString &title, SetUpPage setUpPage, const Paint &paint)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw RunTimeError::fileNotSaved(path, file.errorString());
    {
        QPdfWriter pdf(&file); // streams each finished page to the file
        pdf.setResolution(300);
        pdf.setTitle(title);
        pdf.setCreator(QStringLiteral("Zorbel"));
        setUpPage(pdf);
        QPainter painter;
        if (!painter.begin(&pdf))
            throw RunTimeError::fileNotSaved(path, QStringLiteral("nie można rozpocząć dokumentu PDF"));
        paint(painter, pdf);
    } // the painter ends the document before the file is committed
    if (!file.commit())
        throw RunTimeError::fileNotSaved(path, file.errorString());
}
