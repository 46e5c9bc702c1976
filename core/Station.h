#pragma once

#include "core/BitMasks.h"
#include "core/clsoApp.h"
#include "db/Database.h"
#include "db/RowSet.h"
#include "model/colRegulatory.h"

#include <memory>

class Clock;
class Dialogs;
class SettingsStore;
class SplashView;

// What a station is given from outside: its clock, its settings store, the
// message boxes and the start window. The screen passes real ones; tests
// pass fakes and build a whole station in-process.
struct StationServices {
    Clock &clock;
    SettingsStore &settings;
    Dialogs &dialogs;
    SplashView &splash;
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
    clsoApp oApp;                       // 1
    colRegulatory Regulatory{this};     // 5

    // Opened by the start routine; the connection closes last.
    std::unique_ptr<Database> db;
    std::unique_ptr<RowSet> rsPomiary;
    std::unique_ptr<RowSet> rsRegulatory;
    std::unique_ptr<RowSet> rsOstPomiar;
};
