#include "TestMain.h"
#include "ErrorOf.h"
#include "TestEnv.h"

#include "base/RunTimeError.h"
#include "reports/ReportPrint.h"
#include "reports/ReportTable.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

namespace {

using Row = std::vector<QVariant>;
const QDate Printed(2026, 11, 25);
const QStringList DailyFields{"data", "EnCzynna", "EnBierna", "tgfi", "EnBiernaPoj", "Napiecie", "Czestotliwosc", "PradCalk"};
const QStringList PeriodFields{"data", "EnCzynnaSuma", "EnBiernaSuma", "tgfiMin", "tgfiMaks", "tgfiSr", "EnBiernaPojSuma",
                               "NapiecieMin", "NapiecieMaks", "NapiecieSr", "CzestotliwoscMin", "CzestotliwoscMaks",
                               "CzestotliwoscSr", "PradCalkMin", "PradCalkMaks", "PradCalkSr"};

QVariant at(int minutes)
{
    return QDateTime(QDate(2026, 11, 30), QTime(0, 0)).addSecs(60LL * minutes);
}

ReportTable table(ReportTable::Kind kind, std::vector<Row> rows)
{
    const bool daily = kind == ReportTable::Kind::Daily;
    ReportTable t(kind, QStringLiteral(" regulatora 'R05'"),
                  daily ? QStringLiteral(" z dnia 30/11/2026") : QStringLiteral(" za okres od 01/11/26 do 02/11/26"));
    t.setRows(daily ? DailyFields : PeriodFields, std::move(rows));
    return t;
}

ReportTable fixed(const QString &name)
{
    if (name == QLatin1String("report_period"))
        return table(ReportTable::Kind::Period,
                     {{"01/11/26", 250.5, 60.25, 0.1, 0.4, 0.24, 3.5, 225, 235, 230.4, 49.9, 50.1, 50.0, 5, 20.5, 12.25},
                      {"02/11/26", -1.5, -0.25, {}, {}, {}, 0.5, 228, 232, 229.6, 49.95, 50.05, 50, 4, 18, 11}});
    if (name == QLatin1String("report_empty"))
        return table(ReportTable::Kind::Daily, {});
    return table(ReportTable::Kind::Daily, {{at(15), 12.5, 3.25, 0.26, 0.125, 231.4, 50.02, 10.5},
                                            {at(30), -1.5, -0.25, {}, 0, 229.6, 49.98, 12.25},
                                            {at(45), 8, 2, 0.24, 0.375, 230, 50, 11}});
}

// The saved PDF's pages as pdftotext lays them out, each line's blanks run
// together and empty lines left out, so that the font's widths do not matter.
QStringList pagesOf(const ReportTable &t, const TestEnv &env)
{
    const QString pdf = env.file(QStringLiteral("raport.pdf"));
    ReportPrint::savePdf(t, Printed, pdf);
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    if (!p.waitForFinished(30000) || p.exitCode() != 0)
        return {};
    QStringList pages = QString::fromUtf8(p.readAllStandardOutput()).split(u'\f');
    pages.removeLast(); // what follows the last page's form feed
    for (QString &page : pages) {
        QStringList lines;
        for (const QString &line : page.split(u'\n'))
            if (!line.simplified().isEmpty())
                lines << line.simplified();
        page = lines.join(u'\n');
    }
    return pages;
}

}

class ReportPrintTest : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("pdftotext (poppler-utils) is not installed");
    }

    void pdfTextMatchesItsGoldenFile_data()
    {
        QTest::addColumn<QString>("golden");
        QTest::newRow("daily: NULL tg fi blank and left out, negatives") << "report_daily";
        QTest::newRow("period: blocks of four lines") << "report_period";
        QTest::newRow("no rows: headers and an empty footer") << "report_empty";
    }
    void pdfTextMatchesItsGoldenFile()
    {
        QFETCH(QString, golden);
        TestEnv env;
        QFile expected(QStringLiteral(GOLDEN_DIR "/%1.txt").arg(golden));
        QVERIFY(expected.open(QIODevice::ReadOnly));
        QCOMPARE(pagesOf(fixed(golden), env), QStringList{QString::fromUtf8(expected.readAll()).trimmed()});
    }

    void everyPageHasItsHeadsAndNumberAndEveryRowPrintsOnce()
    {
        const int Rows = 176; // fills three pages: the report footer takes a fourth
        TestEnv env;
        std::vector<Row> rows;
        for (int m = 0; m < Rows; ++m)
            rows.push_back({at(m), 1, 1, 0.5, 1, 230, 50, 10});
        const QStringList pages = pagesOf(table(ReportTable::Kind::Daily, rows), env);
        QVERIFY(pages.size() >= 3);
        for (int i = 0; i < pages.size(); ++i) {
            const QString &page = pages[i];
            QVERIFY2(page.contains(QStringLiteral("Czas tg φ Napięcie Częstotliwość")), qPrintable(page));
            QVERIFY(page.endsWith(QStringLiteral("Zorbel strona %1/%2").arg(i + 1).arg(pages.size())));
            QCOMPARE(page.contains(QStringLiteral("Wydruk z dnia")), i == 0);
            QCOMPARE(page.contains(QStringLiteral("średnia")), i == pages.size() - 1);
        }
        const QString all = pages.join(u'\n');
        for (int m = 0; m < Rows; ++m)
            QCOMPARE(all.count(at(m).toDateTime().toString(QStringLiteral("HH:mm:ss"))), 1);
    }

    void aPeriodBlockNeverSplitsAcrossPages()
    {
        TestEnv env;
        std::vector<Row> rows;
        const QDate first(2026, 9, 1); // none of them in the subtitle
        for (int d = 0; d < 40; ++d) // a short row: the other statistics are NULL
            rows.push_back({first.addDays(d).toString(QStringLiteral("dd/MM/yy")), 100 + d});
        const QStringList pages = pagesOf(table(ReportTable::Kind::Period, rows), env);
        QVERIFY(pages.size() >= 3);
        for (int d = 0; d < 40; ++d) {
            const QString day = first.addDays(d).toString(QStringLiteral("dd/MM/yy"));
            const auto page = std::find_if(pages.cbegin(), pages.cend(), [&](const QString &p) { return p.contains(day); });
            QVERIFY2(page != pages.cend() && page->count(day) == 1, qPrintable(day));
            QVERIFY2(page->contains(QStringLiteral("suma %1,000").arg(100 + d)), qPrintable(*page));
            QCOMPARE(pages.join(u'\n').count(day), 1);
        }
    }

    void anUnwritablePathThrowsAndLeavesNoFile_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("no such folder") << "brak/raport.pdf";
        QTest::newRow("a folder") << "folder";
    }
    void anUnwritablePathThrowsAndLeavesNoFile()
    {
        QFETCH(QString, path);
        TestEnv env;
        QVERIFY(QDir(env.path()).mkdir(QStringLiteral("folder")));
        const auto entries = [&env] { return QDir(env.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries); };
        const QStringList before = entries();
        const ReportTable t = fixed(QStringLiteral("report_daily"));
        QCOMPARE(errorOf([&] { ReportPrint::savePdf(t, Printed, env.file(path)); }), int(RunTimeError::FileAccess));
        QCOMPARE(entries(), before);
        QVERIFY(QDir(env.file(QStringLiteral("folder"))).isEmpty());
    }
};

ZORBEL_TEST_MAIN(ReportPrintTest)
#include "tst_report_print.moc"
