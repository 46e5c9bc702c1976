#include "StationHub.h"

#include "ControllerListWindow.h"

#include "core/PollingTimers.h"
#include "core/Station.h"

void StationHub::attach(Station *station, ControllerListWindow *window, PollingTimers *timers)
{
    m_station = station;
    m_window = window;
    m_timers = timers;
}

void StationHub::eKomunikacja(std::int16_t Stan)
{
    if (m_window)
        m_window->showLink(Stan);
}

void StationHub::eOkresowyOdczyt(std::int16_t Id, bool Stan)
{
    if (m_window)
        m_window->showReading(Id, Stan);
}

void StationHub::eNoweDane(std::int16_t Id, const QString &)
{
    if (m_window)
        m_window->refreshController(Id);
}

void StationHub::eZmianaAlarmow()
{
    if (!m_station)
        return;
    if (m_timers)
        m_timers->setAlarmTimers(m_station->oApp.IloscNiePotwAlarmow > 0);
    if (m_window)
        m_window->refreshAlarms();
}

void StationHub::eBlokadaRegul(std::int16_t Id, bool, bool)
{
    if (m_window)
        m_window->refreshController(Id);
}
