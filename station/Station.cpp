#include "station/Station.h"

#include "base/Clock.h"
#include "base/RunTimeError.h"
#include "link/LinePort.h"
#include "station/PortOpening.h"

Station::Station(const StationServices &s) : services(s)
{
    timers.setFatalHandler([this](const RunTimeError &e) { fail(e); });
}

Station::~Station()
{
    // Row sets go before the connection they live on.
    rsOstPomiar.reset();
    rsRegulatory.reset();
    rsPomiary.reset();
    db.reset();
}

Database &Station::connection()
{
    if (!db)
        throw RunTimeError::database(QStringLiteral("Baza danych nie jest otwarta"));
    return *db;
}

ZDate Station::now() const
{
    return services.clock.now();
}

ZDate Station::standardNow() const
{
    return services.clock.standardNow();
}

void Station::openLine(const std::function<void()> &askForPort)
{
    openPortWithOperatorHelp(*this, askForPort);
    // the port is open: nothing after it may stop the station from coming up
    try {
        oApp.Znakdaty = QStringLiteral("#");
        oFunkcje.setZnakdaty(oApp.Znakdaty);
        oBD.ZapiszDoLoga(QStringLiteral("Start aplikacji"), LogStatus::Done, LogType::Application, QString());
    } catch (const RunTimeError &e) {
        qWarning("zorbel: %s", qPrintable(e.message()));
    }
}

void Station::startPolling()
{
    timers.start();
}

void Station::end(int code)
{
    stop();
    m_exitCode = code;
    if (m_endProcess)
        m_endProcess(code);
}

void Station::fail(const RunTimeError &error)
{
    if (m_report)
        m_report(error);
    end(1);
}
