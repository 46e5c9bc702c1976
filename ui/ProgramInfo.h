#pragma once

#include <QString>

// What the station tells about itself in its start and about windows.
namespace program {

// The program's title: "Zorbel".
QString title();
// Major, minor and patch joined by ".": the application's version when one
// is set, else the version the program was built as.
QString version();
// The legal notices of the start window.
QString copyrightNotice();
QString licenceNotice();

}
