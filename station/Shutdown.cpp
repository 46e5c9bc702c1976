// The end of a station, in its fixed order.
#include "station/Station.h"

#include "base/RunTimeError.h"
#include "link/LinePort.h"

namespace {

// A step of the stop that fails is told and passed: the steps after it
// (above all closing the connection) must still run.
void step(const char *what, const std::function<void()> &action)
{
    try {
        action();
    } catch (const RunTimeError &e) {
        qWarning("zorbel: %s: %s", what, qPrintable(e.message()));
    }
}

}

void Station::stop()
{
    if (m_stopped)
        return;
    m_stopped = true;
    timers.stop();
    services.line.close();
    for (auto *rows : {&rsPomiary, &rsRegulatory, &rsOstPomiar})
        if (*rows)
            (*rows)->close();
    if (db && db->isOpen())
        step("log", [this] {
            oBD.ZapiszDoLoga(QStringLiteral("Zatrzymanie aplikacji"), LogStatus::Done, LogType::Application,
                              QString());
        });
    if (db)
        db->close();
}
