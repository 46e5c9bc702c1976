#include "TestMain.h"
#include "HeadlessStation.h"
#include "TestEnv.h"

#include "db/StatementObserver.h"

#include <QRegularExpression>
#include <QTest>

// What the start asks of the database: the controllers and the bases of
// their next samples, never the archive of samples, which on a station that
// has run for years holds tens of millions of rows.
class StartupReadsTest : public QObject {
    Q_OBJECT

    static bool touchesArchive(const QString &sql)
    {
        static const QRegularExpression pomiary(QStringLiteral("\\bPomiary\\b"),
                                                QRegularExpression::CaseInsensitiveOption);
        return pomiary.match(sql).hasMatch();
    }

    static void addSamples(Database &db, int adres, int count)
    {
        for (int i = 0; i < count; ++i) {
            SqlStatement s(QStringLiteral("INSERT INTO Pomiary (Adres, EnCzynna, Data) VALUES ("));
            s.value(adres) << ", ";
            s.value(1.5 * i) << ", ";
            s.date(ZDate::fromParts(2024, 1, 14, 0, 0, 0).addMinutes(15 * i)) << ")";
            db.exec(s);
        }
    }

private slots:
    void startUpRunsNoStatementOnTheSampleArchive()
    {
        TestEnv env;
        HeadlessStation st(QStringLiteral("zorbel.db"));
        Database &db = st.createDatabase();
        for (int adres : {1, 2}) {
            st.addController(QStringLiteral("T%1").arg(adres), adres);
            st.addLastSample(adres, 10.0f, 5.0f, 2.0f, 0, ZDate::fromParts(2024, 1, 14, 23, 45, 0));
            addSamples(db, adres, 96);
        }
        QStringList statements;
        {
            StatementObserver::Scope watch([&](const QString &sql) { statements << sql; });
            st.start();
        }
        QCOMPARE(st.station().oApp.IloscRegulatorow, std::int16_t(2));
        QVERIFY(statements.filter(QStringLiteral("Regulatory")).size() > 0);
        QVERIFY(statements.filter(QStringLiteral("OstPomiar")).size() > 0);
        for (const QString &sql : std::as_const(statements))
            QVERIFY2(!touchesArchive(sql), qPrintable(sql));

        // the station's set on the archive still reads it once walked, and the watch sees that
        QStringList later;
        StatementObserver::Scope watch([&](const QString &sql) { later << sql; });
        QCOMPARE(st.station().rsPomiary->rowCount(), 192);
        QCOMPARE(later.size(), 1);
        QVERIFY(touchesArchive(later.first()));
    }
};

ZORBEL_TEST_MAIN(StartupReadsTest)
#include "tst_startup_reads.moc"
