#include "TestMain.h"
#include "ErrorOf.h"
#include "LinkRig.h"

#include "base/RunTimeError.h"

#include <QTest>
#include <array>

namespace {
using Lamps = std::array<std::uint8_t, 4>;
using Block = std::array<std::uint8_t, 32>;
const QList<QVariantList> succeeded = {{std::int16_t(1)}, {std::int16_t(0)}};
const QList<QVariantList> failed = {{std::int16_t(1)}, {std::int16_t(2)}};

QByteArray stuffed(const QByteArray &data)
{
    QByteArray out;
    for (char c : data) {
        out.append(c);
        if (c == 2)
            out.append(c);
    }
    return out;
}
}

// Commands to the controllers: the frames on the line, what is read back,
// the second try, and the words the logic passes.
class RozkazTest : public QObject {
    Q_OBJECT
private slots:
    void framesOfEachCommand_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<int>("parametr");
        QTest::addColumn<QList<QByteArray>>("frames");
        QTest::addColumn<bool>("readsAByte");
        const auto f = [](std::initializer_list<int> v) { return QList<QByteArray>{bytes(v)}; };
        QTest::newRow("daj_dane") << "daj_dane" << 0 << f({2, 9, 0x4F, 6}) << false;
        QTest::newRow("Ustaw_sr") << "Ustaw_sr" << 0x15 << f({2, 9, 0x6A, 3, 0x15}) << false;
        QTest::newRow("TESTUJ") << "TESTUJ" << 0 << f({2, 9, 0xB0, 4}) << true;
        QTest::newRow("Czytaj_Kond1") << "Czytaj_Kond1" << 0 << f({2, 9, 0x90, 4}) << true;
        QTest::newRow("Czytaj_Kond2") << "Czytaj_Kond2" << 0 << f({2, 9, 0xA0, 4}) << true;
        QTest::newRow("Ustaw_kond 8") << "Ustaw_kond" << 8 << f({2, 9, 0x78, 3, 0x3C}) << false;
        QTest::newRow("Ustaw_kond 0x8F") << "Ustaw_kond" << 0x8F << f({2, 9, 0xFF, 3, 0x3C}) << false;
        QTest::newRow("Badaj_kond 3") << "Badaj_kond" << 3 << f({2, 9, 0x73, 5}) << true;
        QTest::newRow("Wlacz_kond") << "Wlacz_kond" << 0xFE << f({2, 9, 0x90, 1, 0xFE}) << false;
        QTest::newRow("Wlacz_kond2") << "Wlacz_kond2" << 0x7F << f({2, 9, 0xA0, 1, 0x7F}) << false;
        QTest::newRow("Czytaj_blok") << "Czytaj_blok" << 0 << f({2, 9, 0x2F, 5}) << true;
        QTest::newRow("Ustaw_blok")
            << "Ustaw_blok" << 0x20 << QList<QByteArray>{bytes({2, 9, 0x2F, 3, 0x20}), bytes({2, 9, 0x2F, 5})} << true;
    }
    void framesOfEachCommand()
    {
        QFETCH(QString, word);
        QFETCH(int, parametr);
        QFETCH(QList<QByteArray>, frames);
        QFETCH(bool, readsAByte);
        LinkRig rig({9});
        rig.line.answer(frames.last(), bytes({0x5A}));
        QVariant reply = QStringLiteral("untouched");
        QVERIFY(rig.run(1, word, reply, std::uint8_t(parametr)));
        QCOMPARE(rig.line.sent, frames);
        QCOMPARE(reply, readsAByte ? QVariant(std::int16_t(0x5A)) : QVariant(QStringLiteral("untouched")));
        QCOMPARE(rig.wizual.argsOf("eKomunikacja"), succeeded);
    }

    void fullReadingOfAddressFive()
    {
        LinkRig rig({5});
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
        QVERIFY(rig.elapsedMs() < 1000);
    }

    void wordInAnyCaseSendsTheSameAndComesBackUpperCased()
    {
        LinkRig rig;
        QString word = QStringLiteral("czYTaj_dioDY");
        Lamps lamps{};
        std::uint8_t p = 0;
        rig.komunikator.WykonajRozkaz(5, word, lamps, p);
        QCOMPARE(word, QStringLiteral("CZYTAJ_DIODY"));
        LinkRig upper;
        upper.run(1, "CZYTAJ_DIODY", lamps);
        QCOMPARE(rig.line.sent, upper.line.sent);
    }

    void stageNumberAboveTheByteOverflows_data()
    {
        QTest::addColumn<QString>("word");
        QTest::newRow("Ustaw_kond") << "Ustaw_kond";
        QTest::newRow("Badaj_kond") << "Badaj_kond";
    }
    void stageNumberAboveTheByteOverflows()
    {
        QFETCH(QString, word);
        LinkRig rig;
        QVariant reply;
        QCOMPARE(errorOf([&] { rig.run(1, word, reply, 0x90); }), int(RunTimeError::Overflow));
        QVERIFY(rig.line.sent.isEmpty());
        QVERIFY(rig.comm.Zajety);
        QCOMPARE(rig.wizual.argsOf("eKomunikacja"), QList<QVariantList>{{std::int16_t(1)}});
    }

    void addressTwoGoesOutAsASingleTwo()
    {
        LinkRig rig({2});
        QVariant reply;
        rig.run(1, "Czytaj_Kond1", reply);
        QCOMPARE(rig.line.sent.first(), bytes({2, 2, 0x90, 4}));
    }

    void silentControllerGetsTwoTries_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<int>("framesSent");
        QTest::addColumn<int>("costMs");
        QTest::newRow("czytaj") << "czytaj" << 0 << 6000;
        QTest::newRow("czytaj32") << "czytaj32" << 0 << 6000;
        QTest::newRow("Czytaj_Kond1") << "Czytaj_Kond1" << 2 << 6000;
        QTest::newRow("Ustaw_blok: both frames again") << "Ustaw_blok" << 4 << 6000;
        QTest::newRow("Czytaj_Diody: no second try") << "Czytaj_Diody" << 1 << 3000;
    }
    void silentControllerGetsTwoTries()
    {
        QFETCH(QString, word);
        QFETCH(int, framesSent);
        QFETCH(int, costMs);
        LinkRig rig;
        Block buffer{};
        QVERIFY(!rig.run(1, word, buffer));
        QCOMPARE(rig.line.sent.size(), framesSent);
        QCOMPARE(rig.elapsedMs(), costMs);
        QCOMPARE(rig.wizual.argsOf("eKomunikacja"), failed);
        QVERIFY(!rig.comm.Zajety);
    }

    void secondTryMayBringTheReply()
    {
        LinkRig rig;
        const QByteArray request = bytes({2, 5, 0x2F, 5});
        rig.line.answer(request, {}, 1);
        rig.line.answer(request, bytes({0x20}));
        std::uint8_t blocking = 0;
        QVERIFY(rig.run(1, "Czytaj_blok", blocking));
        QCOMPARE(blocking, std::uint8_t(0x20));
        QCOMPARE(rig.line.sent, (QList<QByteArray>{request, request}));
    }

    void blockReadFailsAfterOneTimeoutAndRetriesFromTheStart()
    {
        LinkRig rig;
        QByteArray first(20, char(0x11));
        QByteArray second(32, char(0x22));
        rig.line.arriveAt(rig.clock.now(), first);
        rig.line.arriveAfterMs(4000, second);
        Block block{};
        QVERIFY(rig.run(1, "czytaj32", block));
        // one timeout after the twentieth byte, not one per missing byte
        QCOMPARE(rig.elapsedMs(), 4000);
        QVERIFY(std::all_of(block.begin(), block.end(), [](std::uint8_t b) { return b == 0x22; }));
    }

    void truncatedBlockKeepsWhatCame()
    {
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), QByteArray(10, char(0x33)));
        Block block{};
        QVERIFY(!rig.run(1, "czytaj32", block));
        QCOMPARE(block[9], std::uint8_t(0x33));
        QCOMPARE(block[10], std::uint8_t(0));
    }

    void lampReadsGiveUpEarlyButRetryTheLast_data()
    {
        QTest::addColumn<int>("silentLamp");
        QTest::addColumn<bool>("result");
        QTest::addColumn<int>("framesSent");
        QTest::newRow("first silent") << 0 << false << 1;
        QTest::newRow("second silent") << 1 << false << 2;
        QTest::newRow("third silent once") << 2 << true << 6;
    }
    void lampReadsGiveUpEarlyButRetryTheLast()
    {
        QFETCH(int, silentLamp);
        QFETCH(bool, result);
        QFETCH(int, framesSent);
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
        QCOMPARE(lamps[0], std::uint8_t(0));
        if (result)
            QCOMPARE(lamps, (Lamps{0, 0x10, 0x11, 0x12}));
        QVERIFY(!rig.comm.Zajety);
    }

    void unknownWordIsToldOncePerTry()
    {
        LinkRig rig;
        QString word = QStringLiteral("Zrob_cos");
        QVariant reply;
        std::uint8_t p = 0;
        QVERIFY(!rig.komunikator.WykonajRozkaz(5, word, reply, p));
        QCOMPARE(rig.dialogs.calls.size(), 2);
        for (const auto &call : rig.dialogs.calls) {
            QCOMPARE(call.prompt, QStringLiteral("Nieznany rozkaz: 'ZROB_COS'"));
            QCOMPARE(call.style, int(Dialogs::Critical));
            QCOMPARE(call.title, QStringLiteral("Błąd - moduł oCOmm"));
        }
        QVERIFY(rig.line.sent.isEmpty());
        QCOMPARE(rig.wizual.argsOf("eKomunikacja"), failed);
    }

    void addressNoFrameCarriesIsARunTimeErrorThatLeavesTheLinkBusy()
    {
        LinkRig rig({300});
        QVariant reply;
        QVERIFY_THROWS_EXCEPTION(RunTimeError, rig.run(1, "daj_dane", reply));
        QVERIFY(rig.comm.Zajety);
        QVERIFY(rig.line.sent.isEmpty());
    }

    void writesSucceedWithNobodyOnTheLine()
    {
        LinkRig rig;
        QVariant reply;
        QVERIFY(rig.run(1, "Ustaw_sr", reply, 4));
        QVERIFY(rig.run(1, "daj_dane", reply));
        QCOMPARE(rig.elapsedMs(), 0);
    }

    void noiseBeforeARequestIsDiscarded()
    {
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), bytes({0x99, 2, 0x44}));
        rig.line.answer(bytes({2, 5, 0x90, 4}), bytes({0x0F}));
        std::int16_t v = 0;
        QVERIFY(rig.run(1, "Czytaj_Kond1", v));
        QCOMPARE(v, std::int16_t(0x0F));
    }

    void busyFlagLetsASecondCommandStraightThrough()
    {
        LinkRig rig({5, 6});
        const QByteArray outer = bytes({2, 5, 0x90, 4});
        rig.line.answer(outer, {});
        bool busyWhenInnerStarted = false;
        bool busyAfterInner = true;
        rig.pump.afterMs(100, [&] {
            busyWhenInnerStarted = rig.comm.Zajety;
            QVariant none;
            rig.run(2, "Ustaw_sr", none, 1);
            busyAfterInner = rig.comm.Zajety;
            rig.line.arriveAfterMs(100, bytes({0x42}));
        });
        std::int16_t v = 0;
        QVERIFY(rig.run(1, "Czytaj_Kond1", v));
        QCOMPARE(v, std::int16_t(0x42));
        QVERIFY(busyWhenInnerStarted);
        QVERIFY(!busyAfterInner); // the inner command dropped the outer's flag
        QCOMPARE(rig.line.sent, (QList<QByteArray>{outer, bytes({2, 6, 0x6A, 3, 1})}));
        QCOMPARE(rig.wizual.argsOf("eKomunikacja"), (QList<QVariantList>{{std::int16_t(1)}, {std::int16_t(1)},
                                                                          {std::int16_t(0)}, {std::int16_t(0)}}));
    }

    void replyIntoABufferOfTheWrongShapeIsARunTimeError()
    {
        LinkRig rig;
        rig.line.answer(bytes({2, 5, 0x90, 4}), bytes({1}));
        QVariant single;
        QCOMPARE(errorOf([&] { rig.run(1, "Czytaj_Diody", single); }), int(RunTimeError::TypeMismatch));
        rig.line.arriveAt(rig.clock.now(), QByteArray(32, char(9)));
        std::array<std::uint8_t, 16> shortBlock{};
        QCOMPARE(errorOf([&] { rig.run(1, "czytaj32", shortBlock); }), int(RunTimeError::SubscriptOutOfRange));
        QCOMPARE(shortBlock[15], std::uint8_t(9));
    }

};

ZORBEL_TEST_MAIN(RozkazTest)
#include "tst_rozkaz.moc"
