#pragma once

// The gate of control mode: shows the login window modally. Its answer
// comes back in clsoApp::ParametrGlob, written by the window's buttons.
class LoginPrompt {
public:
    virtual ~LoginPrompt() = default;
    virtual void showLogin() = 0;
};
