#include "reports/AlarmCsv.h"

#include "base/RunTimeError.h"
#include "reports/AlarmHistory.h"
#include "reports/Csv.h"

#include <QFileDevice>

namespace {

QByteArray csv(const AlarmHistory &history)
{
    QString text = Csv::line({QStringLiteral("Data powstania"), QStringLiteral("Kod regulatora"), QStringLiteral("Tresc alarmu"),
                              QStringLiteral("Data potwierdzenia"), QStringLiteral("Data dezaktywacji")});
    for (const AlarmHistory::Row &r : history.rows)
        text += Csv::line({Csv::moment(r.raised), r.kod, r.text, Csv::moment(r.confirmed), Csv::moment(r.deactivated)});
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
    Csv::save(csv(history), path);
}
