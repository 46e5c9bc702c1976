// The durable write of one sample (Pomiary and OstPomiar together) on
// SQLite through clRegulator::ZapiszDaneDB: its median and 99th percentile.
//
//   sample_write [samples]      (500 when not given)

#include "StationFixture.h"


#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <vector>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int samples = std::max(1, argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 500);
    QTextStream out(stdout);

    QTemporaryDir dir;
    QDir::setCurrent(dir.path());
    std::vector<double> ms;
    ms.reserve(std::size_t(samples));
    try {
        StationFixture f(dir.filePath(QStringLiteral("zorbel.db")));
        f.createDatabase();
        f.addController(QStringLiteral("R1"), 1);
        Station &s = f.station();
        s.oApp.WczytajOpcje(f.settings);
        s.StartUp();
        clRegulator &r = s.Regulatory.Item(1);
        ZDate when = ZDate::fromParts(2024, 1, 15, 8, 0, 0);
        for (int i = 0; i < samples; ++i) {
            when = when.addMinutes(15);
            r.OstatniOdczyt = when;
            r.PradCzynny += 12.5f;
            r.PradBiernSr += 3.25f;
            r.PradBiernPojSr -= 0.5f;
            QElapsedTimer t;
            t.start();
            r.ZapiszDaneDB();
            ms.push_back(double(t.nsecsElapsed()) / 1e6);
        }
        QSqlQuery q = s.connection().exec(SqlStatement(QStringLiteral("SELECT COUNT(*) FROM Pomiary")));
        if (!q.next() || q.value(0).toInt() != samples) {
            out << "sample_write: not every sample was stored" << Qt::endl;
            return 1;
        }
        if (f.dialogs.calls.size() > 0) {
            out << "sample_write: a write failed: " << f.dialogs.calls.first().prompt << Qt::endl;
            return 1;
        }
    } catch (const RunTimeError &e) {
        out << "sample_write: " << e.message() << Qt::endl;
        return 1;
    }
    std::sort(ms.begin(), ms.end());
    const auto pct = [&](double p) { return ms[std::min(ms.size() - 1, std::size_t(p * double(ms.size())))]; };
    out << "sample_write_samples: " << samples << " count\n";
    out << "sample_write_median: " << QString::number(pct(0.5), 'f', 3) << " ms\n";
    out << "sample_write_p99: " << QString::number(pct(0.99), 'f', 3) << " ms\n";
    out << "sample_write_max: " << QString::number(ms.back(), 'f', 3) << " ms\n";
    return 0;
}
