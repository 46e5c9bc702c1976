#pragma once

#include "base/SplashView.h"

#include <QDialog>

class QFrame;
class QLabel;

// The start window: the system's name, its version, what the start is doing
// and the legal notices. The start shows it not modally and writes to
// lblProgress; the menu's "O programie" shows it modally. Its Ok button, a
// click on its frame or any key closes it.
class frmSplash final : public QDialog, public SplashView {
public:
    explicit frmSplash(QWidget *parent = nullptr);
    void showProgress(const QString &text) override;
    void closeSplash() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QFrame *Frame1;
    QLabel *lblProgress;
};
