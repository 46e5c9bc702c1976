#pragma once

#include <QDate>
#include <QString>

class QPainter;
class QPagedPaintDevice;
class ReportTable;

// A report printed in its banded layout (the daily or the period one, by
// the table's kind), page by page on any paged device: a printer, a
// preview, a PDF. `printed` is the date "Wydruk z dnia " shows.
namespace ReportPrint {

// A4 portrait with the margins the layout was drawn for; called before
// painting begins (on a QPrinter, before a preview dialog shows it).
void setUpPage(QPagedPaintDevice &device);
// Paints every page on `device`, which `painter` is painting on.
void paint(const ReportTable &table, QDate printed, QPainter &painter, QPagedPaintDevice &device);
// The whole PDF document or, on a failure (RunTimeError), no file at all.
void savePdf(const ReportTable &table, QDate printed, const QString &path);

}
