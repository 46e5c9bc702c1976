#include "reports/AlarmCsv.h"

#include "base/RunTimeError.h"
#include "reports/AlarmHistory.h"

#include <QIODevice>
#include <QSaveFile>
#include <QStringList>
#include <algorithm>

namespace {

// CRLF as RFC 4180 has it: spreadsheets on any system read it, and a line
// break inside a quoted text (a bare LF) stays told apart from a row's end.
const QString LineEnd = QStringLiteral("\r\n");

QString field(const QString &text)
{
    static const QString special = QStringLiteral(";\"\r\n");
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return special.contains(c); }))
        return text;
    return u'"' + QString(text).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString field(ZDate date)
{
    return date.isZero() ? QString() : date.toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss"));
}

QString line(const AlarmHistory::Row &r)
{
    return QStringList{field(r.raised), field(r.kod), field(r.text), field(r.confirmed), field(r.deactivated)}.join(u';');
}

QByteArray csv(const AlarmHistory &history)
{
    QString text = QStringLiteral("Data powstania;Kod regulatora;Tresc alarmu;Data potwierdzenia;Data dezaktywacji") + LineEnd;
    for (const AlarmHistory::Row &r : history.rows)
        text += line(r) + LineEnd;
    return text.toUtf8();
}

}

void AlarmCsv::write(const AlarmHistory &history, QIODevice &device)
{
    const QByteArray bytes = csv(history);
    if (device.write(bytes) != bytes.size()) {
        const auto *file = qobject_cast<const QFileDevice *>(&device);
        throw RunTimeError::fileNotSaved(file ? file->fileName() : QString(), device.errorString());
    }
}

void AlarmCsv::save(const AlarmHistory &history, const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw RunTimeError::fileNotSaved(path, file.errorString());
    file.write(csv(history)); // a failed write fails the commit, which then leaves nothing
    if (!file.commit())
        throw RunTimeError::fileNotSaved(path, file.errorString());
}
