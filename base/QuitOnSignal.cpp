#include "base/QuitOnSignal.h"

#include <QCoreApplication>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

int QuitOnSignal::s_writeEnd = -1;

QuitOnSignal::QuitOnSignal(std::function<void()> onSignal, QObject *parent)
    : QObject(parent), m_onSignal(std::move(onSignal))
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0)
        return;
    s_writeEnd = ends[0];
    m_readEnd = ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_readEnd, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        char byte;
        if (::read(m_readEnd, &byte, 1) <= 0)
            return;
        if (m_onSignal)
            m_onSignal();
        else
            QCoreApplication::quit();
    });
    for (int s : {SIGINT, SIGTERM, SIGHUP})
        std::signal(s, &QuitOnSignal::handle);
}

QuitOnSignal::~QuitOnSignal()
{
    m_notifier.reset();
    for (int s : {SIGINT, SIGTERM, SIGHUP})
        std::signal(s, SIG_DFL);
    if (m_readEnd >= 0) {
        ::close(m_readEnd);
        ::close(s_writeEnd);
        s_writeEnd = -1;
    }
}

void QuitOnSignal::handle(int)
{
    const char byte = 1;
    if (s_writeEnd >= 0)
        [[maybe_unused]] auto n = ::write(s_writeEnd, &byte, 1);
}

