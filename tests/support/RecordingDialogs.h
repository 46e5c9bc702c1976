#pragma once

#include "base/Dialogs.h"

#include <QList>
#include <QStringList>

// Records every message box and answers from a queue (Ok when it is empty).
class RecordingDialogs final : public Dialogs {
public:
    struct Call {
        QString prompt;
        int style;
        QString title;
    };

    int MsgBox(const QString &prompt, int style, const QString &title) override
    {
        calls.append({prompt, style, title});
        return answers.isEmpty() ? Ok : answers.takeFirst();
    }

    QList<Call> calls;
    QList<int> answers;
};
