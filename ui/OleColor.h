#pragma once

#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <cstdint>

// Colours of the station's windows are 32-bit values with red in the low
// byte; with the top bit set the low byte names a colour of the desktop.
inline QColor oleColor(std::uint32_t value)
{
    if (!(value & 0x80000000u))
        return QColor(int(value & 0xFF), int((value >> 8) & 0xFF), int((value >> 16) & 0xFF));
    const QPalette palette = QGuiApplication::palette();
    switch (value & 0xFF) {
    case 5: return palette.color(QPalette::Base);
    case 13: return palette.color(QPalette::Highlight);
    case 14: return palette.color(QPalette::HighlightedText);
    case 15: return palette.color(QPalette::Button);
    case 18: return palette.color(QPalette::ButtonText);
    default: return palette.color(QPalette::WindowText);
    }
}
