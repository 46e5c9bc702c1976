#pragma once

#include <QString>

class QIODevice;
struct AlarmHistory;

// An alarm history as a CSV file for a spreadsheet: UTF-8 without a BOM,
// fields separated by ';' (the list separator of Polish spreadsheets), a
// header row first, dates as yyyy-MM-ddTHH:mm:ss and an empty field for none.
namespace AlarmCsv {

// Throws RunTimeError when the device takes less than all of it.
void write(const AlarmHistory &history, QIODevice &device);
// The whole file or, on a failure (RunTimeError), none: an existing file
// at `path` is replaced only once the new one is complete.
void save(const AlarmHistory &history, const QString &path);

}
