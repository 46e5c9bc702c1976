#include "TestMain.h"
#include "ModelRig.h"

#include <QTest>

using namespace rig;

namespace {

constexpr std::uint8_t A = 5; // the controller's address
constexpr std::uint8_t Blocking = 0x2F, Keys = 0x6A;

QByteArray readBlock()
{
    return frame(A, Blocking, 0x05);
}
QByteArray readK1()
{
    return frame(A, Lamps1, 0x04);
}
QByteArray readK2()
{
    return frame(A, Lamps2, 0x04);
}

// The controller answers the two stage reads once with these bytes.
void answerStages(ScriptedLine &line, std::uint8_t k1, std::uint8_t k2)
{
    line.answer(readK1(), byte(k1), 1);
    line.answer(readK2(), byte(k2), 1);
}

// The hub calls of these names, in order, as "name(args)".
QStringList hub(const RecordingWizual &w, const QStringList &names)
{
    QStringList out;
    for (const RecordingWizual::Call &c : w.calls) {
        if (!names.contains(c.name))
            continue;
        QStringList args;
        for (const QVariant &a : c.args)
            args << a.toString();
        out << c.name + '(' + args.join(',') + ')';
    }
    return out;
}

}

class ControlTest : public QObject {
    Q_OBJECT
private slots:
    void blockRequestFlipsBit5AndKeepsTheOtherBits()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        line.answer(readBlock(), byte(0x05), 1);
        line.answer(readBlock(), byte(0x25), 1);
        r.BlokujRegul(true);
        QCOMPARE(line.sent, (QList<QByteArray>{readBlock(), frame(A, Blocking, 0x03, 0x25), readBlock()}));
        QVERIFY(r.Zablokowany);
        QCOMPARE(hub(rig.f.wizual, {QStringLiteral("eBlokowanieRegul"), QStringLiteral("eBlokadaRegul")}),
                 (QStringList{QStringLiteral("eBlokowanieRegul(1,true,true)"), QStringLiteral("eBlokadaRegul(1,true,true)"),
                              QStringLiteral("eBlokowanieRegul(1,true,false)")}));

