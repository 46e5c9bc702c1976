#include "frmSplash.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::WindowStaysOnTopHint)
{
    auto *layout = new QVBoxLayout(this);
    auto *title = new QLabel(QStringLiteral("Zorbel"), this);
    QFont f = title->font();
    f.setPointSize(f.pointSize() * 3);
    f.setBold(true);
    title->setFont(f);
    title->setAlignment(Qt::AlignCenter);
    auto *subtitle = new QLabel(QStringLiteral("System nadzoru energii biernej"), this);
    subtitle->setAlignment(Qt::AlignCenter);
    lblProgress = new QLabel(this);
    lblProgress->setAlignment(Qt::AlignCenter);
    layout->addWidget(title);
    layout->addWidget(subtitle);
    layout->addSpacing(16);
    layout->addWidget(lblProgress);
    setFixedSize(420, 200);
}

void frmSplash::showProgress(const QString &text)
{
    show();
    lblProgress->setText(text);
    repaint();
    QApplication::processEvents();
}

void frmSplash::closeSplash()
{
    close();
}
