#include "simcore/Registers.h"

namespace sim {

bool Registers::isDischarge(quint8 reg)
{
    return reg >= kFirstDischarge && reg <= kLastDischarge;
}

bool Registers::isKnown(quint8 reg)
{
    switch (reg) {
    case kBlocking:
    case kDataBlock:
    case kKeys:
    case kLamps1:
    case kLamps2:
    case kLamps3:
        return true;
    default:
        return isDischarge(reg);
    }
}

bool Functions::isWrite(quint8 function)
{
    return function == kWrite || function == kWriteSecond;
}

bool Functions::isRead(quint8 function)
{
    return function == kReadLamp || function == kReadStored;
}

bool Functions::hasParameter(quint8 function)
{
    return isWrite(function);
}

bool Functions::isKnown(quint8 function)
{
    return isWrite(function) || isRead(function) || function == kPrepareBlock;
}

} // namespace sim
