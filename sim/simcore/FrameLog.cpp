#include "simcore/FrameLog.h"

#include <QDateTime>

namespace sim {

namespace {

QString kindTag(FrameLogEntry::Kind kind)
{
    switch (kind) {
    case FrameLogEntry::Kind::Received: return QStringLiteral("RX");
    case FrameLogEntry::Kind::Answered: return QStringLiteral("TX");
    case FrameLogEntry::Kind::Silent: return QStringLiteral("SILENT");
    case FrameLogEntry::Kind::Ignored: return QStringLiteral("IGNORED");
    case FrameLogEntry::Kind::Discarded: return QStringLiteral("GARBAGE");
    }
    return {};
}

} // namespace

QString FrameLogEntry::toText() const
{
    // lineMs is local time, so it is shown as if it were UTC.
    const QString time = QDateTime::fromMSecsSinceEpoch(lineMs, Qt::UTC)
                             .toString(QStringLiteral("HH:mm:ss.zzz"));
    QString text = time + u' ' + kindTag(kind);
    if (address >= 0)
        text += QStringLiteral(" @%1").arg(address);
    if (!bytes.isEmpty())
        text += u' ' + QString::fromLatin1(bytes.toHex(' ').toUpper());
    if (!note.isEmpty())
        text += QStringLiteral(" (") + note + u')';
    return text;
}

} // namespace sim
