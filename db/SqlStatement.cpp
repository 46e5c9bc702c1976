#include "db/SqlStatement.h"

#include "db/SqlDialect.h"

SqlStatement &SqlStatement::operator<<(const QString &text)
{
    m_pieces.push_back({Piece::Text, text, {}, {}});
    return *this;
}

SqlStatement &SqlStatement::value(const QVariant &v)
{
    m_pieces.push_back({Piece::Value, {}, v, {}});
    return *this;
}

SqlStatement &SqlStatement::date(ZDate d)
{
    m_pieces.push_back({Piece::Date, {}, {}, d});
    return *this;
}

SqlStatement &SqlStatement::dayFirstText(const QString &column)
{
    m_pieces.push_back({Piece::DayFirstText, column, {}, {}});
    return *this;
}

SqlStatement &SqlStatement::sum(const QString &column)
{
    m_pieces.push_back({Piece::Sum, column, {}, {}});
    return *this;
}

SqlStatement &SqlStatement::ratio(const QString &a, const QString &b)
{
    m_pieces.push_back({Piece::Ratio, a, b, {}});
    return *this;
}

SqlStatement &SqlStatement::typeName(SqlDialect::ColumnType type)
{
    m_pieces.push_back({Piece::TypeName, {}, int(type), {}});
    return *this;
}

SqlStatement &SqlStatement::dayStart(const QString &column)
{
    m_pieces.push_back({Piece::DayStart, column, {}, {}});
    return *this;
}

QString SqlStatement::render(const SqlDialect &dialect, QVariantList *binds) const
{
    QString sql;
    for (const Piece &p : m_pieces) {
        switch (p.kind) {
        case Piece::Text:
            sql += p.text;
            break;
        case Piece::Value:
            sql += QLatin1Char('?');
            binds->append(p.value);
            break;
        case Piece::Date:
            sql += QLatin1Char('?');
            binds->append(dialect.dateValue(p.date));
            break;
        case Piece::DayFirstText:
            sql += dialect.dayFirstText(p.text);
            break;
        case Piece::Sum:
            sql += dialect.doubleSum(p.text);
            break;
        case Piece::Ratio:
            sql += dialect.ratio(p.text, p.value.toString());
            break;
        case Piece::TypeName:
            sql += dialect.columnType(SqlDialect::ColumnType(p.value.toInt()));
            break;
        case Piece::DayStart:
            sql += dialect.dayStart(p.text);
            break;
        }
    }
    return sql;
}
