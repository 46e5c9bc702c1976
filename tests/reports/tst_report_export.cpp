#include "TestMain.h"
#include "AdminRun.h"
#include "ReportArchive.h"
#include "TestEnv.h"

#include "db/Database.h"
#include "db/HierarchyStore.h"

#include <QDir>
#include <QFile>
#include <QTest>

// zorbel-admin report: the tables saved as the station computes them, the
// controllers of an object found as its tree finds them, and every refusal
// leaving no file behind.
class ReportExportTest : public QObject {
    Q_OBJECT
private slots:
    void reportCommandSavesTheTableOrRefusesLeavingNoFile_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("expected"); // the golden file, or what the error says
        const QStringList day{"--from", "2026-11-30"}, days = day + QStringList{"--to", "2026-12-02"}, csv{"--csv", "r.csv"};
        const auto row = [](const char *name, const QStringList &args, int code, const char *expected) {
            QTest::newRow(name) << QStringList{"report"} + args << code << QString::fromUtf8(expected);
        };
        const QStringList a{"daily", "--kod", "A"}, at = a + day;
        row("a controller's day, its code in any case", QStringList{"daily", "--kod", "a"} + day + csv, 0,
            "report_daily_controller.csv");
        row("an object's period", QStringList{"period", "--obiekt", "Hala"} + days + csv, 0, "report_period_object.csv");
        row("no such controller", QStringList{"daily", "--kod", "X"} + day + csv, 2, "brak regulatora o kodzie X");
        row("no such element", QStringList{"daily", "--obiekt", "Nic"} + day + csv, 2, "brak elementu Nic");
        row("an object without controllers", QStringList{"daily", "--obiekt", "Pusta"} + day + csv, 2, "brak regulatorów");
        row("a controller's element", QStringList{"daily", "--obiekt", "A"} + day + csv, 2, "użyj --kod");
        row("the root, as the tree refuses it", QStringList{"daily", "--obiekt", "System Zorbel"} + day + csv, 1,
            "Nie znaleziono elementu");
        row("reversed range", QStringList{"period", "--kod", "A", "--from", "2026-12-02", "--to", "2026-11-30"} + csv, 2,
            "zakres dat odwrócony");
        row("a day with --to", a + days + csv, 2, "bez opcji --to");
        row("both --kod and --obiekt", at + QStringList{"--obiekt", "Hala"} + csv, 2, "--kod albo --obiekt");
        row("no kind", QStringList{"--kod", "A"} + day + csv, 2, "daily albo period");
        row("unwritable csv", at + QStringList{"--csv", "brak/r.csv"}, 1, "Nie można zapisać pliku brak/r.csv");
        row("unwritable pdf", at + QStringList{"--pdf", "brak/r.pdf"}, 1, "Nie można zapisać pliku brak/r.pdf");
    }
    void reportCommandSavesTheTableOrRefusesLeavingNoFile()
    {
        QFETCH(QStringList, args);
        QFETCH(int, code);
        QFETCH(QString, expected);
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        ReportArchive::fill(db);
        HierarchyStore tree([&db]() -> Database & { return db; });
        for (const char *element : {"Hala", "Pusta"})
            tree.add(element, "System Zorbel", "S");
        tree.add("A", "Hala", "R");
        tree.add("B", "Hala", "R");
        const QStringList before = QDir(env.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
        const AdminRun r = runAdmin(args);
        QCOMPARE(r.code, code);
        if (code == 0) {
            QFile saved(env.file("r.csv"));
            QVERIFY(saved.open(QIODevice::ReadOnly));
            QCOMPARE(saved.readAll(), ReportArchive::golden(expected));
            return;
        }
        QVERIFY2(r.err.contains(expected), qPrintable(r.err));
        QCOMPARE(QDir(env.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), before);
    }

    void reportOnAnArchiveWithoutDayRollUpsNamesTheUpgrade()
    {
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        ReportArchive::fill(db);
        db.execText(QStringLiteral("UPDATE WersjaSchematu SET wersja = 2"));
        const AdminRun r = runAdmin({"report", "period", "--kod", "A", "--from", "2026-11-30", "--csv", "r.csv"});
        QCOMPARE(r.code, 1);
        QVERIFY2(r.err.contains(QStringLiteral("zorbel-admin upgrade")), qPrintable(r.err));
        QVERIFY(!QFile::exists(env.file("r.csv")));
    }
};

ZORBEL_TEST_MAIN(ReportExportTest)
#include "tst_report_export.moc"
