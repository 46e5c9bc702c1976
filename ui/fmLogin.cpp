#include "fmLogin.h"

#include "FormControls.h"

#include "base/Dialogs.h"
#include "model/clsoApp.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

fmLogin::fmLogin(clsoApp &app, Dialogs &dialogs, QWidget *parent)
    : QDialog(parent), m_app(app), m_dialogs(dialogs), txtUserName(new QLineEdit(this)),
      txtPassword(form::passwordBox(this, "txtPassword")), cmdOK(form::button(this, "cmdOK", QStringLiteral("&OK"))),
      cmdCancel(form::button(this, "cmdCancel", QStringLiteral("&Anuluj")))
{
    setWindowTitle(QStringLiteral("Login"));
    txtUserName->setObjectName(QStringLiteral("txtUserName"));
    txtUserName->setMinimumWidth(180);
    cmdOK->setDefault(true);
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(cmdOK, QDialogButtonBox::AcceptRole);
    buttons->addButton(cmdCancel, QDialogButtonBox::RejectRole);
    auto *grid = new QGridLayout(this);
    grid->addWidget(form::label(this, "lblLabels0", QStringLiteral("Użytkownik:")), 0, 0);
    grid->addWidget(txtUserName, 0, 1);
    grid->addWidget(form::label(this, "lblLabels1", QStringLiteral("Hasło:")), 1, 0);
    grid->addWidget(txtPassword, 1, 1);
    grid->addWidget(buttons, 2, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    // the buttons' own slots, not the box's roles: only they answer
    connect(cmdOK, &QPushButton::clicked, this, &fmLogin::login);
    connect(cmdCancel, &QPushButton::clicked, this, &fmLogin::cancel);
}

void fmLogin::keyPressEvent(QKeyEvent *event)
{
    // Esc is Cancel, which answers False; QDialog's own Esc answers nothing
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
        cmdCancel->click();
    else
        QDialog::keyPressEvent(event);
}

void fmLogin::login()
{
    if (m_app.SprawdzLogin(txtUserName->text(), txtPassword->text())) {
        m_app.setParametrGlob(true);
        accept();
        return;
    }
    m_dialogs.MsgBox(QStringLiteral("Błędne hasło lub nazwa użytkownika"), Dialogs::OkOnly, QStringLiteral("Logowanie"));
    txtPassword->setFocus();
    txtPassword->selectAll();
}

void fmLogin::cancel()
{
    m_app.setParametrGlob(false);
    reject();
}
