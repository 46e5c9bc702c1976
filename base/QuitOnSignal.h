#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

// Closes the program on SIGINT, SIGTERM or SIGHUP (a logout, a service
// manager, Ctrl+C) as on a normal exit: by default the event loop ends;
// a program with its own orderly end passes it. The handler only writes a
// byte into a socket pair; the loop does the rest.
class QuitOnSignal final : public QObject {
public:
    explicit QuitOnSignal(std::function<void()> onSignal = {}, QObject *parent = nullptr);
    ~QuitOnSignal() override;

private:
    static void handle(int signal);
    static int s_writeEnd;
    int m_readEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::function<void()> m_onSignal;
};

