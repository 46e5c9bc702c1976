#pragma once

#include <QRect>

// Window geometry is laid out in twips: 15 to a pixel at 96 dpi.
namespace twips {

constexpr int toPixels(int twips) { return (twips + 7) / 15; }
inline QRect rect(int left, int top, int width, int height)
{
    return {toPixels(left), toPixels(top), toPixels(width), toPixels(height)};
}

}
