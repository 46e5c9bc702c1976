// The charts of one controller on a large archive: the daily chart and a
// whole year's period chart, from the query to the drawn grid, through the
// station's own drawing code. The bare query and the QtCharts view are
// timed beside them to show where the time goes.
//
//   chart_speed [--db FILE] [--controllers N] [--years Y] [--repeat K] [--indexes-after]
//               [--pg URL] [--pg-years Y]
//
// The first run fills FILE (see LargeArchive.h), later runs reuse it. With
// --pg the same charts are then drawn on a PostgreSQL archive of N
// controllers for Y years (see PgArchive.h), figures prefixed "pg_".
// --indexes-after builds Pomiary's indexes after the samples rather than before
// (on 100 x 10 years: slower, 131 s against 118 s, and a tighter index than a
// station writing sample by sample ever has).

#include "LargeArchive.h"
#include "PgArchive.h"
#include "Timings.h"

#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/RowSet.h"
#include "reports/DailyChart.h"
#include "reports/PeriodChart.h"
#include "ui/ChartView.h"

#include <QApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QSqlError>
#include <functional>
#include <optional>

namespace {

struct Options {
    QString file = QStringLiteral("/tmp/zorbel-large.db");
    LargeArchive::Size size;
    int repeat = 20;
    LargeArchive::Indexes indexes = LargeArchive::Indexes::BeforeFill;
    PgArchiveOptions pg;
};

// None when the command line is not understood.
std::optional<Options> parse(QStringList args)
{
    Options o;
    args.removeFirst();
    while (!args.isEmpty()) {
        const QString name = args.takeFirst();
        if (name == QLatin1String("--indexes-after")) {
            o.indexes = LargeArchive::Indexes::AfterFill;
            continue;
        }
        if (args.isEmpty())
            return std::nullopt;
        const QString value = args.takeFirst();
        if (name == QLatin1String("--db"))
            o.file = value;
        else if (name == QLatin1String("--controllers"))
            o.size.controllers = std::clamp(value.toInt(), 1, 1000);
        else if (name == QLatin1String("--years"))
            o.size.years = std::clamp(value.toInt(), 1, 50);
        else if (name == QLatin1String("--repeat"))
            o.repeat = std::max(1, value.toInt());
        else if (!o.pg.take(name, value))
            return std::nullopt;
    }
    return o;
}

// One chart (daily or year) as the station draws it for repeat i.
struct ChartCase {
    QString name;
    std::function<SqlStatement(int i)> query;
    std::function<bool(RowSet &, ChartGrid &, ChartQuantity, int i)> draw;
};

struct CaseTimes {
    Timings energy, tgFi, query, rowSet, view;
    int rows = 0;
};

// prepare, exec and every value of every row, as QSqlQuery gives them
int bareQuery(Database &db, const SqlStatement &statement)
{
    QVariantList binds;
    const QString sql = statement.render(db.dialect(), &binds);
    QSqlQuery q(db.connection());
    q.setForwardOnly(true);
    if (!q.prepare(sql))
        throw RunTimeError::database(q.lastError().text());
    for (const QVariant &v : binds)
        q.addBindValue(v);
    if (!q.exec())
        throw RunTimeError::database(q.lastError().text());
    const int columns = q.record().count();
    int rows = 0;
    for (; q.next(); ++rows)
        for (int c = 0; c < columns; ++c)
            q.value(c);
    return rows;
}

void drawOrFail(const ChartCase &c, RowSet &rows, ChartGrid &grid, ChartQuantity quantity, int i)
{
    if (!c.draw(rows, grid, quantity, i))
        throw RunTimeError::database(c.name + QStringLiteral(": brak próbek w archiwum"));
}

// The chart first, as the operator meets a new day: its rows may not be in
// the connection's page cache yet. The steps after it show where its time goes.
void measureOnce(Database &db, const ChartCase &c, int i, CaseTimes &t, ChartView &view, ChartGrid &viewGrid)
{
    RowSet rows(db);
    ChartGrid grid; // no view on it: the station's drawing code alone
    for (auto [quantity, times] : {std::pair{ChartQuantity::Energy, &t.energy}, {ChartQuantity::TgFi, &t.tgFi}})
        times->time([&] { drawOrFail(c, rows, grid, quantity, i); });
    t.rows = t.query.time([&] { return bareQuery(db, c.query(i)); });
    t.rowSet.time([&] {
        rows.open(c.query(i));
        rows.close();
    });
    drawOrFail(c, rows, viewGrid, ChartQuantity::Energy, i); // the view redraws once here, untimed
    t.view.time([&] {
        view.redraw(); // the series and axes
        view.grab();   // and their painting
    });
}

void report(QTextStream &out, const QString &name, const CaseTimes &t)
{
    out << name << "_rows: " << t.rows << " rows\n";
    t.energy.print(out, name + QStringLiteral("_chart"));
    t.tgFi.print(out, name + QStringLiteral("_tgfi_chart"));
    t.query.print(out, name + QStringLiteral("_query"));
    t.rowSet.print(out, name + QStringLiteral("_rowset"));
    t.view.print(out, name + QStringLiteral("_view"));
}

std::vector<ChartCase> casesFor(const LargeArchive::Size &size)
{
    const int adres = (size.controllers + 1) / 2;
    const QString kod = LargeArchive::kodOf(adres);
    const QDate first(LargeArchive::endDay(size).year() - 1, 1, 1); // the archive's last whole year
    const QDate last(first.year(), 12, 31);
    const auto dayOf = [first](int i) { return first.addDays((160 + 53 * i) % first.daysInYear()); };
    return {
        {QStringLiteral("daily"), [=](int i) { return DailyChart::query(std::int16_t(adres), dayOf(i)); },
         [=](RowSet &r, ChartGrid &g, ChartQuantity q, int i) { return DailyChart::draw(r, g, std::int16_t(adres), kod, dayOf(i), q); }},
        {QStringLiteral("year"), [=](int) { return PeriodChart::query(std::int16_t(adres), first, last); },
         [=](RowSet &r, ChartGrid &g, ChartQuantity q, int) {
             return PeriodChart::draw(r, g, std::int16_t(adres), kod, first, last, q);
         }},
    };
}

void reportArchive(QTextStream &out, const QString &prefix, const LargeArchive::Outcome &a, const LargeArchive::Size &size)
{
    out << prefix << "archive_years: " << size.years << " years\n";
    out << prefix << "archive_reused: " << (a.reused ? 1 : 0) << " bool\n";
    out << prefix << "fill_s: " << QString::number(a.insertSeconds + a.indexSeconds, 'f', 1) << " s\n";
    out << prefix << "fill_insert_s: " << QString::number(a.insertSeconds, 'f', 1) << " s\n";
    out << prefix << "fill_index_s: " << QString::number(a.indexSeconds, 'f', 1) << " s\n";
    out << prefix << "fill_rollup_s: " << QString::number(a.rollupSeconds, 'f', 1) << " s\n";
    out << prefix << "upgrade_s: " << QString::number(a.upgradeSeconds, 'f', 1) << " s\n";
    out << prefix << "rows: " << a.rows << " rows\n";
    out.flush();
}

void measure(QTextStream &out, Database &db, const LargeArchive::Size &size, int repeat, const QString &prefix)
{
    ChartGrid viewGrid;
    ChartView view(viewGrid);
    view.resize(1200, 700); // about a chart window's size
    for (const ChartCase &c : casesFor(size)) {
        CaseTimes t;
        for (int i = 0; i < repeat; ++i)
            measureOnce(db, c, i, t, view, viewGrid);
        report(out, prefix + c.name, t);
        out.flush();
    }
}

void run(QTextStream &out, const Options &o)
{
    reportArchive(out, {}, LargeArchive::ensure(o.file, o.size, o.indexes), o.size);
    out << "db_size: " << QString::number(double(QFileInfo(o.file).size()) / 1e6, 'f', 1) << " MB" << Qt::endl;
    Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:") + o.file));
    db.open();
    measure(out, db, o.size, o.repeat, {});
    if (o.pg.url.isEmpty())
        return;
    const LargeArchive::Size pgSize{o.size.controllers, o.pg.years};
    Database pg(DatabaseConfig::fromUrl(o.pg.url));
    pg.open();
    reportArchive(out, QStringLiteral("pg_"), LargeArchive::ensure(pg, pgSize, o.indexes), pgSize);
    measure(out, pg, pgSize, o.repeat, QStringLiteral("pg_"));
}

}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTextStream out(stdout);
    const std::optional<Options> o = parse(app.arguments());
    if (!o) {
        out << "usage: chart_speed [--db FILE] [--controllers N] [--years Y] [--repeat K] [--indexes-after] [--pg URL] "
               "[--pg-years Y]"
            << Qt::endl;
        return 2;
    }
    try {
        run(out, *o);
    } catch (const RunTimeError &e) {
        out << "chart_speed: " << e.message() << Qt::endl;
        return 1;
    }
    return 0;
}
