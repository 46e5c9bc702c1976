#include "TestMain.h"
#include "ErrorOf.h"
#include "TestDatabases.h"
#include "TestEnv.h"
#include "ReportArchive.h"

#include "base/RunTimeError.h"
#include "db/Database.h"
#include "reports/ReportBuild.h"
#include "reports/ReportCsv.h"

#include <QTest>

namespace {

const QDate Nov30(2026, 11, 30), Dec2(2026, 12, 2);
const QString Both = QStringLiteral("'A','B'");

}

// The four reports computed from one small archive on both engines, and
// their CSV byte for byte against files worked out by hand.
class ReportTablesTest : public QObject {
    Q_OBJECT
private slots:
    void reportsAsCsvMatchTheirGoldenFiles_data() { TestDatabases::addEngineRows(); }
    void reportsAsCsvMatchTheirGoldenFiles()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        ReportArchive::fill(db);
        const std::pair<QString, ReportTable> reports[] = {
            {"report_daily_controller.csv", ReportBuild::dailyOfController(db, Nov30, 1, "A")},
            {"report_daily_object.csv", *ReportBuild::dailyOfObject(db, Nov30, "Hala", Both)},
            {"report_period_controller.csv", ReportBuild::periodOfController(db, Nov30, Dec2, 1, "A")},
            {"report_period_object.csv", *ReportBuild::periodOfObject(db, Nov30, Dec2, "Hala", Both)},
        };
        QStringList headers;
        for (const auto &[file, table] : reports) {
            QCOMPARE(ReportCsv::text(table), ReportArchive::golden(file));
            headers << table.tytul() + u'|' + table.podtytul();
        }
        QCOMPARE(headers, (QStringList{" regulatora 'A'| z dnia 30/11/2026", " obiektu 'Hala'| z dnia 30/11/2026",
                                       " regulatora 'A'| za okres od 30/11/26 do 02/12/26",
                                       " obiektu 'Hala'| za okres od 30/11/26 do 02/12/26"}));
    }

    void objectWithoutControllersHasNoReportAndAnEmptyPlaceFailsTheQuery_data() { TestDatabases::addEngineRows(); }
    void objectWithoutControllersHasNoReportAndAnEmptyPlaceFailsTheQuery()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        ReportArchive::fill(db);
        QVERIFY(!ReportBuild::dailyOfObject(db, Nov30, "Pusta", {}));
        QVERIFY(!ReportBuild::periodOfObject(db, Nov30, Dec2, "Pusta", {}));
        QCOMPARE(errorOf([&] { ReportBuild::dailyOfObject(db, Nov30, "Hala", "'A',"); }), int(RunTimeError::DatabaseError));
        QCOMPARE(errorOf([&] { ReportBuild::periodOfObject(db, Nov30, Dec2, "Hala", ",'A'"); }),
                 int(RunTimeError::DatabaseError));
    }

    void dayWithoutSamplesGivesTheHeaderAndEmptyFigures()
    {
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        ReportArchive::fill(db);
        const QByteArray daily = ReportCsv::text(ReportBuild::dailyOfController(db, Dec2.addDays(5), 1, "A"));
        QCOMPARE(daily, ReportArchive::golden("report_daily_controller.csv").split('\n').constFirst() +
                            "\nsuma;;;;;;;\r\nmin.;;;;;;;\r\nmaks.;;;;;;;\r\n\xc5\x9brednia;;;;;;;\r\n");
        const QByteArray period = ReportCsv::text(ReportBuild::periodOfController(db, Dec2.addDays(5), Dec2.addDays(9), 1, "A"));
        QCOMPARE(period.count('\n'), 5);
        QVERIFY(period.endsWith("\xc5\x9brednia;;;;;;;;;;;;;;;;\r\n"));
    }
};

ZORBEL_TEST_MAIN(ReportTablesTest)
#include "tst_report_tables.moc"
