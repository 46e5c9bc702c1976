#include "ReportArchive.h"
#include "TestDatabases.h"

#include "db/Database.h"
#include "db/Schema.h"

#include <QFile>

namespace {

const QVariant Null;

struct Sample {
    int adres;
    ZDate when;
    QVariant enCzynna, enBiernaCalk, enBiernaPoj, napiecie, pradCalk, czestotliwosc;
};

ZDate at(int month, int day, int hour, int minute = 0) { return ZDate::fromParts(2026, month, day, hour, minute); }

}

void ReportArchive::fill(Database &db)
{
    db.open(Database::OpenMode::CreateIfMissing);
    Schema::create(db);
    db.execText(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, Typ) VALUES ('A', 1, 'regulator')"));
    db.execText(QStringLiteral("INSERT INTO Regulatory (Kod, Adres, Typ) VALUES ('B', 2, 'regulator')"));
    const Sample samples[] = {
        {1, at(11, 29, 23, 45), 8, 8, 0, 400, 10, 50},     // the day before
        {1, at(11, 30, 0), 4, 3, 0.5, 400, 10.5, 50},      // midnight opens the day
        {2, at(11, 30, 6, 15), 2, 1, 0, 410, 5, 49.75},
        {1, at(11, 30, 8), 0, 1, 0, 390, 2, 50.25},        // no active energy: no tg fi, or 0 in a period
        {3, at(11, 30, 9), 9, 9, 9, 999, 99, 99},          // the deleted controller
        {1, at(11, 30, 12, 30), -1.5, 0.75, 0.25, Null, 1, 50}, // counter turned back; no voltage
        {2, at(11, 30, 23, 45), 3, Null, 0.5, 420, 6, 50}, // no reactive energy
        {1, at(12, 1, 0), 1, 0.5, 0, 400, 4, 50},
        {2, at(12, 1, 10), 2, 1, 0, 380, 3, 50},
        {1, at(12, 1, 12), 0, 0.25, 0, 404, 8, 50.5},
        {1, at(12, 2, 23, 45), 2, 2, 0, 420, 6, 50},
        {1, at(12, 3, 0), 5, 5, 5, 500, 50, 50},           // the day after the last
    };
    for (const Sample &s : samples) {
        SqlStatement q(QStringLiteral("INSERT INTO Pomiary (Adres, Data, EnCzynna, EnBiernaCalk, EnBiernaPoj, Napiecie, "
                                      "PradCalk, Czestotliwosc) VALUES ("));
        q.value(s.adres) << ", ";
        q.date(s.when);
        for (const QVariant &v : {s.enCzynna, s.enBiernaCalk, s.enBiernaPoj, s.napiecie, s.pradCalk, s.czestotliwosc})
            q << ", " << (v.isNull() ? "NULL" : QString::number(v.toDouble()));
        db.exec(q << ")");
    }
    TestDatabases::rollUpAgain(db);
}

QByteArray ReportArchive::golden(const QString &name)
{
    QFile f(QStringLiteral(GOLDEN_DIR "/") + name);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("missing golden file ") + name.toUtf8();
}
