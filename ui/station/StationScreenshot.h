#pragma once

#include <QStringList>

// --screenshot FILE: once the station has settled, saves its windows, laid
// out as on the screen, as PNG and quits (for documentation and for looking
// at a run without a screen). --screenshot-after MS changes the wait (4 s).
void scheduleScreenshot(const QStringList &args);
