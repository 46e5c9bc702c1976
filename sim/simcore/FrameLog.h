#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

namespace sim {

// One line of the bus's record: what came in, what went out, and what was
// thrown away or held back.
struct FrameLogEntry {
    enum class Kind {
        Received,   // a whole request, addressed to one of ours or not
        Answered,   // reply bytes as they go on the line (after faults)
        Silent,     // a request for us left unanswered by a fault
        Ignored,    // a request for us that the controller does not answer
        Discarded,  // bytes that formed no frame
    };

    qint64 lineMs = 0;
    Kind kind = Kind::Received;
    int address = -1;
    QByteArray bytes;
    QString note;

    // "12:00:01.234 RX 02 05 90 04", with the note after the bytes.
    QString toText() const;
};

} // namespace sim
