#include "TestMain.h"
#include "AddressList.h"
#include "ControllerSources.h"
#include "SimOptions.h"

#include <QtTest>

using namespace sim;

class TestSimOptions : public QObject {
    Q_OBJECT

private:
    static ParsedCommandLine parse(const QStringList &args)
    {
        return parseCommandLine(QStringList{QStringLiteral("zorbel-sim")} + args);
    }

private slots:
    void addressLists()
    {
        QCOMPARE(parseAddressList(QStringLiteral("1,2,5-7")).value(), (QList<int>{1, 2, 5, 6, 7}));
        QCOMPARE(parseAddressList(QStringLiteral("9, 3,3")).value(), (QList<int>{3, 9}));
        QCOMPARE(parseAddressList(QStringLiteral("all"))->size(), 256);
        QVERIFY(!parseAddressList(QStringLiteral("256")));
        QVERIFY(!parseAddressList(QStringLiteral("7-3")));
        QVERIFY(!parseAddressList(QStringLiteral("x")));
        QVERIFY(!parseAddressList(QString()));
    }

    void configText()
    {
        const auto configs = ControllerSources::fromConfigText(QStringLiteral(
            "# address ratio voltage-ratio measuring\n5 160 1 380\n\n7 60   # 500 V later\n 9\n"));
        QCOMPARE(configs.size(), size_t(3));
        QCOMPARE(configs[0].address, 5);
        QCOMPARE(configs[0].currentRatio, 160.0);
        QCOMPARE(configs[1].currentRatio, 60.0);
        QCOMPARE(configs[1].measuringVoltage, 380);
        QCOMPARE(configs[2].address, 9);
        QCOMPARE(configs[2].voltageRatio, 1);
    }

    void badConfigLineIsNamed()
    {
        try {
            ControllerSources::fromConfigText(QStringLiteral("5\nfive 100\n"));
            QFAIL("no error");
        } catch (const std::runtime_error &e) {
            QVERIFY(QString::fromStdString(e.what()).startsWith(QStringLiteral("wiersz 2")));
        }
    }

    void faultOptions()
    {
        const auto r = parse({QStringLiteral("--addresses"), QStringLiteral("1-3"),
                              QStringLiteral("--silent"), QStringLiteral("2"),
                              QStringLiteral("--drop"), QStringLiteral("0.05"),
                              QStringLiteral("--noise"), QStringLiteral("0.5"),
                              QStringLiteral("--delay"), QStringLiteral("120"),
                              QStringLiteral("--reset-counters"), QStringLiteral("1,3"),
                              QStringLiteral("--seed"), QStringLiteral("42"),
                              QStringLiteral("--speed"), QStringLiteral("60"),
                              QStringLiteral("--unpaced"), QStringLiteral("--tcp"), QStringLiteral("0")});
        QVERIFY2(r.error.isEmpty(), qPrintable(r.error));
        const SimOptions &o = r.options;
        QCOMPARE(o.faults.silentAddresses, QSet<int>({2}));
        QCOMPARE(o.faults.dropProbability, 0.05);
        QCOMPARE(o.faults.noiseProbability, 0.5);
        QCOMPARE(o.faults.delayMs, 120);
        QCOMPARE(o.faults.resettingAddresses, QSet<int>({1, 3}));
        QCOMPARE(o.seed, 42u);
        QCOMPARE(o.speed, 60.0);
        QVERIFY(o.unpaced);
        QCOMPARE(o.tcpPort.value(), quint16(0));
    }

    void refusedCommandLines_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::newRow("no controllers") << QStringList{};
        QTest::newRow("db and config") << QStringList{"--db", "sqlite:a", "--config", "b"};
        QTest::newRow("drop above 1") << QStringList{"--addresses", "1", "--drop", "1.5"};
        QTest::newRow("bad silent") << QStringList{"--addresses", "1", "--silent", "x"};
        QTest::newRow("link with tcp") << QStringList{"--addresses", "1", "--tcp", "5000", "--link", "/tmp/x"};
        QTest::newRow("unknown option") << QStringList{"--addresses", "1", "--fast"};
        QTest::newRow("stray argument") << QStringList{"--addresses", "1", "extra"};
    }
    void refusedCommandLines()
    {
        QFETCH(QStringList, args);
        QVERIFY(!parse(args).error.isEmpty());
    }

};

ZORBEL_TEST_MAIN(TestSimOptions)
#include "tst_sim_options.moc"
