#include "TestMain.h"
#include "ErrorOf.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include "station/PollingTimers.h"
#include "station/PortOpening.h"
#include "base/RunTimeError.h"
#include "model/StatusPanels.h"

#include <QSqlQuery>
#include <QTest>

namespace {

const QString Again = QStringLiteral("\rProszę zmienić nr portu.");

void setPort(StationFixture &f, const char *number)
{
    f.settings.setValue(QStringLiteral("port"), QStringLiteral("nr_portu"), QString::fromLatin1(number));
}

}

class PortOpeningTest : public QObject {
    Q_OBJECT
private slots:
    void portThatWillNotOpenIsAskedForUntilOneOpens()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.line.failOpenWith(QStringLiteral("Nie ma takiego urządzenia"));
        int asked = 0;
        openPortWithOperatorHelp(f.station(), [&] {
            ++asked;
            // the operator tries 2, then 4; the options are read again each round
            setPort(f, asked == 1 ? "2" : "4");
            if (asked == 2)
                f.line.failOpenWith(QString());
        });
        QCOMPARE(asked, 2);
        QCOMPARE(f.line.openedNumber(), std::uint8_t(4));
        QCOMPARE(f.station().oApp.nr_portu, std::uint8_t(4));
        QVERIFY(f.line.isOpen());
        QCOMPARE(f.dialogs.calls.size(), 2);
        for (const auto &call : f.dialogs.calls) {
            QCOMPARE(call.prompt, QStringLiteral("Błąd otwarcia portu szeregowego: Nie ma takiego urządzenia") + Again);
            QCOMPARE(call.style, int(Dialogs::Critical));
            QCOMPARE(call.title, QString()); // the default title
        }
    }

    void illegalPortNumberEndsTheFirstRoundButIsCaughtLater()
    {
        TestEnv env;
        for (const char *bad : {"0", "COM1", "256"}) {
            StationFixture f(QStringLiteral("zorbel.db"));
            setPort(f, bad);
            int asked = 0;
            const int number = errorOf([&] { openPortWithOperatorHelp(f.station(), [&] { ++asked; }); });
            QVERIFY(number == RunTimeError::InvalidPortNumber || number == RunTimeError::TypeMismatch
                    || number == RunTimeError::Overflow);
            QCOMPARE(asked, 0);
            QVERIFY(f.dialogs.calls.isEmpty());
        }

        StationFixture f(QStringLiteral("zorbel.db"));
        f.line.failOpenWith(QStringLiteral("zajęty"));
        int asked = 0;
        openPortWithOperatorHelp(f.station(), [&] {
            ++asked;
            setPort(f, asked == 1 ? "0" : (asked == 2 ? "x" : "3"));
            if (asked == 3)
                f.line.failOpenWith(QString());
        });
        QCOMPARE(asked, 3);
        QCOMPARE(f.line.openedNumber(), std::uint8_t(3));
        QCOMPARE(f.dialogs.calls.size(), 3);
        QCOMPARE(f.dialogs.calls[0].prompt, QStringLiteral("Błąd otwarcia portu szeregowego: zajęty") + Again);
        QCOMPARE(f.dialogs.calls[1].prompt, QStringLiteral("Błąd otwarcia portu szeregowego: ")
                                                + RunTimeError::invalidPortNumber().description() + Again);
        QCOMPARE(f.dialogs.calls[2].prompt, QStringLiteral("Błąd otwarcia portu szeregowego: ")
                                                + RunTimeError::typeMismatch().description() + Again);
    }

    void stopClosesInOrderAndLogsBeforeTheConnectionCloses()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase();
        f.addController(QStringLiteral("T1"), 1);
        Station &s = f.station();
        s.StartUp();
        openPortWithOperatorHelp(s, [] { QFAIL("the port opens at once"); });
        PollingTimers &timers = s.timers;
        s.startPolling();

        s.stop();
        QVERIFY(!timers.Timer1.isActive());
        QVERIFY(!f.line.isOpen());
        QVERIFY(!s.rsPomiary->isOpen() && !s.rsRegulatory->isOpen() && !s.rsOstPomiar->isOpen());
        QVERIFY(!s.db->isOpen());

        Database check(s.db->config());
        check.open();
        QSqlQuery q = check.exec(SqlStatement(QStringLiteral("SELECT Operacja, Status, Typ, Kod_Regul FROM Log ORDER BY Id_wpisu")));
        QVERIFY(q.last());
        QCOMPARE(q.value(0).toString(), QStringLiteral("Zatrzymanie aplikacji"));
        QCOMPARE(q.value(1).toString(), QStringLiteral("N"));
        QCOMPARE(q.value(2).toString(), QStringLiteral("L"));
        QVERIFY(q.value(3).toString().isEmpty());
    }
};

ZORBEL_TEST_MAIN(PortOpeningTest)
#include "tst_port_opening_and_stop.moc"
