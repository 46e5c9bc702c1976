#pragma once

#include <sys/resource.h>

// Process CPU time, user and system, in ms.
inline double cpuMs()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    const auto ms = [](const timeval &t) { return double(t.tv_sec) * 1000.0 + double(t.tv_usec) / 1000.0; };
    return ms(u.ru_utime) + ms(u.ru_stime);
}
