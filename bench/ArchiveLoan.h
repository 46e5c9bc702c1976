#pragma once

#include "FleetOnArchive.h"

#include "base/ZDate.h"
#include "db/DatabaseConfig.h"

#include <vector>

// A shared archive on a server lent to starts of N controllers, left as it
// was found: at construction its own bare controller rows get the station's
// defaults in their empty columns, the controllers it lacks among 1..N are
// added, and the bases of every one's next sample (see FleetOnArchive.h); at
// destruction, also when the bench fails, those columns are emptied again
// and the rows removed, with whatever the starts wrote after the archive's
// last moment (samples, their day roll-ups, bases, alarms, log lines).
// A killed bench leaves its changes behind.
class ArchiveLoan {
public:
    ArchiveLoan(const DatabaseConfig &config, int controllers);
    ~ArchiveLoan();
    ArchiveLoan(const ArchiveLoan &) = delete;
    ArchiveLoan &operator=(const ArchiveLoan &) = delete;

    ZDate lastSample() const { return m_last; }
    int controllersAdded() const { return int(m_controllers.size()); }
    // N, or more when the archive has more: the station starts with them all.
    int controllers() const { return m_fleet; }

private:
    void lend(int controllers);
    void giveBack();

    DatabaseConfig m_config;
    ZDate m_last;
    qint64 m_lastAlarm = 0;
    qint64 m_lastLog = 0;
    std::vector<FleetOnArchive::Completed> m_completed;
    std::vector<int> m_controllers;
    bool m_bases = false;
    int m_fleet = 0;
};
