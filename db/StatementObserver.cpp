#include "db/StatementObserver.h"

#include <utility>

namespace {
// The station runs on one thread; the listener is set around a step of it.
StatementObserver::Listener &listener()
{
    static StatementObserver::Listener current;
    return current;
}
}

StatementObserver::Listener StatementObserver::set(Listener l)
{
    return std::exchange(listener(), std::move(l));
}

void StatementObserver::notify(const QString &sql)
{
    if (listener())
        listener()(sql);
}
