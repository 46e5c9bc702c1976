#include "reports/ReportCsv.h"

#include "base/Conversions.h"
#include "base/PictureFormat.h"
#include "reports/Csv.h"
#include "reports/ReportLayout.h"
#include "reports/ReportTable.h"

#include <QDate>

namespace {

using Field = ReportLayout::Field;
using Figure = ReportTable::Figure;

// What a column holds, told by its field's picture: a sample's moment, a
// day's text "dd/mm/yy" (a period row) followed by that day in ISO form,
// or a number.
enum class Content { Moment, DayText, IsoDay, Number };

struct Column {
    const Field *field;
    Content content;
};

QList<Column> columnsOf(const QList<Field> &fields)
{
    QList<Column> columns;
    for (const Field &f : fields) {
        if (f.picture.contains(QLatin1String("HH")))
            columns << Column{&f, Content::Moment};
        else if (f.picture.contains(QLatin1String("dd")))
            columns << Column{&f, Content::DayText} << Column{&f, Content::IsoDay};
        else
            columns << Column{&f, Content::Number};
    }
    return columns;
}

// The layout's picture with a dot for its comma and a minus for its
// brackets: the decimals as printed, in a form spreadsheets read.
QString number(double value, const QString &picture)
{
    return pictureFormat(value, picture.section(QLatin1Char(';'), 0, 0).replace(QLatin1Char(','), QLatin1Char('.')));
}

// The text carries two digits of the year; the archive's years are this century's.
QString isoDay(const QString &dayFirst)
{
    const QStringList parts = dayFirst.split(QLatin1Char('/'));
    const QDate day = parts.size() == 3 ? QDate(2000 + parts[2].toInt(), parts[1].toInt(), parts[0].toInt()) : QDate();
    return day.isValid() ? day.toString(Qt::ISODate) : QString();
}

QString cell(const ReportTable &table, int row, const Column &c)
{
    const QVariant v = table.value(row, c.field->field);
    if (v.isNull())
        return {};
    switch (c.content) {
    case Content::Moment: return Csv::moment(ZDate::fromVariant(v));
    case Content::DayText: return v.toString();
    case Content::IsoDay: return isoDay(v.toString());
    case Content::Number: break;
    }
    return number(conv::toNumber(v), c.field->picture);
}

// A footer figure of this kind over the column's field, empty where the
// layout has none or no row has a value.
QString figure(const ReportTable &table, Figure kind, const Column &c, const ReportLayout &layout)
{
    for (const ReportLayout::Figure &g : layout.sections[ReportLayout::Section5].figures)
        if (g.figure == kind && g.field == c.field->field && c.content == Content::Number)
            if (const std::optional<double> v = table.figure(kind, g.field))
                return number(*v, g.picture);
    return {};
}

QStringList header(const QList<Column> &columns)
{
    QStringList names;
    for (const Column &c : columns)
        names << (c.content == Content::IsoDay ? QStringLiteral("Dzien") : c.field->field);
    return names;
}

QStringList cells(const ReportTable &table, int row, const QList<Column> &columns)
{
    QStringList out;
    for (const Column &c : columns)
        out << cell(table, row, c);
    return out;
}

// One footer line: its caption first, each figure of its kind under its field.
QStringList figures(const ReportTable &table, Figure kind, const QString &caption, const QList<Column> &columns)
{
    const ReportLayout &layout = ReportLayout::of(table.kind());
    QStringList out;
    for (const Column &c : columns)
        out << figure(table, kind, c, layout);
    out[0] = caption;
    return out;
}

}

QByteArray ReportCsv::text(const ReportTable &table)
{
    const QList<Column> columns = columnsOf(ReportLayout::of(table.kind()).sections[ReportLayout::Section1].fields);
    QString text = Csv::line(header(columns));
    for (int row = 0; row < table.rowCount(); ++row)
        text += Csv::line(cells(table, row, columns));
    const std::pair<Figure, const char *> lines[] = {
        {Figure::Sum, "suma"}, {Figure::Min, "min."}, {Figure::Max, "maks."}, {Figure::Average, "średnia"}};
    for (const auto &[kind, caption] : lines)
        text += Csv::line(figures(table, kind, QString::fromUtf8(caption), columns));
    return text.toUtf8();
}

void ReportCsv::save(const ReportTable &table, const QString &path)
{
    Csv::save(text(table), path);
}
