#pragma once

#include "ImageList.h"

#include <QIcon>
#include <QString>

// The station's small pictures, drawn rather than shipped. The lists are
// made anew by every call and returned by value: no picture outlives the
// application object.
namespace StationImages {

// The alarm flash, the lost link and the exceeded limit of the alarm window.
QIcon alarmFlash();
QIcon lostLink();
QIcon limitExceeded();

// ImageList1 of the main window: 21 pictures of 16x16. Fixed places: 1 the
// link ("Komun"), 3 the daily report ("RapDob"), 4 the chart ("Wykresy"),
// 11 the settings wizard, 13 the alarm bell ("Alarm"), 17 the controller's
// front panel ("Panel"), 20 the dark lamp and 21 the lit lamp of the status
// bar. Keys named by the system: "blysk" (the alarm flash, as alarmFlash()),
// "blysk1", "uwaga", "panel", "lornetka" ("Monit") and "Dane".
ImageList mainImages();
namespace MainImage {
enum : int { Link = 1, DailyReport = 3, Chart = 4, Wizard = 11, AlarmBell = 13, FrontPanel = 17, DarkLamp = 20, LitLamp = 21 };
}
// ImageList2 of the main window: "Wykrzyknik", "ZablokRegul", "Regul".
ImageList modeImages();
// The controller tree's list: 1 the plant, 2 a controller, 3 the group of
// controllers, 4 a blocked controller, 5 a stage switched on, 6 a stage off.
ImageList controllerTreeImages();
namespace TreeImage {
enum : int { Plant = 1, Controller, ControllerGroup, BlockedController, StageOn, StageOff };
}
// The structure tree's list: 1 the plant, 2 a structure element, 3 a
// controller element.
ImageList structureTreeImages();

}
