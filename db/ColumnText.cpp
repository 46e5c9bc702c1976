#include "db/ColumnText.h"

#include "base/Conversions.h"
#include "base/NumberForm.h"
#include "base/RunTimeError.h"

#include <cmath>

using Type = SqlDialect::ColumnType;

Schema::Column ColumnText::describe(const QString &table, const QString &column)
{
    for (const Schema::Table &t : Schema::tables())
        if (t.name.compare(table, Qt::CaseInsensitive) == 0)
            for (const Schema::Column &c : t.columns)
                if (c.name.compare(column, Qt::CaseInsensitive) == 0)
                    return c;
    return {column, Type::Text, {}};
}

QString ColumnText::toText(Type type, const QVariant &value)
{
    bool isNumber = false;
    const double d = value.toDouble(&isNumber);
    if (value.isNull() || !isNumber)
        return value.toString(); // text, or what a numeric column holds that is no number
    switch (type) {
    case Type::Int16:
    case Type::Int32:
    case Type::AutoId: return numberForm(std::int64_t(d)).trimmed();
    case Type::Single: return numberForm(float(d)).trimmed();
    case Type::Number: return numberForm(d).trimmed();
    case Type::Text:
    case Type::Date: break;
    }
    return value.toString();
}

QVariant ColumnText::toValue(Type type, const QString &text)
{
    if (text.isEmpty())
        return {};
    switch (type) {
    case Type::Int16: return conv::toInt16(number(text));
    case Type::Int32:
    case Type::AutoId: return conv::toInt32(number(text));
    case Type::Single: return conv::toSingle(number(text));
    case Type::Number: return number(text);
    case Type::Text:
    case Type::Date: break;
    }
    return text;
}

double ColumnText::number(const QString &text)
{
    QString t = text.trimmed();
    t.replace(QLatin1Char(','), QLatin1Char('.')); // the operator's decimal comma
    bool ok = false;
    const double d = t.toDouble(&ok);
    if (!ok || !std::isfinite(d))
        throw RunTimeError::typeMismatch();
    return d;
}
