#pragma once

#include <QPixmap>

// The pictures of the front panel's keys and lamps, drawn at the screen's
// pixel ratio so that they stay crisp when the desktop is scaled.
namespace PanelPictures {

// The rocker key, 11 by 17: upper half barred (the key's true state) or
// lower half barred.
QPixmap rockerUp();
QPixmap rockerDown();

enum class Lamp { Dark, Red, Green };
// A round lamp, 8 by 8.
QPixmap lamp(Lamp colour);

}
