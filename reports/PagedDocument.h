#pragma once

#include <QString>
#include <functional>

class QPainter;
class QPagedPaintDevice;

// What every printed document shares: turning its pages on a paged device,
// and a PDF file written whole or not at all.
namespace PagedDocument {

// Paints pages 0 to count - 1 on `device`, a new page before each but the first.
void paintPages(QPagedPaintDevice &device, int count, const std::function<void(int page)> &paintPage);

using SetUpPage = void (*)(QPagedPaintDevice &device);
using Paint = std::function<void(QPainter &painter, QPagedPaintDevice &device)>;
// Sets the page up, paints the document into a PDF at `path` and commits
// it; on a failure (RunTimeError) no file is left.
void savePdf(const QString &path, const QString &title, SetUpPage setUpPage, const Paint &paint);

}
