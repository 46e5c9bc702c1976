#include "TestMain.h"
#include "AdminRun.h"
#include "BillingArchive.h"
#include "TestEnv.h"

#include "base/ReactiveTariff.h"
#include "base/SettingsStore.h"
#include "db/Database.h"

#include <QDir>
#include <QFile>
#include <QTest>

// zorbel-admin billing: the bill saved under the tariff of the settings,
// and every refusal leaving no file behind.
class BillingExportTest : public QObject {
    Q_OBJECT
private slots:
    void billingCommandSavesTheBillOrRefusesLeavingNoFile_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("crk");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("expected"); // a line of the CSV, the PDF's mark, or what the error says
        const QStringList days{"--from", "2026-03-01", "--to", "2026-03-03"}, csv{"--csv", "b.csv"};
        const auto row = [](const char *name, const QStringList &args, const char *crk, int code,
                            const char *expected) {
            QTest::newRow(name) << QStringList{"billing"} + args << QString::fromUtf8(crk) << code
                                << QString::fromUtf8(expected);
        };
        // A over 1-3 March, as tst_billing works it out: 190 kvarh excess, 28.80 zł
        row("a controller's days", QStringList{"--kod", "a"} + days + csv, "300", 0,
            "regulator;A;710.000;451.000;23.000;4.000;0.6352;190.000;28.80;60;72;0.8333\r\n");
        row("an object's month", QStringList{"--obiekt", "Hala", "--month", "2026-03"} + csv, "300", 0,
            "obiekt;;960.000;547.000;33.000;34.000;0.5698;196.000;35.29;65;806;");
        row("a PDF", QStringList{"--obiekt", "Hala", "--pdf", "b.csv"} + days, "300", 0, "%PDF");
        row("no such controller", QStringList{"--kod", "X"} + days + csv, "300", 2, "brak regulatora o kodzie X");
        row("an object without controllers", QStringList{"--obiekt", "Pusta"} + days + csv, "300", 2,
            "brak regulatorów");
        row("reversed range", QStringList{"--kod", "A", "--from", "2026-03-03", "--to", "2026-03-01"} + csv, "300", 2,
            "zakres dat odwrócony");
        row("a month and days", QStringList{"--kod", "A", "--month", "2026-03"} + days + csv, "300", 2, "nie oba");
        row("a tariff value not a number", QStringList{"--kod", "A"} + days + csv, "3OO", 1, "Rozliczenie/Crk = „3OO”");
        row("unwritable file", QStringList{"--kod", "A", "--csv", "brak/b.csv"} + days, "300", 1, "brak/b.csv");
    }
    void billingCommandSavesTheBillOrRefusesLeavingNoFile()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, crk);
        QFETCH(int, code);
        QFETCH(QString, expected);
        TestEnv env;
        QtSettingsStore().setValue(ReactiveTariff::Section, QStringLiteral("Crk"), crk);
        Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
        BillingArchive::fill(db);
        const QStringList before = QDir(env.path()).entryList(QDir::Files);
        const AdminRun r = runAdmin(args);
        QVERIFY2(r.code == code, qPrintable(r.err));
        if (code == 0) {
            QFile saved(env.file("b.csv"));
            QVERIFY(saved.open(QIODevice::ReadOnly));
            const QString text = QString::fromUtf8(saved.readAll());
            QVERIFY2(text.contains(expected), qPrintable(text.left(2000)));
            return;
        }
        QVERIFY2(r.err.contains(expected), qPrintable(r.err));
        QCOMPARE(QDir(env.path()).entryList(QDir::Files), before);
    }
};

ZORBEL_TEST_MAIN(BillingExportTest)
#include "tst_billing_export.moc"
