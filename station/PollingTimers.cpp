#include "station/PollingTimers.h"

#include "base/RunTimeError.h"
#include "station/Station.h"
#include "model/StatusPanels.h"
#include "base/clsWizual.h"

PollingTimers::PollingTimers(Station &station, StatusPanels &panels) : m_station(station), m_panels(panels)
{
    Timer1.setInterval(100);
    Timer2.setInterval(1000);
    Timer3.setInterval(3000);
    connect(&Timer1, &QTimer::timeout, this, [this] { guarded(&PollingTimers::Timer1Tick); });
    connect(&Timer2, &QTimer::timeout, this, [this] { guarded(&PollingTimers::Timer2Tick); });
    connect(&Timer3, &QTimer::timeout, this, [this] { guarded(&PollingTimers::Timer3Tick); });
    Timer3.start(); // on from the start; its ticks do nothing until an alarm is active
}

void PollingTimers::stop()
{
    Timer1.stop();
    Timer2.stop();
    Timer3.stop();
}

void PollingTimers::setAlarmTimers(bool on)
{
    for (QTimer *t : {&Timer2, &Timer3}) {
        if (on && !t->isActive())
            t->start();
        else if (!on)
            t->stop();
    }
}

void PollingTimers::guarded(void (PollingTimers::*tick)())
{
    try {
        (this->*tick)();
    } catch (const RunTimeError &e) {
        stop();
        if (m_fatal)
            m_fatal(e);
        else
            throw;
    }
}

void PollingTimers::Timer1Tick()
{
    // off for the whole tick, however long the line keeps it: ticks never nest,
    // and the period runs from the end of one to the start of the next
    Timer1.stop();
    m_inTick = true;
    struct TickEnd {
        bool &flag;
        ~TickEnd() { flag = false; }
    } tickEnd{m_inTick};
    CzasTicka = m_station.now();
    // the same moment for the reading grid, which summer time does not move
    const ZDate standard = m_station.standardNow();
    // a second reading of the clock; the panel stands still during a long tick
    const QString clock = m_station.now().toString(QStringLiteral("HH:mm:ss"));
    if (m_panels.text(StatusPanels::Clock) != clock)
        m_panels.setText(StatusPanels::Clock, clock);

    for (const auto &r : m_station.Regulatory)
        if (r->aktywny())
            r->OkresowyOdczyt(CzasTicka, standard);
    m_station.Kolejka.Wykonaj();
    for (const auto &r : m_station.Regulatory) {
        if (!r->Monitoring)
            continue;
        m_station.oWizual.eMonitoring(r->Id, true);
        r->WczytajStanRegul(CzasTicka);
        m_station.oWizual.eMonitoring(r->Id, false);
    }
    const qint64 hour = CzasTicka.msecs() / (60 * ZDate::MsPerMinute);
    if (m_hourly && hour != m_hour) {
        m_hour = hour;
        m_hourly(CzasTicka);
    }
    Timer1.start();
}

void PollingTimers::Timer2Tick()
{
    if (m_station.oApp.IloscAktywnychAlarmow <= 0)
        return;
    const bool shown = m_panels.picture(StatusPanels::AlarmSign) != StatusPanels::Picture::None;
    m_panels.setPicture(StatusPanels::AlarmSign, shown ? StatusPanels::Picture::None : StatusPanels::Picture::AlarmFlash);
}

void PollingTimers::Timer3Tick()
{
    if (m_station.oApp.IloscAktywnychAlarmow > 0)
        m_station.oWizual.GrajDzwiek(QStringLiteral("alarm.wav"));
}
