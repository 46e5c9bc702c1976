#include "FormControls.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"

#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>

namespace form {

QLabel *label(QWidget *parent, const char *name, const QString &caption)
{
    auto *l = new QLabel(caption, parent);
    l->setObjectName(QLatin1String(name));
    return l;
}

QPushButton *button(QWidget *parent, const char *name, const QString &caption)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(QLatin1String(name));
    return b;
}

QDateTimeEdit *dateEdit(QWidget *parent, const char *name)
{
    auto *d = new QDateTimeEdit(parent);
    d->setObjectName(QLatin1String(name));
    d->setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    d->setCalendarPopup(true);
    d->setFixedWidth(d->fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000")) + 34);
    return d;
}

QLineEdit *passwordBox(QWidget *parent, const char *name)
{
    auto *e = new QLineEdit(parent);
    e->setObjectName(QLatin1String(name));
    e->setEchoMode(QLineEdit::Password);
    // the desktop's own mask is a dot; the station's is the star
    e->setStyleSheet(QStringLiteral("lineedit-password-character: 42;"));
    return e;
}

void previewKeys(QWidget *form)
{
    form->installEventFilter(form);
    for (QWidget *child : form->findChildren<QWidget *>())
        child->installEventFilter(form);
}

void guarded(Dialogs &dialogs, const std::function<void()> &command)
{
    try {
        command();
    } catch (const RunTimeError &e) {
        dialogs.MsgBox(e.message(), Dialogs::Critical);
    }
}

void unload(QWidget *window)
{
    if (auto *sub = qobject_cast<QMdiSubWindow *>(window->parentWidget()))
        sub->close();
    else
        window->close();
}

}
