#pragma once

#include <QDialog>

class Dialogs;

// The classic about box: title, version, and a button that starts the
// system's information program, or says that there is none. No command of
// the station opens it.
class frmAbout final : public QDialog {
public:
    explicit frmAbout(Dialogs &dialogs, QWidget *parent = nullptr);

private:
    void startSysInfo();

    Dialogs &m_dialogs;
};
