// A station killed at any moment while it stores samples leaves the archive
// and the counters of the last sample in step: every period is booked once.
#include "TestMain.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

namespace {

struct Archive {
    int samples = -1;
    double activeSum = 0;
    float lastCounter = -1;
    bool sameMoment = false;
};

Archive readArchive()
{
    Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
    db.open();
    Archive a;
    QSqlQuery q = db.exec(SqlStatement(QStringLiteral(
        "SELECT (SELECT COUNT(*) FROM Pomiary), (SELECT SUM(EnCzynna) FROM Pomiary), o.PopPradCzynny, "
        "o.Czas = (SELECT MAX(Data) FROM Pomiary) FROM OstPomiar o")));
    if (q.next()) {
        a.samples = q.value(0).toInt();
        a.activeSum = q.value(1).toDouble();
        a.lastCounter = q.value(2).toFloat();
        a.sameMoment = q.value(3).toBool();
    }
    return a;
}

}

class KillConsistencyTest : public QObject {
    Q_OBJECT
private slots:
    void killedWriterNeverTearsASampleFromItsCounters()
    {
        TestEnv env;
        {
            StationFixture f(QStringLiteral("zorbel.db"));
            f.createDatabase();
            f.addController(QStringLiteral("GPZ"), 1);
        }
        const QString writer = TestEnv::program(QStringLiteral("sample_writer"));
        QRandomGenerator dice(20261123);
        int before = 0;
        const int kills = 25;
        for (int k = 0; k < kills; ++k) {
            QProcess p;
            p.start(writer, {});
            QVERIFY(p.waitForStarted(10000));
            QVERIFY(p.waitForReadyRead(20000));
            // let it write a little, then kill it somewhere in the middle of a write
            QTRY_VERIFY_WITH_TIMEOUT(readArchive().samples > before, 20000);
            QTest::qWait(int(dice.bounded(40)));
            p.kill();
            QVERIFY(p.waitForFinished(10000));

            const Archive a = readArchive();
            QVERIFY2(a.samples > before, qPrintable(QStringLiteral("round %1").arg(k)));
            // counter n is stored with sample n, and the sample of counter 1 books nothing
            QCOMPARE(a.lastCounter, float(a.samples));
            QCOMPARE(a.activeSum, double(a.samples - 1));
            QVERIFY(a.sameMoment);
            before = a.samples;
        }
        qInfo("%d kills, %d samples, archive and counters in step after each", kills, before);
    }
};

ZORBEL_TEST_MAIN(KillConsistencyTest)
#include "tst_kill_consistency.moc"
