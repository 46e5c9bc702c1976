#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <memory>

// Ends the event loop on SIGINT, SIGTERM or SIGHUP (a logout, a service
// manager, Ctrl+C), so that the program closes as on a normal exit. The
// handler only writes a byte into a socket pair; the loop does the rest.
class QuitOnSignal final : public QObject {
public:
    explicit QuitOnSignal(QObject *parent = nullptr);
    ~QuitOnSignal() override;

private:
    static void handle(int signal);
    static int s_writeEnd;
    int m_readEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

