#include "StationScreenshot.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdio>

namespace {

QString optionValue(const QStringList &args, const QString &name)
{
    const qsizetype i = args.indexOf(name);
    return i >= 0 && i + 1 < args.size() ? args.at(i + 1) : QString();
}

void saveWindows(const QString &file)
{
    QList<QWidget *> shown;
    QRect area;
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w->isVisible()) {
            shown << w;
            area |= w->frameGeometry();
        }
    // the main window below, the windows it owns above it
    std::stable_sort(shown.begin(), shown.end(),
                     [](QWidget *a, QWidget *b) { return !a->parentWidget() && b->parentWidget(); });
    QPixmap shot(area.size().expandedTo(QSize(1, 1)));
    shot.fill(Qt::darkGray);
    QPainter p(&shot);
    for (QWidget *w : shown)
        p.drawPixmap(w->geometry().topLeft() - area.topLeft(), w->grab());
    p.end();
    if (!shot.save(file, "PNG"))
        std::fprintf(stderr, "zorbel: cannot write %s\n", qPrintable(file));
}

}

void scheduleScreenshot(const QStringList &args, const std::function<void()> &close)
{
    const QString file = optionValue(args, QStringLiteral("--screenshot"));
    if (file.isEmpty())
        return;
    bool ok = false;
    int after = optionValue(args, QStringLiteral("--screenshot-after")).toInt(&ok);
    if (!ok || after < 0)
        after = 4000;
    QTimer::singleShot(after, qApp, [file, close] {
        saveWindows(file);
        close();
    });
}

void scheduleTrigger(const QStringList &args, const std::function<void(const QString &entry)> &trigger)
{
    const QString entry = optionValue(args, QStringLiteral("--trigger"));
    if (!entry.isEmpty())
        QTimer::singleShot(1000, qApp, [entry, trigger] { trigger(entry); });
}
