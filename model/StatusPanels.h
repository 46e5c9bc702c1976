#pragma once

#include <QString>

// What the polling shows in the main window's status bar: the clock of
// panel 6 and the blinking alarm sign of panel 3.
struct StatusPanels {
    QString clockText;          // panel 6, "hh:mm:ss"
    bool alarmPicture = false;  // panel 3 shows the "blysk" picture
};
