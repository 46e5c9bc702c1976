#include "station/PortOpening.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "base/SplashView.h"
#include "station/Station.h"
#include "link/LinePort.h"

namespace {

void tellPortFailure(Dialogs &dialogs, const QString &description)
{
    dialogs.MsgBox(RunTimeError::portNotOpened(description).description() + QStringLiteral("\rProszę zmienić nr portu."),
                   Dialogs::Critical | Dialogs::OkOnly);
}

}

void openPortWithOperatorHelp(Station &station, const std::function<void()> &askForPort)
{
    const StationServices &s = station.services;
    for (bool firstRound = true;; firstRound = false) {
        QString failure;
        try {
            station.oApp.WczytajOpcje(s.settings);
            if (s.line.open(station.oApp.nr_portu))
                return;
            failure = s.line.errorString();
        } catch (const RunTimeError &e) {
            // the trap is set only once the first round has reached the open
            if (firstRound)
                throw;
            failure = e.description();
        }
        // the start window stays on top of everything: it would hide the
        // message and the options, the one way out of this loop
        s.splash.closeSplash();
        tellPortFailure(s.dialogs, failure);
        askForPort();
    }
}