        line.sent.clear();
        rig.f.wizual.calls.clear();
        line.answer(readBlock(), byte(0x27), 1);
        line.answer(readBlock(), byte(0x07), 1);
        r.BlokujRegul(false);
        QCOMPARE(line.sent, (QList<QByteArray>{readBlock(), frame(A, Blocking, 0x03, 0x07), readBlock()}));
        QVERIFY(!r.Zablokowany);
        QCOMPARE(hub(rig.f.wizual, {QStringLiteral("eBlokowanieRegul"), QStringLiteral("eBlokadaRegul")}),
                 (QStringList{QStringLiteral("eBlokowanieRegul(1,false,true)"),
                              QStringLiteral("eBlokadaRegul(1,false,true)"),
                              QStringLiteral("eBlokowanieRegul(1,false,false)")}));
        // unblocking is logged under the same words
        QCOMPARE(rig.log(), (QStringList{QStringLiteral("Blokada regulatora|N|B|R1"),
                                         QStringLiteral("Blokada regulatora|N|B|R1")}));
    }

    void requestForTheStateAlreadyHeldClearsTheWholeByte()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        // a repeated block request unblocks: the write carries 0
        line.answer(readBlock(), byte(0x25), 1);
        line.answer(readBlock(), byte(0x00), 1);
        r.BlokujRegul(true);
        QCOMPARE(line.sent.value(1), frame(A, Blocking, 0x03, 0x00));
        QVERIFY(!r.Zablokowany);
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eBlokadaRegul")).last(), (QVariantList{std::int16_t(1), false, true}));

        line.sent.clear();
        line.answer(readBlock(), byte(0x0D), 1);
        line.answer(readBlock(), byte(0x00), 1);
        r.BlokujRegul(false);
        QCOMPARE(line.sent.value(1), frame(A, Blocking, 0x03, 0x00));
        QCOMPARE(rig.log().size(), 2);
    }

    void failedBlockingReadOrWriteIsReported()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        r.Zablokowany = true;
        r.BlokujRegul(false); // silent: read twice, nothing written or logged
        QCOMPARE(line.sent, (QList<QByteArray>{readBlock(), readBlock()}));
        QVERIFY(r.Zablokowany);
        QVERIFY(rig.log().isEmpty());
        QCOMPARE(hub(rig.f.wizual, {QStringLiteral("eBlokowanieRegul"), QStringLiteral("eBlokadaRegul")}),
                 (QStringList{QStringLiteral("eBlokowanieRegul(1,false,true)"), QStringLiteral("eBlokadaRegul(1,true,true)"),
                              QStringLiteral("eBlokowanieRegul(1,false,false)")}));

        // the state read stands when the write is not confirmed
        line.sent.clear();
        line.answer(readBlock(), byte(0x05), 1);
        r.BlokujRegul(true);
        QCOMPARE(line.sent, (QList<QByteArray>{readBlock(), frame(A, Blocking, 0x03, 0x25), readBlock(),
                                               frame(A, Blocking, 0x03, 0x25), readBlock()}));
        QVERIFY(!r.Zablokowany);
        QCOMPARE(rig.log(), QStringList{QStringLiteral("Nieudana próba zablokowania regulatora|B|B|R1")});
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eBlokadaRegul")).last(), (QVariantList{std::int16_t(1), false, true}));
    }

    void panelKeysGoOutAsOneByteThenTheControllerIsRead()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        rig.s().panelKeys.setValue(4, true);
        rig.s().panelKeys.setValue(7, true);
        answerReading(line, A, normalBlock(), {0xAB, 0xFF, 0xFF});
        QVERIFY(r.UstawRegulator());
        QCOMPARE(line.sent.first(), frame(A, Keys, 0x03, 0x09));
        QCOMPARE(line.sent.size(), 5); // then the reading
        QCOMPARE(r.clsStan.StanDiod1, std::uint8_t(0xAB));
        QCOMPARE(r.Napiecie, 380.0f);
        QCOMPARE(rig.log(), QStringList{QStringLiteral("Ustawienie regulatora|N|U|R1")});
        for (int k = PanelKeys::First; k <= PanelKeys::Last; ++k)
            QVERIFY(!rig.s().panelKeys.value(k));

        // key 5 alone is a 2, which goes out once; key 6 is a 4
        line.sent.clear();
        rig.s().panelKeys.setValue(5, true);
        r.UstawRegulator();
        QCOMPARE(line.sent.first(), frame(A, Keys, 0x03, 0x02));
        line.sent.clear();
        rig.s().panelKeys.setValue(6, true);
        r.UstawRegulator();
        QCOMPARE(line.sent.first(), frame(A, Keys, 0x03, 0x04));
    }

    void keysToASilentControllerAreLoggedAsSentAfterTheLinkFailure()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        rig.s().panelKeys.setValue(4, true);
        QVERIFY(r.UstawRegulator());
        QCOMPARE(rig.log(), (QStringList{QStringLiteral("Błąd komunikacji z regulatorem|B|K|R1"),
                                         QStringLiteral("Ustawienie regulatora|N|U|R1")}));
        QCOMPARE(rig.alarms().rowCount(), 1);
        QCOMPARE(rig.alarms().subItem(1, 4), QStringLiteral(" 100"));
        QVERIFY(!rig.s().panelKeys.value(4));
    }

    void stageAlreadyInTheWantedStateIsOnlyRead()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        answerStages(line, 0xFE, 0xFF); // stage 0 on
        QVERIFY(r.UstawKondensator(0, true));
        QCOMPARE(line.sent, (QList<QByteArray>{readK1(), readK2()}));
        QCOMPARE(r.clsStan.StanDiod1, std::uint8_t(0xFE));
        QCOMPARE(hub(rig.f.wizual, {QStringLiteral("eZalaczanieBaterii"), QStringLiteral("eWylaczanieBaterii"),
                                    QStringLiteral("eNoweDane")}),
                 (QStringList{QStringLiteral("eZalaczanieBaterii(1,true)"), QStringLiteral("eNoweDane(1,O)"),
                              QStringLiteral("eZalaczanieBaterii(1,false)")}));

        line.sent.clear();
        answerStages(line, 0x00, 0x80); // stage 8 off
        QVERIFY(r.UstawKondensator(8, false));
        QCOMPARE(line.sent, (QList<QByteArray>{readK1(), readK2()}));
        QVERIFY(rig.log().isEmpty());
    }

    void switchingOffStartsTheDischargeTimerAndSetsTheBit()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        answerStages(line, 0x00, 0x00);
        answerStages(line, 0x01, 0x00); // the read after the write
        QVERIFY(r.UstawKondensator(0, false));
        QCOMPARE(line.sent, (QList<QByteArray>{readK1(), readK2(), frame(A, 0x70, 0x03, 0x3C),
                                               frame(A, Lamps1, 0x01, 0x01), readK1(), readK2()}));
        QCOMPARE(r.clsStan.StanDiod1, std::uint8_t(0x01));
        QVERIFY(!r.SprawdzStanDiody(0));
        QCOMPARE(hub(rig.f.wizual, {QStringLiteral("eZalaczanieBaterii"), QStringLiteral("eWylaczanieBaterii"),
                                    QStringLiteral("eNoweDane")}),
                 (QStringList{QStringLiteral("eWylaczanieBaterii(1,true)"), QStringLiteral("eNoweDane(1,O)"),
                              QStringLiteral("eWylaczanieBaterii(1,false)")}));

        // stage 9 lives in bit 7 of the second byte
        line.sent.clear();
        answerStages(line, 0x00, 0x02);
        QVERIFY(r.UstawKondensator(8, false));
        QCOMPARE(line.sent.mid(2, 2), (QList<QByteArray>{frame(A, 0x78, 0x03, 0x3C), frame(A, Lamps2, 0x01, 0x82)}));

        QCOMPARE(rig.log(), (QStringList{QStringLiteral("Wyłączono stopień nr  1|N|S|R1"),
                                         QStringLiteral("Wyłączono stopień nr  9|N|S|R1")}));
    }

    void switchingOnAfterTheDischargeClearsTheBit()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        answerStages(line, 0xFF, 0xFF);
        line.answer(frame(A, 0x73, 0x05), byte(0), 1);
        QVERIFY(r.UstawKondensator(3, true));
        QCOMPARE(line.sent.mid(0, 4), (QList<QByteArray>{readK1(), readK2(), frame(A, 0x73, 0x05),
                                                          frame(A, Lamps1, 0x01, 0xF7)}));

        // a stage byte of 2 arrives doubled and counts once
        line.sent.clear();
        answerStages(line, 0x02, 0xFF);
        line.answer(frame(A, 0x71, 0x05), byte(0), 1);
        QVERIFY(r.UstawKondensator(1, true));
        QCOMPARE(line.sent.value(3), frame(A, Lamps1, 0x01, 0x00));

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
        QVERIFY(rig.f.dialogs.calls.isEmpty());
    }

    void dischargeTimeLeftRefusesSwitchingOn()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        answerStages(line, 0xFF, 0xFF);
        line.answer(frame(A, 0x73, 0x05), byte(37), 1);
        QVERIFY(!r.UstawKondensator(3, true));
        QCOMPARE(line.sent, (QList<QByteArray>{readK1(), readK2(), frame(A, 0x73, 0x05)}));
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QCOMPARE(rig.f.dialogs.calls.first().prompt,
                 QStringLiteral("Nie można załączyć kondensatora nr 4.\rNie upłynął jeszcze czas jego rozładowania.\r"
                                "Pozostało  37 sekund."));
        QCOMPARE(rig.f.dialogs.calls.first().style, int(Dialogs::Critical));
        QCOMPARE(rig.f.dialogs.calls.first().title, QString());
        QVERIFY(rig.log().isEmpty());
        QCOMPARE(hub(rig.f.wizual, {QStringLiteral("eZalaczanieBaterii"), QStringLiteral("eNoweDane")}),
                 (QStringList{QStringLiteral("eZalaczanieBaterii(1,true)"), QStringLiteral("eZalaczanieBaterii(1,false)")}));
    }

    void failedStageReadsStillWriteAndLog()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        // nothing answers: 0 goes out, which is all stages on
        QVERIFY(r.UstawKondensator(2, true));
        QCOMPARE(line.sent.count(frame(A, Lamps1, 0x01, 0x00)), 1);
        QVERIFY(!line.sent.contains(frame(A, 0x72, 0x05)));
        QVERIFY(rig.f.wizual.argsOf(QStringLiteral("eNoweDane")).isEmpty());

        // the timer read fails: the bytes go out as read
        line.sent.clear();
        answerStages(line, 0xFF, 0xFF);
        QVERIFY(r.UstawKondensator(3, true));
        QCOMPARE(line.sent.mid(0, 5), (QList<QByteArray>{readK1(), readK2(), frame(A, 0x73, 0x05), frame(A, 0x73, 0x05),
                                                          frame(A, Lamps1, 0x01, 0xFF)}));
        QCOMPARE(rig.log(), (QStringList{QStringLiteral("Załączono stopień nr  3|N|S|R1"),
                                         QStringLiteral("Załączono stopień nr  4|N|S|R1")}));
    }
};

ZORBEL_TEST_MAIN(ControlTest)
#include "tst_control.moc"
