#pragma once

#include "base/ZDate.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

// The CSV the station writes for spreadsheets: UTF-8 without a BOM, fields
// separated by ';' (the list separator of Polish spreadsheets), CRLF line
// ends, a field quoted only where it holds a ';', a '"' or a line break.
namespace Csv {

// One line: the fields, each quoted where needed, and the line end.
QString line(const QStringList &fields);
// A moment as ISO 8601, "2026-11-30T08:00:00"; empty for the zero date.
QString moment(ZDate date);
// The whole file or, on a failure (RunTimeError), none: an existing file
// at `path` is replaced only once the new one is complete.
void save(const QByteArray &bytes, const QString &path);

}
