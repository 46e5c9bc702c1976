#include "frmAbout.h"

#include "FormControls.h"
#include "ProgramInfo.h"
#include "SystemInfoProgram.h"
#include "ZorbelLogo.h"

#include "base/Dialogs.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QProcess>
#include <QPushButton>

frmAbout::frmAbout(Dialogs &dialogs, QWidget *parent) : QDialog(parent), m_dialogs(dialogs)
{
    setWindowTitle(QStringLiteral("About ") + program::title());
    auto *icon = new ZorbelLogo(48, this);
    icon->setObjectName(QStringLiteral("picIcon"));
    auto *line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto *disclaimer = form::label(this, "lblDisclaimer", program::licenceNotice());
    disclaimer->setWordWrap(true);
    auto *cmdOK = form::button(this, "cmdOK", QStringLiteral("OK"));
    auto *cmdSysInfo = form::button(this, "cmdSysInfo", QStringLiteral("&System Info..."));
    cmdOK->setDefault(true);

    auto *grid = new QGridLayout(this);
    grid->setHorizontalSpacing(16);
    grid->addWidget(icon, 0, 0, 3, 1, Qt::AlignTop);
    auto *lblTitle = form::label(this, "lblTitle", program::title());
    QFont big = lblTitle->font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    big.setBold(true);
    lblTitle->setFont(big);
    grid->addWidget(lblTitle, 0, 1);
    grid->addWidget(form::label(this, "lblVersion", QStringLiteral("Version ") + program::version()), 1, 1);
    grid->addWidget(form::label(this, "lblDescription", QStringLiteral("system nadzoru energii biernej")), 2, 1);
    grid->addWidget(line, 3, 0, 1, 3);
    grid->addWidget(disclaimer, 4, 0, 2, 2);
    grid->addWidget(cmdOK, 4, 2);
    grid->addWidget(cmdSysInfo, 5, 2, Qt::AlignTop);
    grid->setColumnStretch(1, 1);
    setFixedSize(420, heightForWidth(420));
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::startSysInfo);
}

void frmAbout::startSysInfo()
{
    const QString path = systemInfoProgram();
    if (!path.isEmpty() && QProcess::startDetached(path, {}))
        return;
    m_dialogs.MsgBox(QStringLiteral("System Information Is Unavailable At This Time"), Dialogs::OkOnly);
}
