#pragma once

#include <QString>

class QPainter;
class QPagedPaintDevice;
struct AlarmHistory;

// An alarm history printed as a table: the title in bold, the column
// captions and a rule on every page, "strona N/M" at the foot of each.
namespace AlarmPrint {

// A4 portrait with 15 mm margins; called before painting begins (on a
// QPrinter, before a preview dialog shows it).
void setUpPage(QPagedPaintDevice &device);
// Paints every page on `device`, which `painter` is painting on.
void paint(const AlarmHistory &history, QPainter &painter, QPagedPaintDevice &device);
// The whole PDF document or, on a failure (RunTimeError), no file at all.
void savePdf(const AlarmHistory &history, const QString &path);

}
