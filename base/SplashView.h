#pragma once

#include <QString>

// The start window that tells the operator what the start is doing.
class SplashView {
public:
    virtual ~SplashView() = default;
    virtual void showProgress(const QString &text) = 0;
    virtual void closeSplash() = 0;
};
