#include "simcore/Request.h"

#include "simcore/Registers.h"

namespace sim {

QByteArray Request::bytes() const
{
    QByteArray out;
    out.append(char(Registers::kFrameStart));
    out.append(char(address));
    out.append(char(reg));
    out.append(char(function));
    if (hasValue)
        out.append(char(value));
    return out;
}

} // namespace sim
