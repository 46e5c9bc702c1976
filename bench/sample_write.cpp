// The durable write of one sample (Pomiary with its day's roll-up and
// OstPomiar, one transaction): its median and 99th percentile.
//
//   sample_write [samples]                (500 when not given)
//   sample_write --db ADDRESS [samples]
//
// Without --db the samples go through clRegulator::ZapiszDaneDB of a
// station on a new SQLite file. With --db (sqlite:FILE or a postgresql://
// address) they go into that archive, a large one as it stands, for an
// address it does not hold (250), dated 2040; they are deleted again after.

#include "StationFixture.h"

#include "db/SampleStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <functional>
#include <vector>

namespace {

constexpr std::int16_t BenchAddress = 250;

// The times of `samples` writes, each of one sample 15 minutes after the last.
std::vector<double> timeWrites(int samples, const std::function<void(ZDate)> &write)
{
    std::vector<double> ms;
    ms.reserve(std::size_t(samples));
    ZDate when = ZDate::fromParts(2040, 1, 15, 8, 0, 0);
    for (int i = 0; i < samples; ++i) {
        when = when.addMinutes(15);
        QElapsedTimer t;
        t.start();
        write(when);
        ms.push_back(double(t.nsecsElapsed()) / 1e6);
    }
    return ms;
}

int countOf(Database &db, const QString &table, std::int16_t adres)
{
    SqlStatement q(QStringLiteral("SELECT COUNT(*) FROM ") + table + QStringLiteral(" WHERE Adres = "));
    q.value(adres);
    QSqlQuery r = db.exec(q);
    return r.next() ? r.value(0).toInt() : -1;
}

// Through the station: the controller computes its sample and stores it.
std::vector<double> throughStation(int samples)
{
    QTemporaryDir dir;
    QDir::setCurrent(dir.path());
    StationFixture f(dir.filePath(QStringLiteral("zorbel.db")));
    f.createDatabase();
    f.addController(QStringLiteral("R1"), 1);
    Station &s = f.station();
    s.oApp.WczytajOpcje(f.settings);
    s.StartUp();
    clRegulator &r = s.Regulatory.Item(1);
    const std::vector<double> ms = timeWrites(samples, [&](ZDate when) {
        r.OstatniOdczyt = when;
        r.PradCzynny += 12.5f;
        r.PradBiernSr += 3.25f;
        r.PradBiernPojSr -= 0.5f;
        r.ZapiszDaneDB();
    });
    if (countOf(s.connection(), QStringLiteral("Pomiary"), 1) != samples)
        throw RunTimeError::database(QStringLiteral("not every sample was stored"));
    if (!f.dialogs.calls.empty())
        throw RunTimeError::database(QStringLiteral("a write failed: ") + f.dialogs.calls.first().prompt);
    return ms;
}

void removeBenchSamples(Database &db)
{
    db.inTransaction([&] {
        for (const char *table : {"Pomiary", "PomiaryDzien", "OstPomiar"}) {
            SqlStatement q(QStringLiteral("DELETE FROM %1 WHERE Adres = ").arg(QLatin1String(table)));
            q.value(BenchAddress);
            db.exec(q);
        }
    });
}

// Straight into an existing archive, as the station's store writes.
std::vector<double> intoArchive(const QString &address, int samples)
{
    Database db(DatabaseConfig::fromUrl(address));
    db.open();
    removeBenchSamples(db);
    SampleStore store([&]() -> Database & { return db; });
    StoredSample s;
    s.adres = BenchAddress;
    s.Napiecie = 231.5f;
    s.Czestotliwosc = 50.0f;
    const std::vector<double> ms = timeWrites(samples, [&](ZDate when) {
        s.Data = when;
        s.EnCzynna = 12.5;
        s.EnBiernaCalk = 3.25;
        s.EnBiernaPoj = -0.5;
        s.PopPradCzynny += 12.5f;
        store.ZapiszPomiar(s);
    });
    const int stored = countOf(db, QStringLiteral("Pomiary"), BenchAddress);
    removeBenchSamples(db);
    if (stored != samples)
        throw RunTimeError::database(QStringLiteral("not every sample was stored"));
    return ms;
}

void print(QTextStream &out, std::vector<double> ms)
{
    std::sort(ms.begin(), ms.end());
    const auto pct = [&](double p) { return ms[std::min(ms.size() - 1, std::size_t(p * double(ms.size())))]; };
    out << "sample_write_samples: " << ms.size() << " count\n";
    out << "sample_write_median: " << QString::number(pct(0.5), 'f', 3) << " ms\n";
    out << "sample_write_p99: " << QString::number(pct(0.99), 'f', 3) << " ms\n";
    out << "sample_write_max: " << QString::number(ms.back(), 'f', 3) << " ms\n";
}

}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    QString address;
    if (args.size() >= 2 && args.first() == QLatin1String("--db")) {
        address = args[1];
        args = args.mid(2);
    }
    const int samples = std::max(1, args.isEmpty() ? 500 : args.first().toInt());
    QTextStream out(stdout);
    try {
        print(out, address.isEmpty() ? throughStation(samples) : intoArchive(address, samples));
    } catch (const RunTimeError &e) {
        out << "sample_write: " << e.message() << Qt::endl;
        return 1;
    }
    return 0;
}
