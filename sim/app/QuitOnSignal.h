#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <memory>

namespace sim {

// Ends the event loop on SIGINT, SIGTERM or SIGHUP, so that destructors run
// and the pty symlink goes away. The handler only writes a byte into a
// socket pair; the loop does the rest.
class QuitOnSignal final : public QObject {
    Q_OBJECT
public:
    explicit QuitOnSignal(QObject *parent = nullptr);
    ~QuitOnSignal() override;

private:
    static void handle(int signal);
    static int s_writeEnd;
    int m_readEnd = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace sim
