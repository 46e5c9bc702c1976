#include "PacedWriter.h"

#include "simcore/LineTiming.h"

#include <QElapsedTimer>
#include <QtTest>

class TestSimPacing : public QObject {
    Q_OBJECT

private:
    struct Received {
        QByteArray bytes;
        int chunks = 0;
    };
    static sim::Transmission reply(int size, qint64 delayMs = 0)
    {
        return {delayMs, QByteArray(size, char(0x55))};
    }

private slots:
    void pacedReplyTakesTheLineTime()
    {
        Received got;
        sim::PacedWriter writer([&](const QByteArray &b) { got.bytes += b; ++got.chunks; }, true);
        QElapsedTimer clock;
        clock.start();
        writer.send(reply(33));
        QVERIFY(got.bytes.size() >= 1 && got.bytes.size() < 33);  // the first byte goes at once
        QTRY_COMPARE_WITH_TIMEOUT(got.bytes.size(), 33, 5000);
        QVERIFY(clock.elapsed() >= qint64(32 * sim::kByteMs));
        QVERIFY(got.chunks > 5);  // trickled, not one burst
    }

    void repliesQueueBehindEachOther()
    {
        Received got;
        sim::PacedWriter writer([&](const QByteArray &b) { got.bytes += b; }, true);
        QElapsedTimer clock;
        clock.start();
        writer.send(reply(10));
        writer.send(reply(10));
        QTRY_COMPARE_WITH_TIMEOUT(got.bytes.size(), 20, 5000);
        QVERIFY(clock.elapsed() >= qint64(19 * sim::kByteMs));
    }

    void unpacedReplyGoesAtOnce()
    {
        Received got;
        sim::PacedWriter writer([&](const QByteArray &b) { got.bytes += b; ++got.chunks; }, false);
        writer.send(reply(33));
        QCOMPARE(got.bytes.size(), 33);
        QCOMPARE(got.chunks, 1);
    }

    void delayHoldsTheFirstByte()
    {
        Received got;
        sim::PacedWriter writer([&](const QByteArray &b) { got.bytes += b; }, false);
        QElapsedTimer clock;
        clock.start();
        writer.send(reply(3, 150));
        QVERIFY(got.bytes.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(got.bytes.size(), 3, 5000);
        QVERIFY(clock.elapsed() >= 150);
    }
};

QTEST_GUILESS_MAIN(TestSimPacing)
#include "tst_sim_pacing.moc"
