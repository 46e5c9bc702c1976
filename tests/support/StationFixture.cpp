#include "StationFixture.h"

#include "db/Schema.h"

StationFixture::StationFixture(const QString &dbFile) : StationFixture(DatabaseConfig::fromUrl(QStringLiteral("sqlite:") + dbFile))
{
}

StationFixture::StationFixture(const DatabaseConfig &config) : m_config(config)
{
    config.toSettings(settings);
}

Database &StationFixture::createDatabase()
{
    m_db = std::make_unique<Database>(m_config);
    m_db->open(Database::OpenMode::CreateIfMissing);
    Schema::create(*m_db);
    return *m_db;
}

Database &StationFixture::openDatabase()
{
    m_db = std::make_unique<Database>(m_config);
    m_db->open();
    return *m_db;
}

QVariantMap StationFixture::controllerRow(const QString &kod, int adres, const QVariantMap &overrides)
{
    QVariantMap row = {
        {"Kod", kod}, {"Adres", adres}, {"Typ", "regulator"}, {"aktywny", "Tak"}, {"NapieciePomiar", 380},
        {"Przekladnia", 100.0}, {"PrzekladniaNap", 1}, {"CzestOdczytu", 15}, {"awarCzest", 5},
        {"ProgNapiecie", 420.0}, {"ProgPrad", 300.0}, {"ProgTgFi", 0.4}, {"ProgTgFiMin", 0.0},
    };
    for (const char *b : {"EnCzynna", "EnBiernaCalk", "EnBiernaPoj", "Napiecie", "PradCzynny", "PradBierny", "PradCalk",
                          "Czestotliwosc"}) {
        row.insert(QString::fromLatin1(b) + QLatin1String("Min"), 0.0);
        row.insert(QString::fromLatin1(b) + QLatin1String("Max"), 1000.0);
    }
    for (auto it = overrides.begin(); it != overrides.end(); ++it)
        row.insert(it.key(), it.value());
    return row;
}

void StationFixture::addController(const QString &kod, int adres, const QVariantMap &overrides)
{
    const QVariantMap row = controllerRow(kod, adres, overrides);
    SqlStatement s(QStringLiteral("INSERT INTO Regulatory (") + row.keys().join(QStringLiteral(", ")) +
                   QStringLiteral(") VALUES ("));
    bool first = true;
    for (const QVariant &v : row) {
        if (!first)
            s << ", ";
        s.value(v);
        first = false;
    }
    s << ")";
    m_db->exec(s);
}

void StationFixture::addLastSample(int adres, float popCzynny, float popBiernSr, float popBiernPojSr, int timerU,
                                   ZDate czas)
{
    SqlStatement s(QStringLiteral("INSERT INTO OstPomiar (Adres, PopPradCzynny, PopPradBiernSr, PopPradBiernPojSr, "
                                  "PopTimerU, Czas) VALUES ("));
    s.value(adres) << ", ";
    s.value(popCzynny) << ", ";
    s.value(popBiernSr) << ", ";
    s.value(popBiernPojSr) << ", ";
    s.value(timerU) << ", ";
    s.date(czas) << ")";
    m_db->exec(s);
}

void StationFixture::attachLine(LinePort &port, FakeEventPump::Arrivals arrivals)
{
    Q_ASSERT(!m_station);
    m_port = &port;
    pump.setArrivals(std::move(arrivals));
}

void StationFixture::attachWizual(clsWizual &hub)
{
    Q_ASSERT(!m_station);
    m_wizual = &hub;
}

Station &StationFixture::station()
{
    if (!m_station)
        m_station = std::make_unique<Station>(StationServices{clock, settings, dialogs, splash, *m_port, pump, *m_wizual, panels});
    return *m_station;
}
