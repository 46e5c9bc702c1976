#pragma once

class Station;

// Keeps the status bar's notice of the running month's reactive energy:
// checked at the station's first tick and then once an hour.
namespace MonthToDateWatch {

void attach(Station &station);

}
