#include "link/Frames.h"

#include "base/Conversions.h"

namespace frames {

QByteArray frame(std::uint8_t adres, std::uint8_t reg, std::uint8_t function)
{
    QByteArray f;
    for (std::uint8_t b : {Start, adres, reg, function})
        f.append(char(b));
    return f;
}

QByteArray frame(std::uint8_t adres, std::uint8_t reg, std::uint8_t function, std::uint8_t parameter)
{
    return frame(adres, reg, function).append(char(parameter));
}

std::uint8_t stageTimer(std::uint8_t n)
{
    return conv::addByte(StageTimer0, n);
}

}
