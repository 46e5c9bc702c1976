#include "ModalLogin.h"

#include "fmLogin.h"

void ModalLogin::showLogin()
{
    fmLogin login(m_app, m_dialogs, m_parent);
    login.exec();
}
