// The four reports on a large archive, from the call to the finished table
// (query, rows, the table the print and the CSV render), with the steps
// timed apart to show where the time goes:
//   exec    the prepared query run: on SQLite until its first row, on
//           PostgreSQL the whole result brought to the client
//   rowset  the query run and every row read into the row set
//   table   the query's rows read into the table by the layout's fields
//
//   report_speed [--db FILE] [--pg URL] [--pg-years Y] [--repeat K]
//
// FILE is the archive chart_speed uses (100 controllers x 10 years, filled on
// the first run, see LargeArchive.h). An object's controllers are passed as
// the list the structure tree would give ("'R001',...,'R020'"): building the
// list is the tree's work, not the report's. With --pg the same cases run on
// a PostgreSQL database of their own (refused if it holds a station's
// tables), filled on the first run with 100 controllers for Y years (see
// PgArchive.h); their figures are prefixed "pg_".

#include "LargeArchive.h"
#include "PgArchive.h"
#include "Timings.h"

#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/RowSet.h"
#include "reports/ReportBuild.h"
#include "reports/ReportLayout.h"
#include "reports/ReportQueries.h"

#include <QCoreApplication>
#include <functional>
#include <optional>

namespace {

struct Options {
    QString file = QStringLiteral("/tmp/zorbel-large.db");
    PgArchiveOptions pg;
    int repeat = 5;
};

// None when the command line is not understood.
std::optional<Options> parse(QStringList args)
{
    Options o;
    args.removeFirst();
    while (args.size() >= 2) {
        const QString name = args.takeFirst(), value = args.takeFirst();
        if (name == QLatin1String("--db"))
            o.file = value;
        else if (name == QLatin1String("--repeat"))
            o.repeat = std::max(1, value.toInt());
        else if (!o.pg.take(name, value))
            return std::nullopt;
    }
    return args.isEmpty() ? std::optional(o) : std::nullopt;
}

// One report as the station makes it for repeat i, and its query alone.
struct ReportCase {
    QString name;
    ReportTable::Kind kind;
    std::function<SqlStatement(int i)> query;
    std::function<ReportTable(Database &, int i)> build;
};

struct CaseTimes {
    Timings total, exec, rowSet, table;
    int rows = 0;
};

// The tree's list of an object holding the first `count` controllers.
QString controllerList(int count)
{
    QStringList places;
    for (int adres = 1; adres <= count; ++adres)
        places << QLatin1Char('\'') + LargeArchive::kodOf(adres) + QLatin1Char('\'');
    return places.join(QLatin1Char(','));
}

std::vector<ReportCase> casesFor(const LargeArchive::Size &size)
{
    using K = ReportTable::Kind;
    const auto adres = std::int16_t((size.controllers + 1) / 2);
    const QString kod = LargeArchive::kodOf(adres);
    const QDate first(LargeArchive::endDay(size).year() - 1, 1, 1), last(first.year(), 12, 31); // the last whole year
    const auto day = [first](int i) { return first.addDays((160 + 53 * i) % first.daysInYear()); };
    const auto month = [first](int i) { return first.addMonths((5 + 7 * i) % 12); };
    const auto monthEnd = [month](int i) { return month(i).addMonths(1).addDays(-1); };
    const QString of20 = controllerList(std::min(20, size.controllers)), of50 = controllerList(std::min(50, size.controllers));
    return {
        {QStringLiteral("daily_controller"), K::Daily, [=](int i) { return ReportQueries::dailyOfController(day(i), adres); },
         [=](Database &db, int i) { return ReportBuild::dailyOfController(db, day(i), adres, kod); }},
        {QStringLiteral("daily_object20"), K::Daily,
         [=](int i) { return ReportQueries::dailyOfObject(day(i), ReportQueries::condition(of20)); },
         [=](Database &db, int i) { return *ReportBuild::dailyOfObject(db, day(i), QStringLiteral("Obiekt 20"), of20); }},
        {QStringLiteral("period_month_controller"), K::Period,
         [=](int i) { return ReportQueries::periodOfController(month(i), monthEnd(i), adres); },
         [=](Database &db, int i) { return ReportBuild::periodOfController(db, month(i), monthEnd(i), adres, kod); }},
        {QStringLiteral("period_year_object50"), K::Period,
         [=](int) { return ReportQueries::periodOfObject(first, last, ReportQueries::condition(of50)); },
         [=](Database &db, int) { return *ReportBuild::periodOfObject(db, first, last, QStringLiteral("Obiekt 50"), of50); }},
    };
}

// The report first, as the operator meets a new day; the steps after it
// run the same query again.
void measureOnce(Database &db, const ReportCase &c, int i, CaseTimes &t)
{
    t.rows = t.total.time([&] { return c.build(db, i); }).rowCount();
    t.exec.time([&] { db.exec(c.query(i)); });
    RowSet rows(db);
    t.rowSet.time([&] { rows.open(c.query(i)); });
    QSqlQuery query = db.exec(c.query(i));
    ReportTable table(c.kind, {}, {});
    t.table.time([&] { table.read(query, ReportLayout::of(c.kind).fields()); });
}

void report(QTextStream &out, const QString &name, const CaseTimes &t)
{
    out << name << "_rows: " << t.rows << " rows\n";
    t.total.print(out, name + QStringLiteral("_total"));
    t.exec.print(out, name + QStringLiteral("_exec"));
    t.rowSet.print(out, name + QStringLiteral("_rowset"));
    t.table.print(out, name + QStringLiteral("_table"));
    out.flush();
}

void measure(QTextStream &out, Database &db, const LargeArchive::Size &size, int repeat, const QString &prefix)
{
    for (const ReportCase &c : casesFor(size)) {
        CaseTimes t;
        for (int i = 0; i < repeat; ++i)
            measureOnce(db, c, i, t);
        report(out, prefix + c.name, t);
    }
}

void reportArchive(QTextStream &out, const QString &prefix, const LargeArchive::Outcome &a, const LargeArchive::Size &size)
{
    out << prefix << "archive_years: " << size.years << " years\n";
    out << prefix << "archive_rows: " << a.rows << " rows\n";
    out << prefix << "archive_reused: " << (a.reused ? 1 : 0) << " bool\n";
    out << prefix << "fill_s: " << QString::number(a.insertSeconds + a.indexSeconds, 'f', 1) << " s\n";
    out << prefix << "rollup_fill_s: " << QString::number(a.rollupSeconds, 'f', 1) << " s\n";
    out << prefix << "upgrade_s: " << QString::number(a.upgradeSeconds, 'f', 1) << " s\n";
    out.flush();
}

void run(QTextStream &out, const Options &o)
{
    const LargeArchive::Size size;
    const LargeArchive::Outcome archive = LargeArchive::ensure(o.file, size);
    reportArchive(out, {}, archive, size);
    Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:") + o.file));
    db.open();
    measure(out, db, size, o.repeat, {});
    if (o.pg.url.isEmpty())
        return;
    const LargeArchive::Size pgSize{size.controllers, o.pg.years};
    Database pg(DatabaseConfig::fromUrl(o.pg.url));
    pg.open();
    reportArchive(out, QStringLiteral("pg_"), LargeArchive::ensure(pg, pgSize), pgSize);
    measure(out, pg, pgSize, o.repeat, QStringLiteral("pg_"));
}

}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const std::optional<Options> o = parse(app.arguments());
    if (!o) {
        out << "usage: report_speed [--db FILE] [--pg URL] [--pg-years Y] [--repeat K]" << Qt::endl;
        return 2;
    }
    try {
        run(out, *o);
    } catch (const RunTimeError &e) {
        out << "report_speed: " << e.message() << Qt::endl;
        return 1;
    }
    return 0;
}
