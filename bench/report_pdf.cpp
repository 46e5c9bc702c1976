// The daily and period reports saved as PDF on the print path: a daily
// table of some 400 pages and a period table of ten years, each timed from
// the table to the committed file. The page pictures are never held: peak
// memory stays near what the tables themselves take.
//
//   report_pdf [daily rows] [period days] [folder]
//
// The PDFs are written to a temporary folder, or kept in `folder` to be looked at.

#include "reports/ReportLayout.h"
#include "reports/ReportPrint.h"
#include "reports/ReportTable.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QDir>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextStream>
#include <cmath>

namespace {

const QDate Printed(2026, 11, 25);

// A value that wanders smoothly with the row.
double wave(int row, double base, double swing, int period)
{
    return base + swing * std::sin(2 * M_PI * row / period) + 0.001 * (row % 7);
}

ReportTable dailyTable(int rows)
{
    std::vector<std::vector<QVariant>> data;
    data.reserve(std::size_t(rows));
    const QDateTime start(QDate(2026, 11, 1), QTime(0, 0));
    for (int r = 0; r < rows; ++r) {
        const QVariant tg = r % 50 == 0 ? QVariant() : QVariant(wave(r, 0.25, 0.15, 96)); // now and then no tg fi
        data.push_back({start.addSecs(60LL * r), wave(r, 12, 14, 96), wave(r, 3, 4, 77), tg, wave(r, 0.4, 0.3, 50),
                        wave(r, 230, 6, 120), wave(r, 50, 0.05, 33), wave(r, 15, 9, 96)});
    }
    ReportTable table(ReportTable::Kind::Daily, QStringLiteral(" regulatora 'R05'"), QStringLiteral(" z dnia 30/11/2026"));
    table.setRows(ReportLayout::RapDobowy().fields(), std::move(data));
    return table;
}

// Where a period column's values lie, by the quantity it names.
double levelOf(const QString &field)
{
    const std::pair<const char *, double> levels[] = {
        {"Suma", 900}, {"tgfi", 0.25}, {"Napiecie", 230}, {"Czestotliwosc", 50}};
    for (const auto &[part, level] : levels)
        if (field.contains(QLatin1String(part)))
            return level;
    return 15; // the current
}

// A day's minimum lies below its average, its maximum above.
double sideOf(const QString &field)
{
    return field.endsWith(QLatin1String("Min")) ? -1 : field.endsWith(QLatin1String("Maks")) ? 1 : 0;
}

ReportTable periodTable(int days)
{
    const QStringList fields = ReportLayout::RapOkresowy().fields();
    std::vector<std::vector<QVariant>> data;
    const QDate first(2016, 11, 1);
    for (int d = 0; d < days; ++d) {
        std::vector<QVariant> row{first.addDays(d).toString(QStringLiteral("dd/MM/yy"))};
        for (int f = 1; f < fields.size(); ++f) {
            const double level = levelOf(fields[f]);
            row.push_back(wave(d, level, level / 20, 30) + sideOf(fields[f]) * level / 25);
        }
        data.push_back(std::move(row));
    }
    ReportTable table(ReportTable::Kind::Period, QStringLiteral(" regulatora 'R05'"),
                      QStringLiteral(" za okres od 01/11/16 do 31/10/26"));
    table.setRows(fields, std::move(data));
    return table;
}

int pagesOf(const QString &pdf)
{
    QFile f(pdf);
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    return int(QString::fromLatin1(f.readAll()).count(QRegularExpression(QStringLiteral("/Type\\s*/Page\\b"))));
}

// A figure of /proc/self/status in MB (VmHWM: the peak of the resident set).
double statusMb(const char *key)
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : f.readAll().split('\n'))
        if (line.startsWith(key))
            return line.mid(int(qstrlen(key)) + 1).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

void run(QTextStream &out, const QString &name, const ReportTable &table, const QString &pdf)
{
    QElapsedTimer t;
    t.start();
    ReportPrint::savePdf(table, Printed, pdf);
    const double seconds = double(t.elapsed()) / 1000;
    out << name << "_pdf_rows: " << table.rowCount() << " rows\n";
    out << name << "_pdf_pages: " << pagesOf(pdf) << " pages\n";
    out << name << "_pdf_time: " << QString::number(seconds, 'f', 2) << " s\n";
    out << name << "_pdf_size: " << QString::number(double(QFile(pdf).size()) / 1e6, 'f', 1) << " MB\n";
    out.flush();
}

}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    const int dailyRows = args.size() > 1 ? args[1].toInt() : 25000;
    const int periodDays = args.size() > 2 ? args[2].toInt() : 3652;
    QTextStream out(stdout);
    QTemporaryDir temporary;
    const QDir dir(args.size() > 3 ? args[3] : temporary.path());
    const ReportTable daily = dailyTable(dailyRows), period = periodTable(periodDays);
    out << "tables_rss: " << QString::number(statusMb("VmRSS:"), 'f', 0) << " MB\n";
    run(out, QStringLiteral("daily"), daily, dir.filePath(QStringLiteral("daily.pdf")));
    run(out, QStringLiteral("period"), period, dir.filePath(QStringLiteral("period.pdf")));
    out << "peak_rss: " << QString::number(statusMb("VmHWM:"), 'f', 0) << " MB\n";
    return 0;
}
