#include "FormControls.h"

#include <QLabel>
#include <QLineEdit>
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

}
