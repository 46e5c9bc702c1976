#pragma once

#include "base/BitMasks.h"
#include "base/clsFunkcje.h"
#include "model/clsoApp.h"
#include "db/Database.h"
#include "db/RowSet.h"
#include "db/SampleStore.h"
#include "db/clsBD.h"
#include "link/Komunikator.h"
#include "link/clComm.h"
#include "model/ActiveAlarmList.h"
#include "model/PanelKeys.h"
#include "model/ControllerContext.h"
#include "model/colRegulatory.h"
#include "station/PollingTimers.h"
#include "station/clsKolejka.h"

#include <functional>
#include <memory>

class Clock;
class RunTimeError;
class Dialogs;
class EventPump;
class LinePort;
class SettingsStore;
class SplashView;
class StatusPanels;
class clsWizual;

// What a station is given from outside: its clock, its settings store, the
// message boxes, the start window, the controller line, the pump that lets
// the interface run while the link waits, the interface's event hub and the
// panels of the status bar that the polling writes.
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
    StatusPanels &panels;
};

// One running station: the global objects, created in their fixed order,
// the database connection and the three row sets held open for the run,
// the polling timers, and the one order of start and stop. The program, the
// headless harness and the tests all start and stop a station through it:
//   StartUp() -> openLine() -> [windows] -> startPolling() -> end(code)
class Station {
public:
    explicit Station(const StationServices &services);
    ~Station();
    Station(const Station &) = delete;
    Station &operator=(const Station &) = delete;

    const StationServices services;

    BitMasks bitMasks{};
    clsoApp oApp;                                                                   // 1
    clComm oComm{services.line, services.clock, services.pump, services.dialogs};             // 2
    Komunikator oKomunikator{oComm, services.wizual};                               // 3
    clsWizual &oWizual = services.wizual;                                           // 4
    colRegulatory Regulatory{&context};                                             // 5
    clsFunkcje oFunkcje;                                                            // 6
    clsKolejka Kolejka{Regulatory};                                                 // 7
    clsBD oBD{[this]() -> Database & { return connection(); }};                     // 8

    SampleStore samples{[this]() -> Database & { return connection(); }};

    // The list of the alarm window: the only memory of active alarms.
    ActiveAlarmList fmAlarmyN{context};
    // The settable keys of the front panel window.
    PanelKeys panelKeys;

    // What every controller reaches beyond itself.
    ControllerContext context{oKomunikator, oWizual, services.clock, services.dialogs, bitMasks,
                              oBD, samples, oApp, Regulatory, fmAlarmyN, panelKeys};

    // Opened by the start routine; the connection closes last.
    std::unique_ptr<Database> db;
    std::unique_ptr<RowSet> rsPomiary;
    std::unique_ptr<RowSet> rsRegulatory;
    std::unique_ptr<RowSet> rsOstPomiar;

    // Timer1, Timer2 and Timer3; Timer1 runs from startPolling() to the stop.
    PollingTimers timers{*this, services.panels};

    // The open connection; a run-time error before the start has opened it.
    Database &connection();
    // Local wall-clock time, and the same moment in standard time (see Clock).
    ZDate now() const;
    ZDate standardNow() const;

    // The start routine: the bit mask table, the start window's text, the
    // database with its three row sets, one controller object per row of
    // type "regulator". A failure throws the run-time error; the station is
    // then not started and the caller ends the process with it.
    void StartUp();
    // The port, with the operator's help (askForPort shows the options
    // modally) until one opens; then the date sign and "Start aplikacji" in
    // the log, whose failures no longer stop the start.
    void openLine(const std::function<void()> &askForPort);
    // The last step of the start: polling begins.
    void startPolling();

    // The ordered stop: Timer1 off (a round in progress is not waited for),
    // the port closed, the three row sets closed, "Zatrzymanie aplikacji" in
    // the log, the connection closed last. Only the first call stops; a step
    // that fails does not keep the next from running.
    void stop();
    bool stopped() const { return m_stopped; }
    // Every way out of a started station: the ordered stop, then the process
    // ends with `code` through the handler (nothing else runs after it).
    void end(int code);
    // A run-time error that no operator's command catches: reported, then end(1).
    void fail(const RunTimeError &error);

    // The operator's commands on the selected controller (NrAktRegulatora).
    // Monitoring on or off, told in the log.
    void setMonitoring(bool on);
    // Queues the switch of the selected stage to the opposite of what its
    // lamp shows; without a selected stage the operator is asked to select one.
    void switchSelectedStage();
    // Asks, then deletes the controller's row; it goes on being polled until
    // the next start, as the operator is told.
    void deleteSelectedController();

    // How the process ends; by default it only records the code (tests).
    void setProcessEnd(std::function<void(int code)> endProcess) { m_endProcess = std::move(endProcess); }
    // How a failure that ends the process is told; by default not at all.
    void setFailureReport(std::function<void(const RunTimeError &)> report) { m_report = std::move(report); }
    // The code the station ended with; -1 while it has not.
    int exitCode() const { return m_exitCode; }

private:
    std::function<void(int)> m_endProcess;
    std::function<void(const RunTimeError &)> m_report;
    bool m_stopped = false;
    int m_exitCode = -1;
};
