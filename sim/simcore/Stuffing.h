#pragma once

#include <QByteArray>

namespace sim {

// A controller's reply doubles every byte of value 2, so that the station
// can tell its data from a frame start.
QByteArray stuffReply(const QByteArray &data);

} // namespace sim
