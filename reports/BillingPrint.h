#pragma once

#include <QString>

class QPainter;
class QPagedPaintDevice;
struct BillingStatement;

// A bill printed on A4 portrait pages: on a printer, a preview or a PDF.
namespace BillingPrint {

void setUpPage(QPagedPaintDevice &device);
// Paints every page on `device`, which `painter` is painting on.
void paint(const BillingStatement &statement, QPainter &painter, QPagedPaintDevice &device);
// The whole PDF document or, on a failure (RunTimeError), no file at all.
void savePdf(const BillingStatement &statement, const QString &path);

}
