#include "ModelRig.h"

using namespace rig;

namespace {

constexpr std::uint8_t A = 5; // the controller's address
constexpr std::uint8_t Blocking = 0x2F, Keys = 0x6A;
const QByteArray ReadBlock = frame(A, Blocking, 0x05), ReadK1 = frame(A, Lamps1, 0x04), ReadK2 = frame(A, Lamps2, 0x04);
const QStringList BlockHub{"eBlokowanieRegul", "eBlokadaRegul"};
const QStringList StageHub{"eZalaczanieBaterii", "eWylaczanieBaterii", "eNoweDane"};

const auto setBlock = [](std::uint8_t b) { return frame(A, Blocking, 0x03, b); };
// The controller answers the two stage reads once with these bytes.
void answerStages(ScriptedLine &line, std::uint8_t k1, std::uint8_t k2)
{
    line.answer(ReadK1, byte(k1), 1);
    line.answer(ReadK2, byte(k2), 1);
}

}

class ControlTest : public QObject {
    Q_OBJECT
private slots:
    void blockRequestFlipsBit5KeepsTheOtherBitsAndIsReportedWhenItFails()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        rig.line.answer(ReadBlock, byte(0x04), 1);
        rig.line.answer(ReadBlock, byte(0x24), 1);
        QVERIFY(r.BlokujRegul(true));
        QCOMPARE(rig.line.sent, (QList<QByteArray>{ReadBlock, setBlock(0x24), ReadBlock}));
        QVERIFY(r.Zablokowany);
        QCOMPARE(rig.hub(BlockHub), (QStringList{"eBlokowanieRegul(1,true,true)", "eBlokadaRegul(1,true,true)",
                                                 "eBlokowanieRegul(1,true,false)"}));
        rig.line.answer(ReadBlock, byte(0x27), 1);
        rig.line.answer(ReadBlock, byte(0x07), 1);
        QVERIFY(r.BlokujRegul(false));
        QCOMPARE(rig.line.sent.mid(3), (QList<QByteArray>{ReadBlock, setBlock(0x07), ReadBlock}));
        QVERIFY(!r.Zablokowany);
        QCOMPARE(rig.hub(BlockHub).mid(3), (QStringList{"eBlokowanieRegul(1,false,true)", "eBlokadaRegul(1,false,true)",
                                                        "eBlokowanieRegul(1,false,false)"}));

        // a request for the state already held clears the whole byte: a repeated block unblocks
        for (const auto &[held, block] : {std::pair{0x25, true}, std::pair{0x0D, false}}) {
            rig.line.sent.clear();
            rig.line.answer(ReadBlock, byte(std::uint8_t(held)), 1);
            rig.line.answer(ReadBlock, byte(0x00), 1);
            QCOMPARE(r.BlokujRegul(block), !block);
            QCOMPARE(rig.line.sent.value(1), setBlock(0x00));
        }
        // unblocking is logged under the same words
        QCOMPARE(rig.log(), QStringList(4, "Blokada regulatora|N|B|R1"));

