#include "reports/ReportTable.h"

#include "base/Conversions.h"
#include "base/PictureFormat.h"
#include "base/ZDate.h"
#include "base/RunTimeError.h"

#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>

void ReportTable::read(QSqlQuery &rows, const QStringList &fields)
{
    m_fields = fields;
    m_rows.clear();
    // only the layout's fields are converted, not every column of "Select *"
    std::vector<int> columns;
    while (rows.next()) {
        if (columns.empty())
            columns = columnsOf(rows, fields);
        std::vector<QVariant> row;
        row.reserve(columns.size());
        for (int c : columns)
            row.push_back(rows.value(c));
        m_rows.push_back(std::move(row));
    }
}

// The places of the fields among the query's columns, named case-blind; a
// field the query has not is a run-time error, met at the first row.
std::vector<int> ReportTable::columnsOf(const QSqlQuery &rows, const QStringList &fields)
{
    const QSqlRecord layout = rows.record();
    std::vector<int> columns;
    for (const QString &f : fields) {
        const int i = layout.indexOf(f);
        if (i < 0)
            throw RunTimeError::database(QStringLiteral("Brak kolumny %1 w %2").arg(f, rows.lastQuery()));
        columns.push_back(i);
    }
    return columns;
}

void ReportTable::setRows(const QStringList &fields, std::vector<std::vector<QVariant>> rows)
{
    m_fields = fields;
    m_rows = std::move(rows);
    for (std::vector<QVariant> &row : m_rows) // a short row's missing fields are NULL
        row.resize(std::size_t(fields.size()));
}

QVariant ReportTable::value(int row, const QString &field) const
{
    // fields are named without regard to case, as the store names them
    const auto it = std::find_if(m_fields.cbegin(), m_fields.cend(),
                                 [&](const QString &f) { return f.compare(field, Qt::CaseInsensitive) == 0; });
    const qsizetype column = it - m_fields.cbegin();
    if (it == m_fields.cend() || row < 0 || row >= rowCount())
        return {};
    return m_rows[std::size_t(row)][std::size_t(column)];
}

QString ReportTable::text(int row, const QString &field, const QString &picture) const
{
    const QVariant v = value(row, field);
    if (v.isNull())
        return {};
    // a day arrives as its text; a sample's moment prints in the picture's time form
    if (v.typeId() == QMetaType::QString && v.toString().size() <= 8)
        return v.toString();
    if (picture.contains(QLatin1String("HH")))
        return ZDate::fromVariant(v).toString(picture);
    return pictureFormatComma(conv::toNumber(v), picture);
}

std::optional<double> ReportTable::figure(Figure figure, const QString &field) const
{
    std::vector<double> values;
    for (int r = 0; r < rowCount(); ++r)
        if (const QVariant v = value(r, field); !v.isNull())
            values.push_back(conv::toNumber(v));
    if (values.empty())
        return std::nullopt;
    double sum = 0;
    for (double v : values)
        sum += v;
    switch (figure) {
    case Figure::Sum: return sum;
    case Figure::Min: return *std::min_element(values.begin(), values.end());
    case Figure::Max: return *std::max_element(values.begin(), values.end());
    case Figure::Average: return sum / double(values.size());
    }
    return std::nullopt;
}

QString ReportTable::figureText(Figure figure, const QString &field, const QString &picture) const
{
    const std::optional<double> v = this->figure(figure, field);
    return v ? pictureFormatComma(*v, picture) : QString();
}
