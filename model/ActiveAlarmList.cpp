#include "model/ActiveAlarmList.h"

#include "base/Conversions.h"
#include "base/NumberForm.h"
#include "base/RunTimeError.h"
#include "base/AlarmLog.h"
#include "base/clsWizual.h"
#include "model/AlarmKind.h"
#include "model/ControllerContext.h"
#include "model/clsoApp.h"
#include "model/colRegulatory.h"

namespace {

QString prefixOf(std::int16_t Typ)
{
    switch (Typ) {
    case AlarmKind::NoLink: return QStringLiteral("Brak komunikacji z regulatorem ");
    case AlarmKind::Current: return QStringLiteral("Przekroczona wartość prądu ");
    case AlarmKind::Voltage: return QStringLiteral("Przekroczona wartość napięcia ");
    case AlarmKind::TgFi: return QStringLiteral("Przekroczona wartość tg fi ");
    default: return {};
    }
}

// The key of the row's table row; a row whose write failed has none, and
// converting its empty text is the run-time's type mismatch, as it always was.
std::int32_t storedKey(const ActiveAlarmList::Row &r)
{
    return r.key ? *r.key : conv::toInt32(QVariant(QString()));
}

int iconOf(std::int16_t Typ)
{
    if (Typ == AlarmKind::NoLink)
        return 1;
    return (Typ >= AlarmKind::Current && Typ <= AlarmKind::TgFi) ? 2 : 0;
}

}

const ActiveAlarmList::Row &ActiveAlarmList::row(int index) const
{
    if (index < 1 || index > rowCount())
        throw RunTimeError::subscriptOutOfRange();
    return m_rows[std::size_t(index - 1)];
}

bool ActiveAlarmList::hasActive(std::int16_t Id, std::int16_t Typ) const
{
    for (const Row &r : m_rows)
        if (r.isActive(Id, Typ))
            return true;
    return false;
}

void ActiveAlarmList::render(Row &r)
{
    r.subItems[3] = numberForm(r.id);
    r.subItems[4] = numberForm(r.kind);
    r.subItems[6] = r.active ? QStringLiteral("A") : QStringLiteral("N");
    r.subItems[7] = r.confirmed ? QStringLiteral("T") : QStringLiteral("N");
    r.subItems[8] = r.key ? numberForm(*r.key) : QString();
    r.bold = !r.confirmed; // an unconfirmed alarm stays bold after its end
    r.red = r.active;
    r.ghosted = !r.active;
}

void ActiveAlarmList::NowyAlarm(ZDate Data, std::int16_t Id, std::int16_t Typ, const QString &text)
{
    if (hasActive(Id, Typ))
        return;
    // the kind's prefix, with its trailing blank, ahead of the caller's detail;
    // an unknown kind has no text at all
    const QString prefix = prefixOf(Typ);
    const QString full = prefix.isEmpty() ? QString() : prefix + text;

    Row row;
    row.id = Id;
    row.kind = Typ;
    row.text = Data.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"));
    row.icon = iconOf(Typ);
    const QString kod = m_context.Regulatory.Item(Id).Kod;
    row.subItems[1] = kod;
    row.subItems[2] = full;
    row.subItems[5] = text;
    render(row);
    // kept: every alarm of the run stays in the list, ended and confirmed
    // ones too; on a line that keeps losing a controller it grows by a row
    // per lost contact (a few hundred bytes each) until the station restarts
    m_rows.push_back(row);
    const int index = rowCount();
    changed();

    at(index).key = m_context.oBD.ZapiszAlarm(Data, AlarmSource::Controller, full, kod, QString());
    render(at(index));
    paintNode(kod, true);
    clsoApp &app = m_context.oApp;
    app.IloscAktywnychAlarmow = conv::add16(app.IloscAktywnychAlarmow, 1);
    app.IloscNiePotwAlarmow = conv::add16(app.IloscNiePotwAlarmow, 1);
    changed();
    m_context.oWizual.eZmianaAlarmow();
}

void ActiveAlarmList::Potwierdz(int index)
{
    Row &r = at(index);
    if (r.confirmed)
        return;
    clsoApp &app = m_context.oApp;
    app.IloscNiePotwAlarmow = conv::sub16(app.IloscNiePotwAlarmow, 1);
    r.confirmed = true;
    render(r);
    changed();
    m_context.oBD.ModyfikujAlarm(storedKey(r), m_context.now().toVariant(), QVariant(), QString());
    m_context.oWizual.eZmianaAlarmow();
}

void ActiveAlarmList::DezaktywujAlarm(int index)
{
    Row &r = at(index);
    clsoApp &app = m_context.oApp;
    app.IloscAktywnychAlarmow = conv::sub16(app.IloscAktywnychAlarmow, 1);
    r.active = false;
    render(r);
    changed();
    m_context.oBD.ModyfikujAlarm(storedKey(r), QVariant(), m_context.now().toVariant(), QString());
    if (app.IloscAktywnychAlarmow == 0)
        m_context.oWizual.eZmianaAlarmow();
    // The node goes back to normal at the first end of any of the
    // controller's alarms, even while another of them is still active.
    paintNode(r.subItems[1], false);
}

void ActiveAlarmList::paintNode(const QString &kod, bool alarm) const
{
    if (m_paint)
        m_paint(kod, alarm);
}

void ActiveAlarmList::changed() const
{
    if (m_changed)
        m_changed();
}
