#include "TestMain.h"
#include "SimRig.h"

#include "ControllerSources.h"
#include "SimOptions.h"
#include "simcore/DataBlock.h"
#include "simcore/PanelBytes.h"

#include <QtTest>

using Kind = sim::FrameLogEntry::Kind;

namespace {
QByteArray hex(const char *text) { return QByteArray::fromHex(text); }
sim::ParsedCommandLine parse(const QString &arguments)
{
    return sim::parseCommandLine(("zorbel-sim " + arguments).split(u' ', Qt::SkipEmptyParts));
}
// The faults zorbel-sim takes from its command line; none when it refuses the line.
sim::FaultPlan faultsFrom(const char *options)
{
    const auto parsed = parse(QStringLiteral("--addresses 5-6,255 %1").arg(options));
    return parsed.error.isEmpty() ? parsed.options.faults : sim::FaultPlan{};
}
QByteArray joined(const std::vector<sim::Request> &requests)
{
    QByteArray out;
    for (const sim::Request &r : requests)
        out += r.bytes();
    return out;
}
}

// The simulator's line: cutting the station's bytes into frames, the
// replies on the bus with their stuffing, and the faults of the line as
// its command line sets them.
class TestSimLine : public QObject {
    Q_OBJECT

private slots:
    void readerCutsTheStreamIntoFrames_data()
    {
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<QByteArray>("requests");
        QTest::addColumn<QByteArray>("discarded");
        QTest::newRow("reads and a write") << hex("02059004 02059001F7 02054F06") << hex("02059004 02059001F7 02054F06")
                                           << QByteArray();
        QTest::newRow("a 2 in a request is not doubled") << hex("02022F0302") << hex("02022F0302") << QByteArray();
        // 02 07 02 05 would be register 2, function 5: no such register
        QTest::newRow("garbage before a frame") << hex("FF000207 02059004") << hex("02059004") << hex("FF000207");
        QTest::newRow("an unknown function resyncs on the next 2") << hex("02059009 0206B004") << hex("0206B004")
                                                                   << hex("02059009");
    }
    void readerCutsTheStreamIntoFrames()
    {
        QFETCH(QByteArray, input);
        QFETCH(QByteArray, requests);
        QFETCH(QByteArray, discarded);
        sim::FrameReader reader;
        const auto out = reader.feed(input, 0);
        QCOMPARE(joined(out.requests), requests);
        QCOMPARE(out.discarded, discarded);
        QVERIFY(reader.isIdle());
    }

    void aFrameMayComeInPiecesButAPauseEndsIt()
    {
        sim::FrameReader reader;
        QVERIFY(reader.feed(hex("0205"), 0).requests.empty());
        QVERIFY(reader.feed(hex("4F"), sim::FrameReader::kGapMs).requests.empty());
        QCOMPARE(joined(reader.feed(hex("06"), 2 * sim::FrameReader::kGapMs).requests), hex("02054F06"));
        reader.feed(hex("02059001"), 100); // a write that lost its value
        const auto out = reader.feed(hex("0205A004"), 101 + sim::FrameReader::kGapMs);
        QCOMPARE(out.discarded, hex("02059001"));
        QCOMPARE(joined(out.requests), hex("0205A004"));
    }

    void dataBlockLayoutAndStuffing()
    {
        sim::DataBlock b;
        b.apparentCounter = 0x01020304;
        b.capacitiveCounter = -2;
        b.reactiveCounter = 0x11223344;
        b.timer = 0xAB123456; // only 24 bits travel
        b.voltage = 380;
        b.reactiveCurrent = -200;
        b.totalCurrent = 200;
        b.phase = 123;
        b.periodLessOne = 2303;
        b.keyState1 = 0x81;
        b.keyState2 = 0x09;
        b.display = {0x10, 0x20, 0x30, 0xF0};
        QCOMPARE(b.encode(), hex("01020304 FFFFFFFE 11223344 123456 017C FF38 00C8 007B 08FF 81 09 102030F0 00"));
        QCOMPARE(sim::stuffReply(hex("0205020200")), hex("0202050202020200")); // each 2 travels twice
        QCOMPARE(sim::PanelBytes::display(-1.234), (std::array<quint8, 4>{0x11, 0x20, 0x30, 0x40})); // tg fi shown
        QCOMPARE(sim::PanelBytes::display(10.0), (std::array<quint8, 4>{0xF0, 0xF0, 0xF0, 0xF0}));
    }

