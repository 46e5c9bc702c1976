#pragma once

#include "simcore/Request.h"

#include <QByteArray>
#include <QtGlobal>
#include <vector>

namespace sim {

// Cuts the byte stream of the line into requests. Frames carry no length
// and no checksum, so a frame is accepted only when its register and
// function are ones the controller knows; otherwise the reader drops the
// start byte and looks for the next 2. A pause on the line longer than
// kGapMs also ends an unfinished frame, since the station sends a frame
// in one burst. Nothing it is fed can make it fail.
class FrameReader {
public:
    static constexpr qint64 kGapMs = 30;

    struct Output {
        std::vector<Request> requests;
        QByteArray discarded;  // bytes that belonged to no frame
    };

    // lineMs is the real time of the line when the bytes came in.
    Output feed(const QByteArray &bytes, qint64 lineMs);
    bool isIdle() const { return m_pending.isEmpty(); }

private:
    void takeFrames(Output &out);
    // Length of a valid frame at the front, 0 when more bytes are needed,
    // -1 when the front cannot start a frame.
    int frameLengthAtFront() const;

    QByteArray m_pending;
    qint64 m_lastByteMs = 0;
};

} // namespace sim
