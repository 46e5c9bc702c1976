#include "StationScreenshot.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdio>

namespace {

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
    // at the screen's own pixel ratio, so that a scaled desktop is seen as it is
    const qreal ratio = qApp->devicePixelRatio();
    QPixmap shot(area.size().expandedTo(QSize(1, 1)) * ratio);
    shot.setDevicePixelRatio(ratio);
    shot.fill(Qt::darkGray);
    QPainter p(&shot);
    for (QWidget *w : shown)
        p.drawPixmap(w->geometry().topLeft() - area.topLeft(), w->grab());
    p.end();
    if (!shot.save(file, "PNG"))
        std::fprintf(stderr, "zorbel: nie można zapisać %s\n", qPrintable(file));
}

}

void scheduleScreenshot(const QString &file, int afterMs, const std::function<void()> &close)
{
    if (file.isEmpty())
        return;
    QTimer::singleShot(afterMs, qApp, [file, close] {
        saveWindows(file);
        close();
    });
}

void scheduleTrigger(const QString &entry, const std::function<void(const QString &entry)> &trigger)
{
    // several, comma-separated, half a second apart
    const QStringList entries = entry.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < entries.size(); ++i)
        QTimer::singleShot(1000 + int(i) * 500, qApp, [e = entries.at(i), trigger] { trigger(e); });
}
