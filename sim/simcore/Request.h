#pragma once

#include <QByteArray>
#include <QtGlobal>

namespace sim {

// One frame from the station as a controller sees it: start, address,
// register, function and, for writes, the value.
struct Request {
    quint8 address = 0;
    quint8 reg = 0;
    quint8 function = 0;
    quint8 value = 0;
    bool hasValue = false;

    QByteArray bytes() const;
};

} // namespace sim
