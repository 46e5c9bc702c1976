#include "TestMain.h"
#include "simcore/DataBlock.h"
#include "simcore/FrameReader.h"
#include "simcore/Stuffing.h"

#include <QtTest>

using sim::FrameReader;

class TestSimFrames : public QObject {
    Q_OBJECT

private:
    static QByteArray bytes(std::initializer_list<int> values)
    {
        QByteArray out;
        for (int v : values)
            out.append(char(v));
        return out;
    }

private slots:
    void readsAReadAndAWrite()
    {
        FrameReader reader;
        const auto out = reader.feed(bytes({2, 5, 0x90, 4, 2, 5, 0x90, 1, 0xF7}), 0);
        QCOMPARE(out.requests.size(), size_t(2));
        QCOMPARE(out.requests[0].address, quint8(5));
        QCOMPARE(out.requests[0].reg, quint8(0x90));
        QCOMPARE(out.requests[0].function, quint8(4));
        QVERIFY(!out.requests[0].hasValue);
        QVERIFY(out.requests[1].hasValue);
        QCOMPARE(out.requests[1].value, quint8(0xF7));
        QVERIFY(out.discarded.isEmpty());
        QVERIFY(reader.isIdle());
    }

    void addressTwoIsNotStuffedInRequests()
    {
        FrameReader reader;
        const auto out = reader.feed(bytes({2, 2, 0x2F, 3, 2}), 0);
        QCOMPARE(out.requests.size(), size_t(1));
        QCOMPARE(out.requests[0].address, quint8(2));
        QCOMPARE(out.requests[0].value, quint8(2));
    }

    void waitsForTheRestOfAFrame()
    {
        FrameReader reader;
        QVERIFY(reader.feed(bytes({2, 5}), 0).requests.empty());
        QVERIFY(reader.feed(bytes({0x4F}), 5).requests.empty());
        const auto out = reader.feed(bytes({6}), 10);
        QCOMPARE(out.requests.size(), size_t(1));
        QCOMPARE(out.requests[0].reg, quint8(0x4F));
    }

    void pauseEndsAnUnfinishedFrame()
    {
        FrameReader reader;
        reader.feed(bytes({2, 5, 0x90, 1}), 0);  // a write that lost its value
        const auto out = reader.feed(bytes({2, 5, 0xA0, 4}), FrameReader::kGapMs + 1);
        QCOMPARE(out.discarded, bytes({2, 5, 0x90, 1}));
        QCOMPARE(out.requests.size(), size_t(1));
        QCOMPARE(out.requests[0].reg, quint8(0xA0));
    }

    void garbageBeforeAFrameIsSkipped()
    {
        FrameReader reader;
        // 02 07 02 05 would be register 2, function 5: no such register.
        const auto out = reader.feed(bytes({0xFF, 0, 2, 7, 2, 5, 0x90, 4}), 0);
        QCOMPARE(out.requests.size(), size_t(1));
        QCOMPARE(out.requests[0].address, quint8(5));
        QCOMPARE(out.discarded, bytes({0xFF, 0, 2, 7}));
    }

    void unknownFunctionResyncsOnTheNextStart()
    {
        FrameReader reader;
        const auto out = reader.feed(bytes({2, 5, 0x90, 9, 2, 6, 0xB0, 4}), 0);
        QCOMPARE(out.requests.size(), size_t(1));
        QCOMPARE(out.requests[0].address, quint8(6));
    }

    void randomBytesNeverBreakTheReader()
    {
        FrameReader reader;
        QRandomGenerator random(7);
        qint64 t = 0;
        for (int round = 0; round < 2000; ++round) {
            QByteArray chunk(random.bounded(1, 40), Qt::Uninitialized);
            for (char &c : chunk)
                c = char(random.bounded(256));
            const auto out = reader.feed(chunk, t += random.bounded(50));
            for (const auto &r : out.requests)
                QCOMPARE(r.bytes().size(), r.hasValue ? 5 : 4);
        }
        const auto out = reader.feed(bytes({2, 9, 0x90, 4}), t + FrameReader::kGapMs + 1);
        QCOMPARE(out.requests.size(), size_t(1));
        QCOMPARE(out.requests[0].address, quint8(9));
    }

    void dataBlockLayout()
    {
        sim::DataBlock b;
        b.apparentCounter = 0x01020304;
        b.capacitiveCounter = -2;
        b.reactiveCounter = 0x11223344;
        b.timer = 0xAB123456;  // only 24 bits travel
        b.voltage = 380;
        b.reactiveCurrent = -200;
        b.totalCurrent = 200;
        b.phase = 123;
        b.periodLessOne = 2303;
        b.keyState1 = 0x81;
        b.keyState2 = 0x09;
        b.display = {0x10, 0x20, 0x30, 0xF0};
        const QByteArray expected = bytes({1, 2, 3, 4, 0xFF, 0xFF, 0xFF, 0xFE, 0x11, 0x22, 0x33, 0x44,
                                           0x12, 0x34, 0x56, 0x01, 0x7C, 0xFF, 0x38, 0x00, 0xC8,
                                           0x00, 0x7B, 0x08, 0xFF, 0x81, 0x09, 0x10, 0x20, 0x30,
                                           0xF0, 0x00});
        QCOMPARE(b.encode().size(), 32);
        QCOMPARE(b.encode(), expected);
    }
};

ZORBEL_TEST_MAIN(TestSimFrames)
#include "tst_sim_frames.moc"
