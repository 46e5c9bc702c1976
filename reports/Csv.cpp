#include "reports/Csv.h"

#include "base/RunTimeError.h"

#include <QSaveFile>
#include <algorithm>

namespace {

// CRLF as RFC 4180 has it: spreadsheets on any system read it, and a line
// break inside a quoted text (a bare LF) stays told apart from a row's end.
const QString LineEnd = QStringLiteral("\r\n");

QString quoted(const QString &text)
{
    static const QString delimiters = QStringLiteral(";\"\r\n");
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return delimiters.contains(c); }))
        return text;
    return u'"' + QString(text).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

}

QString Csv::line(const QStringList &fields)
{
    QStringList out;
    out.reserve(fields.size());
    for (const QString &f : fields)
        out << quoted(f);
    return out.join(u';') + LineEnd;
}

QString Csv::moment(ZDate date)
{
    return date.isZero() ? QString() : date.toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss"));
}

void Csv::save(const QByteArray &bytes, const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw RunTimeError::fileNotSaved(path, file.errorString());
    file.write(bytes); // a failed write fails the commit, which then leaves nothing
    if (!file.commit())
        throw RunTimeError::fileNotSaved(path, file.errorString());
}
