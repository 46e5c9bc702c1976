#pragma once

#include "core/BitMasks.h"
#include "core/clsFunkcje.h"
#include "core/clsoApp.h"
#include "db/Database.h"
#include "db/RowSet.h"
#include "db/clsBD.h"
#include "link/Komunikator.h"
#include "link/clComm.h"
#include "link/clsKolejka.h"
#include "model/ActiveAlarmList.h"
#include "model/PanelKeys.h"
#include "model/colRegulatory.h"

#include <memory>

class Clock;
class Dialogs;
class EventPump;
class LinePort;
class SettingsStore;
class SplashView;
class clsWizual;

// What a station is given from outside: its clock, its settings store, the
// message boxes, the start window, the controller line, the pump that lets
// the interface run while the link waits, and the interface's event hub.
// The screen passes real ones; tests pass fakes and build a whole station
// in-process.
struct StationServices {
    Clock &clock;
    SettingsStore &settings;
    Dialogs &dialogs;
    SplashView &splash;
    LinePort &line;
    EventPump &pump;
    clsWizual &wizual;
};

// One running station: the global objects, created in their fixed order,
// the database connection and the three row sets held open for the run.
class Station {
public:
    explicit Station(const StationServices &services);
    ~Station();
    Station(const Station &) = delete;
    Station &operator=(const Station &) = delete;

    const StationServices services;

    BitMasks bitMasks{};
    clsoApp oApp;                                                                   // 1
    clComm oComm{services.line, services.clock, services.pump, services.dialogs, Regulatory}; // 2
    Komunikator oKomunikator{oComm, services.wizual};                               // 3
    clsWizual &oWizual = services.wizual;                                           // 4
    colRegulatory Regulatory{this};                                                 // 5
    clsFunkcje oFunkcje;                                                            // 6
    clsKolejka Kolejka{Regulatory};                                                 // 7
    clsBD oBD{[this]() -> Database & { return connection(); }};                     // 8

    // The list of the alarm window: the only memory of active alarms.
    ActiveAlarmList fmAlarmyN{*this};
    // The settable keys of the front panel window.
    PanelKeys panelKeys;

    // Opened by the start routine; the connection closes last.
    std::unique_ptr<Database> db;
    std::unique_ptr<RowSet> rsPomiary;
    std::unique_ptr<RowSet> rsRegulatory;
    std::unique_ptr<RowSet> rsOstPomiar;

    // The open connection; a run-time error before the start has opened it.
    Database &connection();
    ZDate now() const;
};
