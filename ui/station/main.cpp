#include "MessageBoxDialogs.h"
#include "ModalLogin.h"
#include "ScreenWizual.h"
#include "StationScreenshot.h"
#include "WavePlayer.h"
#include "fmAlarmyN.h"
#include "fmGlowny.h"
#include "fmRegulatory.h"
#include "frmSplash.h"

#include "base/Clock.h"
#include "base/CommandLine.h"
#include "base/QuitOnSignal.h"
#include "base/RunTimeError.h"
#include "base/SettingsStore.h"
#include "station/Station.h"
#include "station/UserDirectory.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"
#include "model/StatusPanels.h"

#include <QApplication>
#include <QDir>
#include <QGuiApplication>
#include <QMenu>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

// A failure that ends the process: said on stderr, so that a run without a
// screen shows it too, and in a message box where there is a screen to show it on.
void report(const RunTimeError &e, Dialogs &dialogs)
{
    std::fprintf(stderr, "zorbel: %s\n", qPrintable(e.message()));
    const QString platform = QGuiApplication::platformName();
    if (platform != QLatin1String("offscreen") && platform != QLatin1String("minimal"))
        dialogs.MsgBox(e.message(), Dialogs::Critical, QStringLiteral("Zorbel"));
}

// The station's command line: the options for looking at a run without a screen.
struct StationCommandLine {
    StationCommandLine()
    {
        for (const QCommandLineOption &o : {userDir, screenshot, screenshotAfter, trigger})
            line.addOption(o);
    }
    // Reads the arguments and checks the wait of the screenshot.
    CommandLine::Outcome parse(const QStringList &arguments)
    {
        if (line.parse(arguments) == CommandLine::Outcome::Run && line.isSet(screenshotAfter)) {
            bool ok = false;
            screenshotAfterMs = line.value(screenshotAfter).toInt(&ok);
            if (!ok || screenshotAfterMs < 0)
                line.refuseValue(screenshotAfter, QStringLiteral("liczba milisekund, 0 lub więcej"));
        }
        return line.outcome();
    }

    CommandLine line{QStringLiteral("zorbel"),
                     QStringLiteral("Zorbel, system nadzoru energii biernej: stacja, która odpytuje regulatory\n"
                                    "kompensacji na linii RS-485. Bazę danych zorbel.db bierze z bieżącego\n"
                                    "katalogu, a numer portu szeregowego z ustawień.")};
    QCommandLineOption userDir{QStringLiteral("user-dir"),
                               QStringLiteral("pracuje w katalogu użytkownika ~/.local/share/Zorbel\n"
                                              "(tworzy go; gdy nie ma tam bazy, proponuje utworzenie\n"
                                              "nowej); tak stację uruchamia menu")};
    QCommandLineOption screenshot{QStringLiteral("screenshot"),
                                  QStringLiteral("po kilku sekundach zapisuje okna stacji\n"
                                                 "do PLIKU PNG i kończy"),
                                  QStringLiteral("PLIK")};
    QCommandLineOption screenshotAfter{QStringLiteral("screenshot-after"),
                                       QStringLiteral("czas do zapisu okien w milisekundach (domyślnie 4000)"),
                                       QStringLiteral("MS")};
    QCommandLineOption trigger{QStringLiteral("trigger"),
                               QStringLiteral("sekundę po starcie wybiera pozycję menu o tej nazwie,\n"
                                              "np. mnuNarzOpcje; kilka po przecinku jedna po drugiej"),
                               QStringLiteral("POZYCJA")};
    int screenshotAfterMs = 4000;
};

