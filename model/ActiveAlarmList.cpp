#include "model/ActiveAlarmList.h"

#include "base/Conversions.h"
#include "base/NumberForm.h"
#include "base/RunTimeError.h"
#include "base/AlarmLog.h"
#include "base/clsWizual.h"
#include "model/ControllerContext.h"
#include "model/clsoApp.h"
#include "model/colRegulatory.h"

namespace {

QString prefixOf(std::int16_t Typ)
{
    switch (Typ) {
    case 100: return QStringLiteral("Brak komunikacji z regulatorem ");
    case 201: return QStringLiteral("Przekroczona wartość prądu ");
    case 202: return QStringLiteral("Przekroczona wartość napięcia ");
    case 203: return QStringLiteral("Przekroczona wartość tg fi ");
    default: return {};
    }
}

int iconOf(std::int16_t Typ)
{
    if (Typ == 100)
        return 1;
    return (Typ >= 201 && Typ <= 203) ? 2 : 0;
}

bool numericallyEqual(const QString &subItem, int value)
{
    bool ok = false;
    return subItem.trimmed().toDouble(&ok) == value && ok;
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
        if (numericallyEqual(r.subItems[3], Id) && numericallyEqual(r.subItems[4], Typ) && r.subItems[6] == QLatin1String("A"))
            return true;
    return false;
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
    row.text = Data.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"));
    row.icon = iconOf(Typ);
    const QString kod = m_context.Regulatory.Item(Id).Kod;
    row.subItems = {QString(), kod, full, numberForm(Id), numberForm(Typ), text, QStringLiteral("A"), QStringLiteral("N"),
                    QString()};
    m_rows.push_back(row);
    const int index = rowCount();
    changed();

    const std::int32_t key = m_context.oBD.ZapiszAlarm(Data, QStringLiteral("R"), full, kod, QString());
    at(index).subItems[8] = numberForm(key);
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
    if (r.subItems[7] != QLatin1String("N"))
        return;
    clsoApp &app = m_context.oApp;
    app.IloscNiePotwAlarmow = conv::sub16(app.IloscNiePotwAlarmow, 1);
    r.subItems[7] = QStringLiteral("T");
    r.bold = false;
    changed();
    m_context.oBD.ModyfikujAlarm(conv::toInt32(r.subItems[8]), m_context.now().toVariant(), QVariant(), QString());
    m_context.oWizual.eZmianaAlarmow();
}

void ActiveAlarmList::DezaktywujAlarm(int index)
{
    Row &r = at(index);
    clsoApp &app = m_context.oApp;
    app.IloscAktywnychAlarmow = conv::sub16(app.IloscAktywnychAlarmow, 1);
    r.subItems[6] = QStringLiteral("N");
    r.red = false;
    r.ghosted = true; // bold stays: an unconfirmed alarm remains bold
    changed();
    m_context.oBD.ModyfikujAlarm(conv::toInt32(r.subItems[8]), QVariant(), m_context.now().toVariant(), QString());
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
