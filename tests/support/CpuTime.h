#pragma once

#include <cstdint>
#include <ctime>

// CPU time this process has used, in ms: how a test tells waiting from spinning.
inline std::int64_t cpuMs()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return std::int64_t(t.tv_sec) * 1000 + t.tv_nsec / 1'000'000;
}
