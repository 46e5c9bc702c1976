#include "MessageBoxDialogs.h"
#include "ModalLogin.h"
#include "ScreenWizual.h"
#include "StationScreenshot.h"
#include "WavePlayer.h"
#include "fmAlarmyN.h"
#include "fmGlowny.h"
#include "fmRegulatory.h"
#include "frmSplash.h"

#include "core/Clock.h"
#include "core/PollingTimers.h"
#include "core/QuitOnSignal.h"
#include "core/RunTimeError.h"
#include "core/SettingsStore.h"
#include "core/StartUp.h"
#include "core/Station.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"
#include "model/StatusPanels.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMenu>
#include <cstdio>
#include <cstdlib>

namespace {

// A failure that ends the process: said on stderr, so that a run without a
// screen shows it too, and in a message box where there is a screen to show it on.
int endWith(const RunTimeError &e, Dialogs &dialogs)
{
    std::fprintf(stderr, "zorbel: %s\n", qPrintable(e.message()));
    const QString platform = QGuiApplication::platformName();
    if (platform != QLatin1String("offscreen") && platform != QLatin1String("minimal"))
        dialogs.MsgBox(e.message(), Dialogs::Critical, QStringLiteral("Zorbel"));
    return 1;
}

}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Zorbel"));
    QApplication::setApplicationName(QStringLiteral("Zorbel"));
    QApplication::setApplicationVersion(QStringLiteral(ZORBEL_VERSION));

    SystemClock clock;
    QtSettingsStore settings;
    MessageBoxDialogs dialogs;
    frmSplash splash;
    StationLine line(settings, clock);
    QtEventPump pump;
    StatusPanels panels;
    ScreenWizual hub(panels);
    Station station(StationServices{clock, settings, dialogs, splash, line, pump, hub});
    PollingTimers timers(station, panels);
    hub.bind(station, timers);
    ModalLogin login(station.oApp, dialogs);

    try {
        StartUp(station);
    } catch (const RunTimeError &e) {
        splash.closeSplash();
        return endWith(e, dialogs);
    }

    fmGlowny frame(station, panels, timers, login);
    dialogs.setParent(&frame);
    login.setParent(&frame);
    try {
        frame.load();
    } catch (const RunTimeError &e) {
        splash.closeSplash();
        return endWith(e, dialogs);
    }
    frame.show();

    auto *tree = new fmRegulatory(station);
    tree->setPopupHandler([&frame](const QString &menu, const QPoint &at) { frame.menu(menu)->popup(at); });
    frame.showChild(tree);
    station.fmAlarmyN.setNodePainter([tree](const QString &kod, bool alarm) { tree->paintAlarm(kod, alarm); });
    hub.attach(&frame, tree);

    auto *alarms = new fmAlarmyN(station.fmAlarmyN, dialogs);
    frame.showChild(alarms);
    frame.setAlarmWindow(alarms);
    station.fmAlarmyN.setChangeListener([alarms] { alarms->refresh(); });

    WavePlayer player;
    hub.setPlayer([&player](const QString &file) { player.play(file); });
    splash.closeSplash();

    int exitCode = 0;
    timers.setFatalHandler([&](const RunTimeError &e) {
        exitCode = endWith(e, dialogs);
        QApplication::exit(exitCode);
    });
    // the station is closed; the process ends at once. Inside a polling
    // round (the interface runs during the link's waits) the round is not
    // returned to: it would use the closed line and database.
    frame.setEndProcess([&timers] {
        if (timers.inTick())
            std::exit(0);
        QApplication::exit(0);
    });
    // a logout or a service manager closes the station as its window does, without asking
    QuitOnSignal quitOnSignal([&frame] { frame.unloadWithoutAsking(); });
    timers.start();
    scheduleScreenshot(app.arguments());
    scheduleTrigger(app.arguments(), [&frame](const QString &entry) { frame.entry(entry)->trigger(); });
    return app.exec();
}