    void busAnswers_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<int>("replyLength"); // unstuffed
        QTest::addColumn<int>("logged");      // the last entry's kind
        QTest::newRow("lamps of 5") << SimRig::frame(5, 0x90, 4) << 1 << int(Kind::Answered);
        QTest::newRow("the data of 5") << SimRig::frame(5, 0x4F, 6) << 33 << int(Kind::Answered);
        QTest::newRow("nobody at 3") << SimRig::frame(3, 0x90, 4) << 0 << int(Kind::Received);
        QTest::newRow("a write") << SimRig::frame(5, 0x6A, 3, 0) << 0 << int(Kind::Received);
        QTest::newRow("lamp byte 3 takes no write") << SimRig::frame(5, 0xB0, 1, 0) << 0 << int(Kind::Ignored);
        QTest::newRow("the data wants function 6") << SimRig::frame(5, 0x4F, 4) << 0 << int(Kind::Ignored);
        QTest::newRow("no frame") << hex("FF") << 0 << int(Kind::Discarded);
    }
    void busAnswers()
    {
        QFETCH(QByteArray, request);
        QFETCH(int, replyLength);
        QFETCH(int, logged);
        SimRig rig({1, 5});
        const QByteArray line = rig.ask(request);
        QCOMPARE(SimRig::unstuff(line).size(), replyLength);
        QCOMPARE(line, sim::stuffReply(SimRig::unstuff(line)));
        QCOMPARE(int(rig.log.back().kind), logged);
    }

    void faults()
    {
        SimRig rig({5, 6});
        const QByteArray clean = rig.ask(SimRig::frame(6, 0x4F, 6));
        rig.bus.setFaults(faultsFrom("--silent 5")); // neither answers nor acts
        QVERIFY(rig.ask(SimRig::frame(5, 0x4F, 6)).isEmpty());
        rig.ask(SimRig::frame(5, 0x2F, 3, 0x20));
        QCOMPARE(rig.bus.controller(5)->blockingByte(), quint8(0));
        QCOMPARE(rig.log.back().kind, Kind::Silent);
        QCOMPARE(rig.ask(SimRig::frame(6, 0x4F, 6)), clean);

        rig.bus.setFaults(faultsFrom("--drop 0.5"));
        const QByteArray dropped = rig.ask(SimRig::frame(6, 0x4F, 6));
        QVERIFY(!dropped.isEmpty() && dropped.size() < clean.size());
        QCOMPARE(rig.log.back().note,
                 QStringLiteral("utracone bajty: %1 z %2").arg(clean.size() - dropped.size()).arg(clean.size()));
        rig.bus.setFaults(faultsFrom("--noise 1 --delay 250"));
        const auto out = rig.bus.receive(SimRig::frame(6, 0x4F, 6));
        QCOMPARE(out.size(), size_t(1));
        QCOMPARE(out[0].delayMs, qint64(250));
        QCOMPARE(out[0].bytes.size(), clean.size() + 1);

        rig.bus.setFaults(faultsFrom("--reset-counters 4-5"));
        rig.advanceSeconds(50 * 60); // 10:50
        const qint64 apparentFive = blockUnsigned(rig.readBlock(5), 0, 4);
        const qint64 apparentSix = blockUnsigned(rig.readBlock(6), 0, 4);
        rig.advanceSeconds(15 * 60); // 11:05
        const QByteArray five = rig.readBlock(5);
        QVERIFY(blockUnsigned(five, 0, 4) < apparentFive);
        QCOMPARE(blockUnsigned(five, 12, 3), 5 * 60); // the timer restarted at 11:00
        QVERIFY(blockUnsigned(rig.readBlock(6), 0, 4) > apparentSix);
    }

    void commandAndConfigLines()
    {
        const auto r = parse(QStringLiteral("--addresses 1-3 --noise 0.5 --seed 42 --speed 60 --unpaced --tcp 0"));
        QVERIFY2(r.error.isEmpty(), qPrintable(r.error));
        QCOMPARE(r.options.faults.noiseProbability, 0.5);
        QCOMPARE(r.options.seed, 42u);
        QCOMPARE(r.options.speed, 60.0);
        QVERIFY(r.options.unpaced);
        QCOMPARE(r.options.tcpPort.value(), quint16(0));
        const auto configs = sim::ControllerSources::fromConfigText(QStringLiteral("# adres\n5 160 2 500\n\n 7 # 9\n"));
        QCOMPARE(configs.size(), size_t(2));
        QCOMPARE(configs[0].currentRatio, 160.0);
        QCOMPARE(configs[0].measuringVoltage, 500);
        QCOMPARE(configs[1].measuringVoltage, 380);
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, sim::ControllerSources::fromConfigText(QStringLiteral("5\nfive")));
        for (const char *refused :
             {"", "--addresses 7-3", "--addresses x-5", "--addresses 256", "--addresses 1 --drop 1.5",
              "--addresses 1 --noise 1.5", "--addresses 1 --silent x", "--addresses 1 --tcp 5000 --link /tmp/x",
              "--addresses 1 --fast", "--addresses 1 extra"})
            QVERIFY2(!parse(QString::fromLatin1(refused)).error.isEmpty(), refused);
    }
};

ZORBEL_TEST_MAIN(TestSimLine)
#include "tst_sim_line.moc"
