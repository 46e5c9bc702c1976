#include "TestMain.h"
#include "ErrorOf.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "db/ControllerStore.h"
#include "db/SampleStore.h"
#include "db/Schema.h"
#include "db/clsRegulatory.h"

#include <QSqlRecord>
#include <QTest>

namespace {

// Every row of a query, its cells as text joined by "|", NULL as "NULL".
QStringList rows(Database &db, const QString &sql)
{
    QSqlQuery q = db.exec(SqlStatement(sql));
    QStringList out;
    while (q.next()) {
        QStringList cells;
        for (int i = 0; i < q.record().count(); ++i)
            cells << (q.isNull(i) ? QStringLiteral("NULL") : q.value(i).toString());
        out << cells.join(QLatin1Char('|'));
    }
    return out;
}

}

// The controller editor's rows on both engines, two editors and the sample writer on one database.
class ControllerRowsTest : public QObject {
    Q_OBJECT
private slots:
    void twoEditorsWriteTypedValuesBesideTheSamples_data() { TestDatabases::addEngineRows(); }
    void twoEditorsWriteTypedValuesBesideTheSamples()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        db.open(Database::OpenMode::CreateIfMissing);
        Schema::create(db);
        if (config.engine == SqlDialect::Engine::SQLite) // a locked file is waited for, not refused
            QCOMPARE(rows(db, QStringLiteral("PRAGMA busy_timeout")), QStringList{"5000"});
        ControllerStore store([&]() -> Database & { return db; });
        store.add({{"Kod", "K1"}, {"Adres", 1}});
        store.add({{"Kod", "K2"}, {"Adres", 2}});
        int beeps = 0;
        clsRegulatory a(config, [&] { ++beeps; });
        clsRegulatory b(config, [&] { ++beeps; });
        EditableRowSet &first = a.Primary();
        QCOMPARE(first.text(QStringLiteral("kod")), QStringLiteral("K1")); // names compared case-blind
        first.setText(QStringLiteral("Przekladnia"), QStringLiteral("2,5"));
        first.setText(QStringLiteral("Opis"), QStringLiteral("x'; DROP TABLE Log; --"));
        a.AddNew();
        first.setText(QStringLiteral("Adres"), QStringLiteral("9"));
        first.setText(QStringLiteral("Kod"), QStringLiteral("N"));
        a.Update();
        QCOMPARE(a.AbsolutePosition(), 3);
        QVERIFY(!a.EditingRecord());

        SampleStore samples([&]() -> Database & { return db; });
        StoredSample sample;
        sample.adres = 1;
        sample.Data = ZDate::fromParts(2026, 11, 25, 8, 0, 0);
        samples.ZapiszPomiar(sample);
        b.FindRecord(QStringLiteral("adres = 2"));
        b.Primary().setText(QStringLiteral("Opis"), QStringLiteral("B"));
        b.Update();
        QCOMPARE(rows(db, QStringLiteral("SELECT Adres, Kod, Przekladnia, Opis FROM Regulatory ORDER BY Adres")),
                 (QStringList{"1|K1|2.5|x'; DROP TABLE Log; --", "2|K2|NULL|B", "9|N|NULL|NULL"}));
        QCOMPARE(rows(db, QStringLiteral("SELECT COUNT(*) FROM Pomiary")), QStringList{"1"});

        a.AddNew(); // cancelled: back to the first row
        a.Cancel();
        QCOMPARE(a.AbsolutePosition(), 1);
        a.MoveLast();
        a.Delete(); // the last row: a beep, and the new last row
        QCOMPARE(a.AbsolutePosition(), 2);
        QCOMPARE(beeps, 1);

        // a row deleted meanwhile elsewhere is not written; its change stays
        b.MoveFirst();
        b.Primary().setText(QStringLiteral("Opis"), QStringLiteral("z"));
        db.execText(QStringLiteral("DELETE FROM Regulatory WHERE Adres = 1"));
        QCOMPARE(errorOf([&] { b.Update(); }), int(RunTimeError::DatabaseError));
        QVERIFY(b.EditingRecord());
        QCOMPARE(rows(db, QStringLiteral("SELECT Adres FROM Regulatory")), QStringList{"2"});
    }
};

ZORBEL_TEST_MAIN(ControllerRowsTest)
#include "tst_controller_rows.moc"
