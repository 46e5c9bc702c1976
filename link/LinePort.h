#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

// The station's side of the controller line: the six things the link needs
// of a port. Bytes move as raw 8-bit values; nothing here waits or
// processes events.
class LinePort {
public:
    virtual ~LinePort() = default;

    // Opens port `number`; false, with errorString() set to the system's own
    // description, when its device does not exist or is taken.
    virtual bool open(std::uint8_t number) = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    virtual QString errorString() const = 0;

    // Bytes received and not yet read.
    virtual int bytesWaiting() const = 0;
    // The next received byte, 0 to 255; -1 when none waits.
    virtual int readByte() = 0;
    virtual void send(const QByteArray &bytes) = 0;
    // Throws away everything received so far.
    virtual void discardInput() = 0;
};
