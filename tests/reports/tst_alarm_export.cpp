#include "TestMain.h"
#include "AdminRun.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "db/Database.h"
#include "db/Schema.h"
#include "reports/AlarmCsv.h"
#include "reports/AlarmHistory.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

namespace {

using Row = AlarmHistory::Row;
const ZDate Day = ZDate::fromParts(2026, 11, 25);

void addAlarm(Database &db, const Row &r)
{
    SqlStatement s(QStringLiteral("INSERT INTO Alarmy (Data, Kod_Regul, Tresc, Data_potw, Data_dezakt) VALUES ("));
    s.date(r.raised) << ", ";
    s.value(r.kod) << ", ";
    s.value(r.text);
    for (ZDate d : {r.confirmed, r.deactivated})
        d.isZero() ? (s << ", NULL") : (s << ", ").date(d);
    db.exec(s << ")");
}

// A station database holding `rows` on the current engine (SQLite outside data rows).
void fill(Database &db, const std::vector<Row> &rows)
{
    db.open(Database::OpenMode::CreateIfMissing);
    Schema::create(db);
    db.transaction();
    for (const Row &r : rows)
        addAlarm(db, r);
    db.commit();
}

QStringList shown(const std::vector<Row> &rows)
{
    QStringList all;
    for (const Row &r : rows)
        all << QStringList{r.raised.toIsoText(), r.kod, r.text, QString::number(r.confirmed.msecs()),
                           QString::number(r.deactivated.msecs())}.join(u'|');
    return all;
}

}

