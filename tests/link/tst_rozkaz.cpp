#include "TestMain.h"
#include "ErrorOf.h"
#include "LinkRig.h"

#include <QTest>
#include <array>

namespace {
using Lamps = std::array<std::uint8_t, 4>;
using Block = std::array<std::uint8_t, 32>;
const QList<QVariantList> succeeded = {{std::int16_t(1)}, {std::int16_t(0)}};
const QList<QVariantList> failed = {{std::int16_t(1)}, {std::int16_t(2)}};
}

// Commands to the controllers: waiting for a byte (the timeout on the third
// second boundary, the time the interface takes, unstuffing), the frames on
// the line, what is read back, the second try, and the words the logic passes.
class RozkazTest : public QObject {
    Q_OBJECT
private slots:
    void waitForAByte_data()
    {
        QTest::addColumn<int>("phaseMs");     // of the start within its second
        QTest::addColumn<int>("arrivalMs");   // of one byte 0x41, -1: none
        QTest::addColumn<int>("interfaceMs"); // a handler at 200 ms takes this long
        QTest::addColumn<int>("result");
        QTest::addColumn<int>("elapsedMs");
        QTest::newRow("silence from a boundary") << 0 << -1 << 0 << -1 << 3000;
        QTest::newRow("silence from late in a second") << 700 << -1 << 0 << -1 << 2300;
        QTest::newRow("byte already waiting") << 0 << 0 << 0 << 0x41 << 0;
        QTest::newRow("byte just before the timeout") << 0 << 2990 << 0 << 0x41 << 2990;
        QTest::newRow("byte just after the timeout") << 0 << 3010 << 0 << -1 << 3000;
        QTest::newRow("a ten-second dialog is given back") << 0 << -1 << 10'000 << -1 << 13'000;
        QTest::newRow("short work within a second costs nothing") << 100 << -1 << 300 << -1 << 2900;
    }
    void waitForAByte()
    {
        QFETCH(int, phaseMs);
        QFETCH(int, arrivalMs);
        QFETCH(int, interfaceMs);
        QFETCH(int, result);
        QFETCH(int, elapsedMs);
        LinkRig rig;
        rig.clock.advanceMs(phaseMs);
        rig.started = rig.clock.now();
        if (arrivalMs >= 0)
            rig.line.arriveAfterMs(arrivalMs, bytes({0x41}));
        if (interfaceMs)
            rig.pump.afterMs(200, [&] { rig.clock.advanceMs(interfaceMs); });
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(result));
        QCOMPARE(rig.elapsedMs(), elapsedMs);
        QVERIFY(rig.pump.passes <= 3000 / clComm::IdleSliceMs + 5); // slept in the pump, did not spin
    }

    void repliesAreUnstuffed_data()
    {
        QTest::addColumn<QByteArray>("now");
        QTest::addColumn<QByteArray>("later"); // after 2.5 s
        QTest::addColumn<QList<int>>("reads"); // up to the first failure
        QTest::newRow("a stuffed 2 is read once") << bytes({2, 2, 7}) << QByteArray() << QList<int>{2, 7, -1};
        QTest::newRow("the byte after a 2 is dropped, whatever") << bytes({2, 9}) << QByteArray() << QList<int>{2, -1};
        QTest::newRow("a lone 2 then silence is lost") << bytes({2}) << QByteArray() << QList<int>{-1};
        QTest::newRow("the twin may come late") << bytes({2}) << bytes({2, 0x33}) << QList<int>{2, 0x33, -1};
    }
    void repliesAreUnstuffed()
    {
        QFETCH(QByteArray, now);
        QFETCH(QByteArray, later);
        QFETCH(QList<int>, reads);
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), now);
        rig.line.arriveAfterMs(2500, later);
        QList<int> got;
        do
            got.append(rig.comm.CzytajBajt());
        while (got.last() >= 0);
        QCOMPARE(got, reads);
        QCOMPARE(rig.line.pending(), 0);
    }

    void framesOfEachCommand_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<int>("parametr");
        QTest::addColumn<QList<QByteArray>>("frames"); // the controller's address is in them
        QTest::addColumn<bool>("readsAByte");
        const auto f = [](std::initializer_list<int> v) { return QList<QByteArray>{bytes(v)}; };
        QTest::newRow("daj_dane") << "daj_dane" << 0 << f({2, 9, 0x4F, 6}) << false;
        QTest::newRow("Ustaw_sr") << "Ustaw_sr" << 0x15 << f({2, 9, 0x6A, 3, 0x15}) << false;
        QTest::newRow("TESTUJ at address 255") << "TESTUJ" << 0 << f({2, 255, 0xB0, 4}) << true;
        QTest::newRow("Czytaj_Kond1") << "Czytaj_Kond1" << 0 << f({2, 9, 0x90, 4}) << true;
        QTest::newRow("Czytaj_Kond2 at address 0") << "Czytaj_Kond2" << 0 << f({2, 0, 0xA0, 4}) << true;
        QTest::newRow("Ustaw_kond 8") << "Ustaw_kond" << 8 << f({2, 9, 0x78, 3, 0x3C}) << false;
        QTest::newRow("Ustaw_kond 0x8F") << "Ustaw_kond" << 0x8F << f({2, 9, 0xFF, 3, 0x3C}) << false;
        QTest::newRow("Badaj_kond 3") << "Badaj_kond" << 3 << f({2, 9, 0x73, 5}) << true;
        QTest::newRow("Wlacz_kond") << "Wlacz_kond" << 0xFE << f({2, 9, 0x90, 1, 0xFE}) << false;
        QTest::newRow("Wlacz_kond2") << "Wlacz_kond2" << 0x7F << f({2, 9, 0xA0, 1, 0x7F}) << false;
        QTest::newRow("Czytaj_blok at address 2, not doubled") << "Czytaj_blok" << 0 << f({2, 2, 0x2F, 5}) << true;
        QTest::newRow("Ustaw_blok")
            << "Ustaw_blok" << 0x20 << QList<QByteArray>{bytes({2, 9, 0x2F, 3, 0x20}), bytes({2, 9, 0x2F, 5})} << true;
    }
    void framesOfEachCommand()
    {
        QFETCH(QString, word);
        QFETCH(int, parametr);
        QFETCH(QList<QByteArray>, frames);
        QFETCH(bool, readsAByte);
        const int address = quint8(frames.last().at(1));
        LinkRig rig({address});
        rig.line.answer(frames.last(), bytes({0x5A}));
        QVariant reply = QStringLiteral("untouched");
        QVERIFY(rig.run(1, word, reply, std::uint8_t(parametr)));
        QCOMPARE(rig.line.sent, frames);
        QCOMPARE(reply, readsAByte ? QVariant(std::int16_t(0x5A)) : QVariant(QStringLiteral("untouched")));
        QCOMPARE(rig.wizual.argsOf("eKomunikacja"), succeeded);
        // nobody on the line: a write still succeeds, a read fails after a second try
        LinkRig silent({address});
        QCOMPARE(silent.run(1, word, reply, std::uint8_t(parametr)), !readsAByte);
        QCOMPARE(silent.line.sent, readsAByte ? frames + frames : frames);
        QCOMPARE(silent.elapsedMs(), readsAByte ? 6000 : 0);
        QCOMPARE(silent.wizual.argsOf("eKomunikacja"), readsAByte ? failed : succeeded);
        QVERIFY(!silent.comm.Zajety);
    }

    void fullReadingOfAddressFive()
    {
        LinkRig rig({5});
        rig.line.arriveAt(rig.clock.now(), bytes({0x99, 2, 0x44})); // noise before the request goes
        rig.line.answer(bytes({2, 5, 0x90, 4}), bytes({0xFE}));
        rig.line.answer(bytes({2, 5, 0xA0, 4}), bytes({0x7F}));
        rig.line.answer(bytes({2, 5, 0xB0, 4}), stuffed(bytes({2})));
        QByteArray data;
        for (int i = 0; i < 32; ++i)
            data.append(char(i * 7 % 5)); // 2s among them
        rig.line.answer(bytes({2, 5, 0x4F, 6}), stuffed(bytes({0x81}) + data));

        Lamps lamps{};
        Block block{};
        QVariant lead;
        QVERIFY(rig.run(1, "Czytaj_Diody", lamps));
        QVERIFY(rig.run(1, "daj_dane", lead));
        QVERIFY(rig.run(1, "czytaj", lead));
        QVERIFY(rig.run(1, "czytaj32", block));

        QCOMPARE(rig.line.sent, (QList<QByteArray>{bytes({2, 5, 0x90, 4}), bytes({2, 5, 0xA0, 4}),
                                                   bytes({2, 5, 0xB0, 4}), bytes({2, 5, 0x4F, 6})}));
        QCOMPARE(lamps, (Lamps{0, 0xFE, 0x7F, 2}));
        QCOMPARE(lead.toInt(), 0x81);
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(block.data()), 32), data);
        QCOMPARE(rig.wizual.argsOf("eKomunikacja"), succeeded + succeeded + succeeded + succeeded);
    }

    // An error of the run-time leaves the link busy and the end unannounced.
    void runTimeErrors_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<QString>("word");
        QTest::addColumn<int>("parametr");
        QTest::addColumn<int>("bufferSize"); // 0: one value
        QTest::addColumn<int>("framesSent");
        QTest::addColumn<int>("error");
        QTest::newRow("address 256") << 256 << "daj_dane" << 0 << 0 << 0 << int(RunTimeError::InvalidCall);
        QTest::newRow("Ustaw_kond 0x90") << 5 << "Ustaw_kond" << 0x90 << 0 << 0 << int(RunTimeError::Overflow);
        QTest::newRow("Badaj_kond 0x90") << 5 << "Badaj_kond" << 0x90 << 0 << 0 << int(RunTimeError::Overflow);
        QTest::newRow("lamps into one value") << 5 << "Czytaj_Diody" << 0 << 0 << 1 << int(RunTimeError::TypeMismatch);
        QTest::newRow("a block into 31") << 5 << "czytaj32" << 0 << 31 << 0 << int(RunTimeError::SubscriptOutOfRange);
    }
    void runTimeErrors()
    {
        QFETCH(int, address);
        QFETCH(QString, word);
        QFETCH(int, parametr);
        QFETCH(int, bufferSize);
        QFETCH(int, framesSent);
        QFETCH(int, error);
        LinkRig rig({address});
        rig.line.arriveAt(rig.clock.now(), QByteArray(32, char(9)));
        QVariant value;
        Block block{};
        const ReplyBuffer buffer = bufferSize ? ReplyBuffer(std::span(block).first(bufferSize)) : ReplyBuffer(value);
        QCOMPARE(errorOf([&] { rig.run(1, word, buffer, std::uint8_t(parametr)); }), error);
        QCOMPARE(rig.line.sent.size(), framesSent);
        QVERIFY(rig.comm.Zajety);
        QCOMPARE(rig.wizual.argsOf("eKomunikacja"), QList<QVariantList>{{std::int16_t(1)}});
        if (bufferSize)
            QCOMPARE(block[bufferSize - 1], std::uint8_t(9)); // what came is kept
    }

    void blockReadTimesOutOncePerTryAndRetriesFromTheStart()
    {
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), QByteArray(20, char(0x11)));
        rig.line.arriveAfterMs(4000, QByteArray(10, char(0x22)));
        Block block{};
        QVERIFY(!rig.run(1, "czytaj32", block));
        QCOMPARE(rig.elapsedMs(), 7000);
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(block.data()), 32),
                 QByteArray(10, 0x22) + QByteArray(10, 0x11) + QByteArray(12, 0));
    }

    void lampReadsGiveUpEarlyButRetryTheLast()
    {
        const struct {
            int silentLamp; // once
            bool result;
            int framesSent;
        } cases[] = {{0, false, 1}, {1, false, 2}, {2, true, 6}};
        for (const auto &[silentLamp, result, framesSent] : cases) {
            LinkRig rig;
            const int registers[] = {0x90, 0xA0, 0xB0};
            for (int i = 0; i < 3; ++i) {
                const QByteArray request = bytes({2, 5, registers[i], 4});
                if (i == silentLamp)
                    rig.line.answer(request, {}, 1);
                rig.line.answer(request, bytes({0x10 + i}));
            }
            Lamps lamps{};
            QCOMPARE(rig.run(1, "Czytaj_Diody", lamps), result);
            QCOMPARE(rig.line.sent.size(), framesSent);
            QCOMPARE(lamps, (result ? Lamps{0, 0x10, 0x11, 0x12} : Lamps{0, std::uint8_t(silentLamp ? 0x10 : 0)}));
            QVERIFY(!rig.comm.Zajety);
        }
    }

    void unknownWordIsToldOncePerTryAndComesBackUpperCased()
    {
        LinkRig rig;
        QString word = QStringLiteral("Zrob_cos");
        QVariant reply;
        std::uint8_t p = 0;
        QVERIFY(!rig.komunikator.WykonajRozkaz(5, word, reply, p));
        QCOMPARE(word, QStringLiteral("ZROB_COS"));
        QCOMPARE(rig.dialogs.calls.size(), 2);
        QCOMPARE(rig.dialogs.calls.last().prompt, QStringLiteral("Nieznany rozkaz: 'ZROB_COS'"));
        QCOMPARE(rig.dialogs.calls.last().style, int(Dialogs::Critical));
        QCOMPARE(rig.dialogs.calls.last().title, QStringLiteral("Błąd - moduł oCOmm"));
        QVERIFY(rig.line.sent.isEmpty());
        QCOMPARE(rig.wizual.argsOf("eKomunikacja"), failed);
    }

    // Deliberately weak: a command started from the interface during a wait
    // goes straight through and drops the outer command's flag.
    void busyFlagLetsASecondCommandStraightThrough()
    {
        LinkRig rig({5, 6});
        bool busyAfterInner = true;
        rig.pump.afterMs(100, [&] {
            QVERIFY(rig.comm.Zajety);
            QVariant none;
            rig.run(2, "Ustaw_sr", none, 1);
            busyAfterInner = rig.comm.Zajety;
            rig.line.arriveAfterMs(100, bytes({0x42}));
        });
        std::int16_t v = 0;
        QVERIFY(rig.run(1, "Czytaj_Kond1", v));
        QCOMPARE(v, std::int16_t(0x42));
        QVERIFY(!busyAfterInner);
        QCOMPARE(rig.line.sent, (QList<QByteArray>{bytes({2, 5, 0x90, 4}), bytes({2, 6, 0x6A, 3, 1})}));
    }
};

ZORBEL_TEST_MAIN(RozkazTest)
#include "tst_rozkaz.moc"
