#pragma once

#include <QByteArray>
#include <QString>

class QIODevice;

// A line on a device that Qt gives as an I/O device, opened by its name.
// The kinds (serial, TCP) differ only in opening and in discarding input.
class IoDeviceLine {
public:
    virtual ~IoDeviceLine() = default;

    // False, with errorString() set to the system's description, on failure.
    virtual bool openDevice(const QString &name) = 0;
    virtual void close() = 0;
    virtual void discardInput() = 0;
    // The device went away under the open line (unplugged, hung up, dropped
    // by the far end); so until the line is closed or opened again.
    virtual bool lost() const = 0;

    bool isOpen() const;
    QString errorString() const { return m_error; }
    int bytesWaiting() const;
    int readByte();
    virtual void send(const QByteArray &bytes);

    // What the line buffers of received input.
    static constexpr int InBufferSize = 1024;

protected:
    explicit IoDeviceLine(QIODevice &device) : m_device(device) {}
    // Keeps the device's description of its last failure; always false.
    bool fail();
    // Drops what the device has already taken in.
    void dropBuffered();

private:
    QIODevice &m_device;
    QString m_error;
};