        // silent: read twice, nothing written or logged, and the state known stands
        rig.line.sent.clear();
        rig.f.wizual.calls.clear();
        r.Zablokowany = true;
        QVERIFY(!r.BlokujRegul(false));
        QCOMPARE(rig.hub(BlockHub), (QStringList{"eBlokowanieRegul(1,false,true)", "eBlokadaRegul(1,true,true)",
                                                 "eBlokowanieRegul(1,false,false)"}));
        // the state read stands when the write is not confirmed
        rig.line.answer(ReadBlock, byte(0x05), 1);
        QVERIFY(!r.BlokujRegul(true));
        QCOMPARE(rig.line.sent, (QList<QByteArray>{ReadBlock, ReadBlock, ReadBlock, setBlock(0x25), ReadBlock,
                                                   setBlock(0x25), ReadBlock}));
        QVERIFY(!r.Zablokowany);
        QCOMPARE(rig.log().mid(4), QStringList{"Nieudana próba zablokowania regulatora|B|B|R1"});
    }

    void panelKeysGoOutAsOneByteThenTheControllerIsRead()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        rig.s().panelKeys.setValue(4, true);
        rig.s().panelKeys.setValue(7, true);
        answerReading(rig.line, A, normalBlock());
        QVERIFY(r.UstawRegulator());
        QCOMPARE(rig.line.sent.first(), frame(A, Keys, 0x03, 0x09));
        QCOMPARE(rig.line.sent.size(), 5); // then the reading
        QCOMPARE(rig.log(), QStringList{"Ustawienie regulatora|N|U|R1"});
        for (int k = PanelKeys::First; k <= PanelKeys::Last; ++k)
            QVERIFY(!rig.s().panelKeys.value(k));
        rig.s().panelKeys.setValue(5, true); // key 5 alone is a 2, which goes out once
        r.UstawRegulator();
        QCOMPARE(rig.line.sent.value(5), frame(A, Keys, 0x03, 0x02));
    }

    void stageAlreadyInTheWantedStateIsOnlyReadOtherwiseSwitchingOffStartsTheDischarge()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.line;
        answerStages(line, 0xFE, 0xFF); // stage 0 on
        QVERIFY(r.UstawKondensator(0, true));
        answerStages(line, 0x00, 0x80); // stage 8 off
        QVERIFY(r.UstawKondensator(8, false));
        QCOMPARE(line.sent, (QList<QByteArray>{ReadK1, ReadK2, ReadK1, ReadK2}));
        QCOMPARE(rig.hub(StageHub).mid(0, 3),
                 (QStringList{"eZalaczanieBaterii(1,true)", "eNoweDane(1,O)", "eZalaczanieBaterii(1,false)"}));
        QVERIFY(rig.log().isEmpty());

        // off: the bit set and the 60-second discharge timer started
        line.sent.clear();
        rig.f.wizual.calls.clear();
        answerStages(line, 0x00, 0x00);
        answerStages(line, 0x01, 0x00); // the read after the write
        QVERIFY(r.UstawKondensator(0, false));
        QCOMPARE(line.sent, (QList<QByteArray>{ReadK1, ReadK2, frame(A, 0x70, 0x03, 0x3C), frame(A, Lamps1, 0x01, 0x01),
                                               ReadK1, ReadK2}));
        QCOMPARE(rig.hub(StageHub),
                 (QStringList{"eWylaczanieBaterii(1,true)", "eNoweDane(1,O)", "eWylaczanieBaterii(1,false)"}));
        // stage 9 lives in bit 7 of the second byte
        line.sent.clear();
        answerStages(line, 0x00, 0x02);
        QVERIFY(r.UstawKondensator(8, false));
        QCOMPARE(line.sent.mid(2, 2), (QList<QByteArray>{frame(A, 0x78, 0x03, 0x3C), frame(A, Lamps2, 0x01, 0x82)}));
        QCOMPARE(rig.log(), (QStringList{"Wyłączono stopień nr  1|N|S|R1", "Wyłączono stopień nr  9|N|S|R1"}));
    }

    void switchingOnNeedsTheDischargeOverAndClearsTheBit()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.line;
        answerStages(line, 0xFF, 0xFF);
        line.answer(frame(A, 0x73, 0x05), byte(37), 1);
        QVERIFY(!r.UstawKondensator(3, true));
        QCOMPARE(line.sent, (QList<QByteArray>{ReadK1, ReadK2, frame(A, 0x73, 0x05)}));
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QCOMPARE(rig.f.dialogs.calls[0].prompt, QStringLiteral("Nie można załączyć kondensatora nr 4.\rNie upłynął jeszcze "
                                                              "czas jego rozładowania.\rPozostało  37 sekund."));
        QCOMPARE(rig.f.dialogs.calls[0].style, int(Dialogs::Critical));
        QVERIFY(rig.log().isEmpty());
        QCOMPARE(rig.hub(StageHub), (QStringList{"eZalaczanieBaterii(1,true)", "eZalaczanieBaterii(1,false)"}));

        line.sent.clear();
        answerStages(line, 0xFF, 0xFF);
        line.answer(frame(A, 0x73, 0x05), byte(0), 1);
        QVERIFY(r.UstawKondensator(3, true));
        QCOMPARE(line.sent.mid(2, 2), (QList<QByteArray>{frame(A, 0x73, 0x05), frame(A, Lamps1, 0x01, 0xF7)}));
        // stage 9: bits 4 to 6 kept, bit 7 cleared, bits 0 to 3 set
        for (const auto &[k2, written] : {std::pair{0xFF, 0x7F}, std::pair{0xD2, 0x5F}, std::pair{0x80, 0x0F}}) {
            line.sent.clear();
            answerStages(line, 0xFF, std::uint8_t(k2));
            line.answer(frame(A, 0x78, 0x05), byte(0), 1);
            QVERIFY(r.UstawKondensator(8, true));
            QCOMPARE(line.sent.value(3), frame(A, Lamps2, 0x01, std::uint8_t(written)));
        }
        QCOMPARE(rig.log().first(), QStringLiteral("Załączono stopień nr  4|N|S|R1"));
        QCOMPARE(rig.log().last(), QStringLiteral("Załączono stopień nr  9|N|S|R1"));
        QCOMPARE(rig.f.dialogs.calls.size(), 1);

        // failed stage reads still write and log: nothing answers, so 0 goes out, which is all stages on
        line.sent.clear();
        rig.f.wizual.calls.clear();
        QVERIFY(r.UstawKondensator(2, true));
        QCOMPARE(line.sent.count(frame(A, Lamps1, 0x01, 0x00)), 1);
        QVERIFY(!line.sent.contains(frame(A, 0x72, 0x05)));
        QVERIFY(rig.f.wizual.argsOf("eNoweDane").isEmpty());
        QCOMPARE(rig.log().last(), QStringLiteral("Załączono stopień nr  3|N|S|R1"));
    }
};

ZORBEL_TEST_MAIN(ControlTest)
#include "tst_control.moc"
