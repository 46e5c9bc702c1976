#pragma once

#include "ui/clsWizual.h"

class ControllerListWindow;
class PollingTimers;
class Station;

// The interface's event hub for the controller list window: it passes the
// events that window shows on to it and drives the alarm timers. Events of
// windows that this frame does not have yet are let pass.
class StationHub final : public clsWizual {
public:
    void attach(Station *station, ControllerListWindow *window, PollingTimers *timers);

    void eZmianaTrybuSterowania(bool) override {}
    void eAlarm(std::int16_t, std::int16_t, const QString &, bool) override {} // a hook, empty on purpose
    void eKomunikacja(std::int16_t Stan) override;
    void eMonitoring(std::int16_t, bool) override {}
    void eOkresowyOdczyt(std::int16_t Id, bool Stan) override;
    void eZalaczanieBaterii(std::int16_t, bool) override {}
    void eWylaczanieBaterii(std::int16_t, bool) override {}
    void eZapisDB(bool) override {} // a hook, empty on purpose
    void eNoweDane(std::int16_t Id, const QString &Typ) override;
    void eZmianaBaterii(std::int16_t, std::int16_t) override {}
    void eZmianaAlarmow() override;
    void eZmianaRegulatora(std::int16_t) override {}
    void eBlokowanieRegul(std::int16_t, bool, bool) override {}
    void eBlokadaRegul(std::int16_t Id, bool, bool) override;
    void GrajDzwiek(const QString &) override {}

private:
    Station *m_station = nullptr;
    ControllerListWindow *m_window = nullptr;
    PollingTimers *m_timers = nullptr;
};
