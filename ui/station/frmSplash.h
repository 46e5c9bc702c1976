#pragma once

#include "core/SplashView.h"

#include <QWidget>

class QLabel;

// The start window: the system's name and what the start is doing.
class frmSplash final : public QWidget, public SplashView {
public:
    frmSplash();
    void showProgress(const QString &text) override;
    void closeSplash() override;

private:
    QLabel *lblProgress;
};
