// Alarms of one controller: raised and cleared by each reading, kept in the
// list of the alarm window.
#include "model/clRegulator.h"

#include "base/Conversions.h"
#include "base/NumberForm.h"
#include "model/ControllerContext.h"
#include "model/ActiveAlarmList.h"
#include "model/AlarmKind.h"
#include "base/clsWizual.h"

namespace {

// Seven decimals of the value the single holds: 9.999 reads "9.9990000",
// not the digits of its binary neighbour.
QString tgFiText(float v)
{
    return QString::number(QString::number(double(v), 'g', 7).toDouble(), 'f', 7);
}

}

void clRegulator::DodajAlarm(ZDate Data, std::int16_t Typ, const QString &Opis)
{
    // kept: counts every call and is never lowered; its one use is SprawdzAlarm's
    // test for above 0, so it stops at 32767 where a silent monitored
    // controller would overflow it after about 28 hours
    if (AktywneAlarmy < INT16_MAX)
        AktywneAlarmy = conv::add16(AktywneAlarmy, 1);
    ctx().fmAlarmyN.NowyAlarm(Data, Id, Typ, Opis);
    ctx().oWizual.eAlarm(Id, Typ, Opis, true);
}

void clRegulator::SprawdzAlarm(std::int16_t Typ)
{
    if (AktywneAlarmy <= 0)
        return;
    ActiveAlarmList &list = ctx().fmAlarmyN;
    for (int i = 1; i <= list.rowCount(); ++i)
        if (list.row(i).isActive(Id, Typ))
            list.DezaktywujAlarm(i);
}

void clRegulator::checkLimits()
{
    // no hysteresis: each reading raises or clears each kind
    auto evaluate = [this](std::int16_t kind, bool raised, const QString &detail) {
        if (raised)
            DodajAlarm(ctx().now(), kind, detail);
        else
            SprawdzAlarm(kind);
    };
    evaluate(AlarmKind::Current, PradBierny > ProgPrad, QStringLiteral("(") + numberForm(PradBierny) + QStringLiteral(" A)"));
    evaluate(AlarmKind::Voltage, Napiecie > ProgNapiecie, QStringLiteral("(") + numberForm(Napiecie) + QStringLiteral(" V)"));
    evaluate(AlarmKind::TgFi, TgFi > ProgTgFiMax || TgFi < ProgTgFiMin,
             QStringLiteral("(") + tgFiText(TgFi) + QStringLiteral(")"));
}
