#pragma once

#include <QString>
#include <functional>

// Every statement a connection runs, as its text, told to one listener
// before it runs: how a test or a bench sees what a step of the station
// asks of the database (the start must not read the archive). Without a
// listener nothing is told.
namespace StatementObserver {

using Listener = std::function<void(const QString &sql)>;

// Sets the listener (an empty one removes it); returns the one it replaces.
Listener set(Listener listener);
void notify(const QString &sql);

// A listener for the lifetime of a scope; the one before comes back after it.
class Scope {
public:
    explicit Scope(Listener listener) : m_previous(set(std::move(listener))) {}
    ~Scope() { set(std::move(m_previous)); }
    Scope(const Scope &) = delete;
    Scope &operator=(const Scope &) = delete;

private:
    Listener m_previous;
};

}