QStringList argumentsOf(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

// The controller tree and the alarm window, after the main window.
void showStationWindows(Station &station, fmGlowny &frame, ScreenWizual &hub)
{
    auto *tree = new fmRegulatory(station);
    tree->setPopupHandler([&frame](const QString &menu, const QPoint &at) { frame.menu(menu)->popup(at); });
    frame.showChild(tree);
    station.fmAlarmyN.setNodePainter([tree](const QString &kod, bool alarm) { tree->paintAlarm(kod, alarm); });
    hub.attach(&frame, tree);

    auto *alarms = new fmAlarmyN(station.fmAlarmyN, station.services.dialogs);
    frame.showChild(alarms);
    frame.setAlarmWindow(alarms);
    station.fmAlarmyN.setChangeListener([alarms] { alarms->refresh(); });
}

// Whether the screen Qt would open is missing. Qt itself would abort there
// with advice to reinstall, which misleads on a machine without a display.
bool screenMissing(const QStringList &arguments)
{
    const qsizetype at = arguments.indexOf(QStringLiteral("-platform"));
    const QString platform = (at > 0 && at + 1 < arguments.size() ? arguments[at + 1]
                                                                     : qEnvironmentVariable("QT_QPA_PLATFORM"))
                                 .section(u':', 0, 0);
    const bool noX = qEnvironmentVariableIsEmpty("DISPLAY");
    const bool noWayland = qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (platform.isEmpty())
        return noX && noWayland;
    return (platform == QLatin1String("xcb") && noX) || (platform.startsWith(QLatin1String("wayland")) && noWayland);
}

// A start from the menu: into the user's own directory, with a database
// there. False when the operator would rather have none: the station ends,
// as asked, so with status 0.
bool enterUserDirectory(const SettingsStore &settings, Dialogs &dialogs)
{
    const UserDirectory dir = UserDirectory::standard();
    if (dir.enter(DatabaseConfig::fromSettings(settings), dialogs, QCoreApplication::applicationDirPath()))
        return true;
    std::fprintf(stderr, "zorbel: brak bazy danych w %s; stacja nie zostaje uruchomiona\n", qPrintable(dir.path()));
    return false;
}

// The sounds a package installs, for a working directory without its own.
QString installedSounds()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(ZORBEL_SOUNDS_FROM_BIN));
}

}

int main(int argc, char *argv[])
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    {
        // help and version need no screen: told before the application is
        // made; Qt's own options (-platform and the like) do not count yet
        StationCommandLine early;
        const CommandLine::Outcome asked = early.parse(argumentsOf(argc, argv));
        if (asked == CommandLine::Outcome::Help || asked == CommandLine::Outcome::Version)
            return *early.line.answer(out, err);
    }
    if (screenMissing(argumentsOf(argc, argv))) {
        err << "zorbel: brak ekranu (DISPLAY), a stacja potrzebuje ekranu; zorbel-admin i zorbel-sim działają bez niego\n";
        return 1;
    }
    QApplication app(argc, argv);
    // the application has taken Qt's own options away: the rest must be ours
    StationCommandLine command;
    command.parse(QApplication::arguments());
    if (const std::optional<int> refused = command.line.answer(out, err))
        return *refused;
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
    Station station(StationServices{clock, settings, dialogs, splash, line, pump, hub, panels});
    hub.bind(station);
    ModalLogin login(station.oApp, dialogs);
    station.setFailureReport([&dialogs](const RunTimeError &e) { report(e, dialogs); });
    // Ends the process at once. Inside a polling round (the interface runs
    // during the link's waits) the round is not returned to: it would use the
    // closed line and database.
    station.setProcessEnd([&station](int code) {
        if (station.timers.inTick())
            std::exit(code);
        QApplication::exit(code);
    });

    try {
        if (command.line.isSet(command.userDir) && !enterUserDirectory(settings, dialogs))
            return 0;
        station.StartUp();
        fmGlowny frame(station, login);
        dialogs.setParent(&frame);
        login.setParent(&frame);
        frame.load();
        frame.show();
        showStationWindows(station, frame, hub);

        WavePlayer player(installedSounds());
        hub.setPlayer([&player](const QString &file) { player.play(file); });
        splash.closeSplash();

        // a logout or a service manager closes the station as its window does, without asking
        QuitOnSignal quitOnSignal([&frame] { frame.unloadWithoutAsking(); });
        station.startPolling();
        scheduleScreenshot(command.line.value(command.screenshot), command.screenshotAfterMs,
                           [&frame] { frame.unloadWithoutAsking(); });
        scheduleTrigger(command.line.value(command.trigger),
                        [&frame](const QString &entry) { frame.entry(entry)->trigger(); });
        const int code = app.exec();
        station.stop();
        return code;
    } catch (const RunTimeError &e) {
        splash.closeSplash();
        report(e, dialogs);
        station.stop();
        return 1;
    } catch (const std::exception &e) {
        // anything else is told and stops the station in order as well: never a crash
        splash.closeSplash();
        report(RunTimeError(51, QString::fromLocal8Bit(e.what())), dialogs);
        station.stop();
        return 1;
    }
}
