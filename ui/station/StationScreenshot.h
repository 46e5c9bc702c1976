#pragma once

#include <QStringList>
#include <functional>

// --screenshot FILE: once the station has settled, saves its windows, laid
// out as on the screen, as PNG and then closes the station through `close`
// (for documentation and for looking at a run without a screen).
// --screenshot-after MS changes the wait (4 s).
void scheduleScreenshot(const QStringList &args, const std::function<void()> &close);

// --trigger ENTRY: a second after the start, runs the named menu entry, so
// that a screenshot can show the window it opens.
void scheduleTrigger(const QStringList &args, const std::function<void(const QString &entry)> &trigger);
