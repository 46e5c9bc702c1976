#pragma once

#include <QStringList>
#include <functional>

// --screenshot FILE: after `afterMs`, once the station has settled, saves
// its windows, laid out as on the screen, as PNG, then closes the station
// through `close` (for documentation and for looking at a run without a screen).
void scheduleScreenshot(const QString &file, int afterMs, const std::function<void()> &close);

// --trigger ENTRY: a second after the start, runs the named menu entry, so
// that a screenshot can show the window it opens.
void scheduleTrigger(const QString &entry, const std::function<void(const QString &entry)> &trigger);
