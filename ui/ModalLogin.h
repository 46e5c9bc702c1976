#pragma once

#include "base/LoginPrompt.h"

class Dialogs;
class QWidget;
class clsoApp;

// The login window, shown modally over the main window.
class ModalLogin final : public LoginPrompt {
public:
    ModalLogin(clsoApp &app, Dialogs &dialogs) : m_app(app), m_dialogs(dialogs) {}
    void setParent(QWidget *parent) { m_parent = parent; }
    void showLogin() override;

private:
    clsoApp &m_app;
    Dialogs &m_dialogs;
    QWidget *m_parent = nullptr;
};
