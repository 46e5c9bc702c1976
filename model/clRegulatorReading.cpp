// Reading a controller: the lamp bytes, the data block, and the values
// scaled from them.
#include "model/clRegulator.h"

#include "base/Conversions.h"
#include "base/RunTimeError.h"
#include "model/ControllerContext.h"
#include "base/AlarmLog.h"
#include "model/AlarmKind.h"
#include "link/Komunikator.h"
#include "base/clsFunkcje.h"
#include "link/ReplyBuffer.h"
#include "base/clsWizual.h"

#include <cmath>

ControllerContext &clRegulator::ctx() const
{
    return *m_context;
}

bool clRegulator::command(const char *word, const ReplyBuffer &buffer, std::uint8_t parameter)
{
    QString polecenie = QString::fromLatin1(word);
    return ctx().oKomunikator.WykonajRozkaz(adres, polecenie, buffer, parameter);
}

bool clRegulator::WczytajStanRegul(ZDate)
{
    ZakloceniaHarm = false;
    if (!command("Czytaj_Diody", BuforDiod)) {
        DodajAlarm(ctx().now(), AlarmKind::NoLink, QString());
        ctx().oBD.ZapiszDoLoga(QStringLiteral("Błąd komunikacji z regulatorem"), LogStatus::Failed,
                               LogType::Link, Kod);
        return false;
    }
    clsStan.StanDiod1 = BuforDiod[1];
    clsStan.StanDiod2 = BuforDiod[2];
    clsStan.StanDiod3 = BuforDiod[3];

    QVariant unused;
    if (command("daj_dane", unused)) {
        if (!command("czytaj", BajtPotw) || !command("czytaj32", BuforDanych)) {
            DodajAlarm(ctx().now(), AlarmKind::NoLink, QString());
            return false;
        }
        SprawdzAlarm(AlarmKind::NoLink);
    }
    decodeBlock();
    checkLimits();
    ctx().oWizual.eNoweDane(Id, QStringLiteral("O"));
    return true;
}

void clRegulator::decodeBlock()
{
    const auto &b = BuforDanych;
    auto storeSingle = [](double v) { return float(v); };
    Napiecie = storeSingle(double(clsFunkcje::TworzInt(b[15], b[16])) * SkalaNapiecia * PrzekladniaNap);
    MnoznikEnergii = (std::sqrt(3.0) / 100.0) * Przekladnia * SkalaNapiecia * PrzekladniaNap * 400.0 / 3600000.0;
    MnoznikPradu = double(Przekladnia) / 200.0;

    PradCalkSr = storeSingle(clsFunkcje::TworzLongU(b[0], b[1], b[2], b[3]) * MnoznikEnergii);
    PradBiernPojSr = storeSingle(clsFunkcje::TworzLong(b[4], b[5], b[6], b[7]) * MnoznikEnergii);
    PradBiernSr = storeSingle(clsFunkcje::TworzLong(b[8], b[9], b[10], b[11]) * MnoznikEnergii);
    TimerU = clsFunkcje::TworzLong(0, b[12], b[13], b[14]);
    // the voltage of bytes 15 and 16 is the one computed first
    PradBierny = storeSingle(clsFunkcje::TworzInt(b[17], b[18]) * MnoznikPradu);
    PradCalk = storeSingle(clsFunkcje::TworzInt(b[19], b[20]) * MnoznikPradu);
    Faza = clsFunkcje::TworzInt(b[21], b[22]);
    OkresSurowy = conv::add16(clsFunkcje::TworzInt(b[23], b[24]), 1); // 32767 + 1 overflows

    // the mains period in counts of a 115200 Hz clock: 2304 is 50 Hz
    if (OkresSurowy == 1)
        ZakloceniaHarm = true;
    if (OkresSurowy != 0)
        Okres = storeSingle(115200.0 / OkresSurowy);

    // the magnitudes compare as singles
    if (std::fabs(PradBiernSr) < std::fabs(PradCalkSr)) {
        PradCzynny = storeSingle(std::sqrt(double(PradCalkSr) * PradCalkSr - double(PradBiernSr) * PradBiernSr));
    } else {
        PradCzynny = std::fabs(PradBiernSr);
        ZakloceniaHarm = true;
    }
    TgFi = PradCzynny == 0 ? NoActiveEnergy : storeSingle(double(PradBiernSr) / PradCzynny);

    clsStan.StanPrzel1 = b[25];
    clsStan.StanPrzel2 = b[26];
    clsStan.StanDisplay1 = b[27];
    clsStan.StanDisplay2 = b[28];
    clsStan.StanDisplay3 = b[29];
    clsStan.StanDisplay4 = b[30];
}

bool clRegulator::SprawdzStanDiody(std::uint8_t Nr) const
{
    if (Nr > 8)
        throw RunTimeError::subscriptOutOfRange();
    const BitMasks &mask = ctx().bitMasks;
    // a stage's bit is active low
    if (Nr == 8)
        return (clsStan.StanDiod2 & mask[7]) == 0;
    return (clsStan.StanDiod1 & mask[Nr]) == 0;
}
