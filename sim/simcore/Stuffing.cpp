#include "simcore/Stuffing.h"

#include "simcore/Registers.h"

namespace sim {

QByteArray stuffReply(const QByteArray &data)
{
    QByteArray out;
    out.reserve(data.size() * 2);
    for (char c : data) {
        out.append(c);
        if (quint8(c) == Registers::kFrameStart)
            out.append(c);
    }
    return out;
}

} // namespace sim
