#pragma once

class PollingTimers;
class Station;

// Closes a running station in its fixed order: no new polling round (a
// round in progress is not waited for), the port closed, the three row sets
// closed, "Zatrzymanie aplikacji" written to the log, and the connection
// closed last, since the log needs it. Ending the process is the caller's.
void stopStation(Station &station, PollingTimers &timers);
