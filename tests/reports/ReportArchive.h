#pragma once

#include <QByteArray>
#include <QString>

class Database;

// The reports' tests' archive: A at address 1, B at 2, at 3 a controller
// since deleted; samples from 29 November to 3 December 2026.
namespace ReportArchive {

// Lays the station's schema down in the database just opened and fills it.
void fill(Database &db);
// A file of tests/reports/golden, or a text that never matches one.
QByteArray golden(const QString &name);

}
