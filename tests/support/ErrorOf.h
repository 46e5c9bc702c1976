#pragma once

#include "base/RunTimeError.h"

#include <functional>

// The number of the run-time error a call raises, 0 when it raises none.
inline int errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const RunTimeError &e) {
        return e.number();
    }
    return 0;
}
