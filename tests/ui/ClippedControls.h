#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QStringList>
#include <QWidget>

// Names of the shown labels and buttons of a window that are smaller than
// their text needs, or stick out of the window.
inline QStringList clippedControls(const QWidget &window)
{
    QStringList clipped;
    for (QWidget *w : window.findChildren<QWidget *>()) {
        if (!w->isVisibleTo(&window) || !(qobject_cast<QLabel *>(w) || qobject_cast<QAbstractButton *>(w)))
            continue;
        const auto *label = qobject_cast<QLabel *>(w);
        const int needed = label && label->wordWrap() ? label->heightForWidth(w->width()) : w->sizeHint().height();
        const bool tooSmall = (!(label && label->wordWrap()) && w->width() < w->sizeHint().width()) || w->height() < needed;
        const QRect inWindow(w->mapTo(&window, QPoint(0, 0)), w->size());
        if (tooSmall || !window.rect().contains(inWindow))
            clipped << w->objectName() + QLatin1Char(' ') + QString::number(w->width()) + QLatin1Char('x')
                           + QString::number(w->height());
    }
    return clipped;
}
