#pragma once

#include <QDialog>

class Dialogs;
class QLineEdit;
class QPushButton;
class clsoApp;

// The gate of control mode. Its answer goes back through
// clsoApp::ParametrGlob: True after a correct login, False after Cancel (or
// Esc). Closed in any other way it writes nothing, and the slot keeps what
// the last login left there. A wrong login is told and the window stays.
class fmLogin final : public QDialog {
public:
    fmLogin(clsoApp &app, Dialogs &dialogs, QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void login();
    void cancel();

    clsoApp &m_app;
    Dialogs &m_dialogs;
    QLineEdit *txtUserName;
    QLineEdit *txtPassword;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
};
