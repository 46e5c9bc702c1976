#pragma once

#include <QIcon>
#include <QString>

// The station's small pictures, drawn rather than shipped: the alarm
// flash ("blysk", "blysk1"), the lost link and the exceeded limit.
namespace StationImages {

QIcon alarmFlash();
QIcon lostLink();
QIcon limitExceeded();

}
