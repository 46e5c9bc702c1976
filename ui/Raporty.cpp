#include "Raporty.h"

#include "ReportWindow.h"

#include "reports/ReportBuild.h"
#include "reports/ReportTable.h"
#include "station/Station.h"

Raporty::Raporty(Station &station, ControllerList controllers)
    : m_station(station), m_controllers(std::move(controllers)),
      m_present([this](const ReportTable &table, bool maximised) { showModal(table, maximised); })
{
}

void Raporty::RaportDobowyRegulatora(QDate data, std::int16_t Id)
{
    const clRegulator &r = m_station.Regulatory.Item(Id);
    m_present(ReportBuild::dailyOfController(m_station.connection(), data, r.adres, r.Kod), true);
}

void Raporty::RaportDobowyObiektu(QDate data, const QString &nazwa)
{
    const auto table = ReportBuild::dailyOfObject(m_station.connection(), data, nazwa, m_controllers(nazwa));
    if (table)
        m_present(*table, true);
}

// kept: the period reports open at their normal size, where the daily one is maximised
void Raporty::RaportOkresowyRegulatora(QDate od, QDate do_, std::int16_t Id)
{
    const clRegulator &r = m_station.Regulatory.Item(Id);
    m_present(ReportBuild::periodOfController(m_station.connection(), od, do_, r.adres, r.Kod), false);
}

void Raporty::RaportOkresowyObiektu(QDate od, QDate do_, const QString &nazwa)
{
    const auto table = ReportBuild::periodOfObject(m_station.connection(), od, do_, nazwa, m_controllers(nazwa));
    if (table)
        m_present(*table, false);
}

void Raporty::showModal(const ReportTable &table, bool maximised) const
{
    ReportWindow window(table, m_station.now().date(), m_station.services.dialogs);
    if (maximised)
        window.setWindowState(Qt::WindowMaximized);
    window.exec();
}
