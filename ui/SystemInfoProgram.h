#pragma once

#include <QString>

// The path of the system's information program as the system registry
// gives it, or empty when there is none. Only Windows has one.
QString systemInfoProgram();