// The alarm history read for whole days, and its CSV and PDF as zorbel-admin saves them.
class AlarmExportTest : public QObject {
    Q_OBJECT
private slots:
    void readsWholeDaysOfOneController_data() { TestDatabases::addEngineRows(); }
    void readsWholeDaysOfOneController()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        const std::vector<Row> rows{{Day.addSecs(-1), "R05", "przed", Day, Day},
                                    {Day, "R05", "Przekroczenie napięcia", Day.addSecs(5), Day.addSecs(60)},
                                    {Day.addSecs(3600), "R06", "inny regulator", Day, Day},
                                    {Day.addDays(1).addSecs(-1), "R05", "Brak komunikacji z regulatorem", {}, {}},
                                    {Day.addDays(1), "R05", "po", Day, Day}};
        Database db(config);
        fill(db, rows);
        const AlarmHistory h = AlarmHistory::read(db, "R05", Day.date(), Day.date());
        QCOMPARE(shown(h.rows), shown({rows[1], rows[3]}));
        QCOMPARE(h.title(), QStringLiteral("Alarmy regulatora 'R05' z dnia 25/11/2026"));
        QVERIFY(AlarmHistory::read(db, "R05", Day.date().addDays(2), Day.date().addDays(2)).rows.empty());
    }

    void csvMatchesItsGoldenFileByteForByte()
    {
        TestEnv env;
        const AlarmHistory h{"R05", Day.date(), Day.date(),
                             {{Day.addSecs(29700), "R05", "Przekroczenie napięcia", Day.addSecs(30005), Day.addSecs(32400)},
                              {Day.addSecs(36000), "R05", "Brak komunikacji z regulatorem", {}, {}},
                              {Day.addSecs(45000), "R05", "Próg \"cos φ\"; za niski", Day.addSecs(45060), {}},
                              {Day.addSecs(50000), "R05", "Zadziałał bezpiecznik\nstopnia 3", {}, Day.addSecs(50001)}}};
        AlarmCsv::save(h, env.file("alarmy.csv"));
        QFile saved(env.file("alarmy.csv")), golden(QStringLiteral(GOLDEN_DIR "/alarms.csv"));
        QVERIFY(saved.open(QIODevice::ReadOnly) && golden.open(QIODevice::ReadOnly));
        QCOMPARE(saved.readAll(), golden.readAll());
    }

    void pdfHoldsTitleTextsDatesAndPageNumbers()
    {
        const QString pdftotext = QStandardPaths::findExecutable(QStringLiteral("pdftotext"));
        if (pdftotext.isEmpty())
            QSKIP("pdftotext (poppler-utils) is not installed");
        TestEnv env;
        std::vector<Row> rows;
        for (int i = 0; i < 80; ++i) // more than one page holds
            rows.push_back({ZDate::fromParts(2026, 11, 1 + i % 30, 0, 30, i), "R05", "Przekroczenie napięcia", {}, {}});
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        fill(db, rows);
        const QString file = env.file("alarmy.pdf");
        const AdminRun r = runAdmin({"alarms", "--kod", "R05", "--from", "2026-11-01", "--to", "2026-11-30", "--pdf", file});
        QVERIFY2(r.code == 0, qPrintable(r.err));
        QCOMPARE(r.out, QStringLiteral("Zapisano 80 alarmów regulatora R05 do %1\n").arg(file));
        const auto textOf = [&pdftotext](const QString &pdf) {
            QProcess p;
            p.start(pdftotext, {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
            return p.waitForFinished(30000) && p.exitCode() == 0 ? QString::fromUtf8(p.readAllStandardOutput()) : QString();
        };
        const QString text = textOf(file);
        for (const char *expected : {"Alarmy regulatora 'R05' od 01/11/2026 do 30/11/2026", "Przekroczenie napięcia",
                                     "30/11/26 00:30:29", "strona 1/2", "strona 2/2"})
            QVERIFY2(text.contains(QString::fromUtf8(expected)), expected);
        // a day without alarms is one page with its header and captions
        const QString empty = env.file("pusty.pdf");
        QCOMPARE(runAdmin({"alarms", "--kod", "R05", "--from", "2026-12-01", "--to", "2026-12-01", "--pdf", empty}).code, 0);
        const QString emptyText = textOf(empty);
        QVERIFY(emptyText.contains(QStringLiteral("Data potwierdzenia")) && emptyText.contains(QStringLiteral("strona 1/1")));
    }

    void badCommandLinesAndUnwritableFilesLeaveNoFile_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("code");
        const QStringList kod{"alarms", "--kod", "R05"}, from{"--from", "2026-11-01"}, to{"--to", "2026-11-30"},
            csv{"--csv", "a.csv"};
        QTest::newRow("reversed range") << kod + QStringList{"--from", "2026-11-30", "--to", "2026-11-01"} + csv << 2;
        QTest::newRow("no kod") << QStringList{"alarms"} + from + to + csv << 2;
        QTest::newRow("no such day") << kod + QStringList{"--from", "2026-11-31"} + to + csv << 2;
        QTest::newRow("no --to") << kod + from + csv << 2;
        QTest::newRow("no file") << kod + from + to << 2;
        QTest::newRow("csv and pdf") << kod + from + to + csv + QStringList{"--pdf", "a.pdf"} << 2;
        QTest::newRow("kod with init") << QStringList{"init", "--kod", "R05"} << 2;
        QTest::newRow("unwritable csv") << kod + from + to + QStringList{"--csv", "brak/a.csv"} << 1;
        QTest::newRow("unwritable pdf") << kod + from + to + QStringList{"--pdf", "brak/a.pdf"} << 1;
    }
    void badCommandLinesAndUnwritableFilesLeaveNoFile()
    {
        QFETCH(QStringList, args);
        QFETCH(int, code);
        TestEnv env;
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        fill(db, {{Day, "R05", "Przekroczenie napięcia", {}, {}}});
        const QStringList before = QDir(env.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
        const AdminRun r = runAdmin(args);
        QCOMPARE(r.code, code);
        QVERIFY2(r.err.contains(code == 2 ? QStringLiteral("Pomoc:") : QStringLiteral("Nie można zapisać pliku brak/a.")),
                 qPrintable(r.err));
        QCOMPARE(QDir(env.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), before);
    }
};

ZORBEL_TEST_MAIN(AlarmExportTest)
#include "tst_alarm_export.moc"
