#pragma once

#include "FakeClock.h"
#include "FakeEventPump.h"
#include "RecordingDialogs.h"
#include "RecordingWizual.h"

#include "base/SettingsStore.h"
#include "base/SplashView.h"
#include "model/StatusPanels.h"
#include "station/Station.h"
#include "db/Database.h"

#include <QStringList>
#include <QVariantMap>
#include <memory>

// A start window that only remembers what it was told.
class RecordingSplash final : public SplashView {
public:
    void showProgress(const QString &text) override { texts << text; }
    void closeSplash() override { closed = true; }
    QStringList texts;
    bool closed = false;
};

// A station database (a file of the test's directory, or any database the
// configuration names) and a station built on it with fake services.
class StationFixture {
public:
    explicit StationFixture(const QString &dbFile);
    explicit StationFixture(const DatabaseConfig &config);

    // Creates the file (on a server: the tables) with the schema (or not, to test its absence).
    Database &createDatabase();
    // Opens the database as it is, to add rows to a database made elsewhere.
    Database &openDatabase();
    // A controller row with valid defaults; overrides by column name.
    void addController(const QString &kod, int adres, const QVariantMap &overrides = {});
    // The values addController writes, by column name.
    static QVariantMap controllerRow(const QString &kod, int adres, const QVariantMap &overrides = {});
    void addLastSample(int adres, float popCzynny, float popBiernSr, float popBiernPojSr, int timerU, ZDate czas);

    // Puts another line in place of the scripted one, with what the pump
    // needs to know of its arrivals; before station() is first called.
    void attachLine(LinePort &port, FakeEventPump::Arrivals arrivals);
    LinePort &port() { return *m_port; }
    // Puts another event hub in place of the recording one; before station() is first called.
    void attachWizual(clsWizual &hub);

    Station &station();

    MemorySettingsStore settings;
    FakeClock clock;
    RecordingDialogs dialogs;
    RecordingSplash splash;
    ScriptedLine line{clock};
    FakeEventPump pump{clock, line};
    RecordingWizual wizual;
    StatusPanels panels;

private:
    DatabaseConfig m_config;
    LinePort *m_port = &line;
    clsWizual *m_wizual = &wizual;
    std::unique_ptr<Database> m_db;
    std::unique_ptr<Station> m_station;
};
