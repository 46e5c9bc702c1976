#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

namespace sim {

// The program's end of the line the station is attached to.
class SimLine : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    virtual void write(const QByteArray &bytes) = 0;
    // What the station must open: a device path or host:port.
    virtual QString where() const = 0;

signals:
    void received(const QByteArray &bytes);
};

} // namespace sim
