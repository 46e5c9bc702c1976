#pragma once

#include "StationFixture.h"

#include "station/PollingTimers.h"
#include "model/StatusPanels.h"

#include <QVariantMap>

// A whole station without a screen, for tests and benches: the database
// file and its controllers as in StationFixture, a line (the scripted one,
// or another attached before start()), the fake clock, and the polling
// timers driven tick by tick. Between ticks the clock moves by the timer's
// period; during a tick it moves by whatever the link waits.
class HeadlessStation : public StationFixture {
public:
    static constexpr std::int64_t TickPeriodMs = 100;

    explicit HeadlessStation(const QString &dbFile) : StationFixture(dbFile) {}
    explicit HeadlessStation(const DatabaseConfig &config) : StationFixture(config) {}

    // The start as the program makes it: options, controllers, the port.
    void start();
    // n ticks of Timer1, each followed by one period of the timer.
    void runTicks(int n);
    // Ticks until the clock has reached `until`.
    void runUntil(ZDate until);

    // Rows of a query on the station's own connection, by column name.
    QList<QVariantMap> rows(const QString &sql);
    int count(const QString &table, const QString &where = {});

    PollingTimers &timers() { return station().timers; }
};
