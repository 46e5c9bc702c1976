#include "ControllerSources.h"

#include "base/RunTimeError.h"
#include "db/ControllerStore.h"
#include "db/Database.h"
#include "db/SampleStore.h"

#include <QFile>
#include <QSqlQuery>
#include <QStringList>
#include <map>
#include <stdexcept>

namespace sim::ControllerSources {

namespace {

[[noreturn]] void refuse(const QString &message)
{
    throw std::runtime_error(message.toStdString());
}

std::map<int, CounterSeed> readSeeds(Database &db)
{
    std::map<int, CounterSeed> seeds;
    if (!db.tableExists(QStringLiteral("OstPomiar")))
        return seeds;
    for (const StoredSample &b : SampleStore([&db]() -> Database & { return db; }).bases())
        seeds[b.adres] = {b.PopPradCzynny, b.PopPradBiernSr, b.PopPradBiernPojSr};
    return seeds;
}

std::vector<ControllerConfig> readControllers(Database &db)
{
    const auto seeds = readSeeds(db);
    ControllerStore store([&db]() -> Database & { return db; });
    std::vector<ControllerConfig> configs;
    for (const QVariantMap &row : store.list({QStringLiteral("Adres"), QStringLiteral("Przekladnia"),
                                              QStringLiteral("PrzekladniaNap"), QStringLiteral("NapieciePomiar")})) {
        ControllerConfig c;
        c.address = row.value(QStringLiteral("Adres")).toInt();
        c.currentRatio = row.value(QStringLiteral("Przekladnia")).toDouble();
        c.voltageRatio = row.value(QStringLiteral("PrzekladniaNap")).toInt();
        c.measuringVoltage = row.value(QStringLiteral("NapieciePomiar")).toInt();
        if (const auto it = seeds.find(c.address); it != seeds.end())
            c.seed = it->second;
        configs.push_back(c);
    }
    return configs;
}

ControllerConfig parseLine(const QStringList &fields, int lineNumber)
{
    ControllerConfig c;
    bool ok = true;
    auto number = [&](int i, double fallback) {
        bool fieldOk = true;
        const double v = i < fields.size() ? fields[i].toDouble(&fieldOk) : fallback;
        ok = ok && fieldOk;
        return v;
    };
    c.address = int(number(0, 0));
    c.currentRatio = number(1, c.currentRatio);
    c.voltageRatio = int(number(2, c.voltageRatio));
    c.measuringVoltage = int(number(3, c.measuringVoltage));
    if (!ok || fields.size() > 4 || c.address < kLowestAddress || c.address > kHighestAddress)
        refuse(QStringLiteral("wiersz %1: oczekiwano: adres [Przekladnia [PrzekladniaNap [NapieciePomiar]]]")
                   .arg(lineNumber));
    return c;
}

} // namespace

std::vector<ControllerConfig> fromDatabase(const QString &url)
{
    try {
        Database db(DatabaseConfig::fromUrl(url));
        db.open();
        return readControllers(db);
    } catch (const RunTimeError &e) {
        refuse(QStringLiteral("baza danych %1: %2").arg(url, e.message()));
    }
}

std::vector<ControllerConfig> fromConfigText(const QString &text)
{
    std::vector<ControllerConfig> configs;
    const QStringList lines = text.split(u'\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = lines[i].section(u'#', 0, 0).simplified();
        if (!line.isEmpty())
            configs.push_back(parseLine(line.split(u' '), i + 1));
    }
    return configs;
}

std::vector<ControllerConfig> fromConfigFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        refuse(QStringLiteral("nie można odczytać %1: %2").arg(path, file.errorString()));
    try {
        return fromConfigText(QString::fromUtf8(file.readAll()));
    } catch (const std::runtime_error &e) {
        refuse(path + QStringLiteral(", ") + QString::fromStdString(e.what()));
    }
}

std::vector<ControllerConfig> fromAddresses(const QList<int> &addresses)
{
    std::vector<ControllerConfig> configs;
    for (int a : addresses) {
        ControllerConfig c;
        c.address = a;
        configs.push_back(c);
    }
    return configs;
}

std::vector<ControllerConfig> restrictTo(std::vector<ControllerConfig> configs,
                                         const QList<int> &addresses)
{
    std::erase_if(configs, [&](const ControllerConfig &c) { return !addresses.contains(c.address); });
    return configs;
}

} // namespace sim::ControllerSources
