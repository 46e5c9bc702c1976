#pragma once

#include <QByteArray>
#include <QString>

class ReportTable;

// A report as CSV for a spreadsheet: UTF-8, ';' between fields, CRLF line
// ends, a header row of the layout's field names, dot decimals rounded as
// the layout prints them, ISO dates. A period row keeps its day-first text
// as a column of its own beside the ISO day. The footer's figures follow as
// rows marked in the first column ("suma", "min.", "maks.", "średnia").
namespace ReportCsv {

QByteArray text(const ReportTable &table);
// The whole file or, on a failure (RunTimeError), nothing left behind.
void save(const ReportTable &table, const QString &path);

}
