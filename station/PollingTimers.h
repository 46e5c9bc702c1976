#pragma once

#include "base/ZDate.h"

#include <QObject>
#include <QTimer>
#include <functional>

class RunTimeError;
class Station;
class StatusPanels;

// The station's only periodic activity, on the one thread: Timer1 reads the
// controllers that are due, carries out one queued operator request and
// reads the monitored controllers; Timer2 blinks the alarm sign and Timer3
// repeats the alarm sound while alarms are active.
class PollingTimers : public QObject {
public:
    PollingTimers(Station &station, StatusPanels &panels);

    // Polling begins; stop() ends all three.
    void start() { Timer1.start(); }
    void stop();
    // Follows the unconfirmed alarms: the blink and the sound run while there are any.
    void setAlarmTimers(bool on);

    // One tick of each timer; the timers call them, tests may too.
    void Timer1Tick();
    void Timer2Tick();
    void Timer3Tick();

    // A polling round is under way (the interface may run inside its waits).
    bool inTick() const { return m_inTick; }

    // Called at the end of the first tick and of the first tick of each
    // new hour of the clock, with the tick's moment; it must not throw.
    void setHourly(std::function<void(ZDate)> hourly) { m_hourly = std::move(hourly); }

    // A run-time error that escapes a tick ends the process through this.
    void setFatalHandler(std::function<void(const RunTimeError &)> handler) { m_fatal = std::move(handler); }

    QTimer Timer1;
    QTimer Timer2;
    QTimer Timer3;
    ZDate CzasTicka; // the moment of the current tick, the same for all of it

private:
    void guarded(void (PollingTimers::*tick)());

    Station &m_station;
    StatusPanels &m_panels;
    std::function<void(const RunTimeError &)> m_fatal;
    std::function<void(ZDate)> m_hourly;
    qint64 m_hour = -1; // of the last hourly call, counted from the zero date
    bool m_inTick = false;
};
