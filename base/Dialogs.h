#pragma once

#include <QString>

// Message boxes as the logic raises them. The screen implements it with real
// boxes; tests record the calls and answer them from a script.
class Dialogs {
public:
    // Style bits, combinable: one button set plus one icon.
    enum Style {
        OkOnly = 0,
        OkCancel = 1,
        YesNo = 4,
        Critical = 16,
        Question = 32,
        Exclamation = 48,
        Information = 64,
    };
    // The button the operator pressed.
    enum Answer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

    virtual ~Dialogs() = default;
    virtual int MsgBox(const QString &prompt, int style = OkOnly, const QString &title = QString()) = 0;
    // The file an export is saved to, offering `suggested`; empty when the
    // operator cancels (and where nobody can be asked). `filter` as "PDF (*.pdf)".
    virtual QString saveFileName(const QString &, const QString &, const QString &) { return {}; }
};
