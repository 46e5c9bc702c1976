#pragma once

#include "base/Dialogs.h"

#include <QList>
#include <QStringList>

// Records every message box and answers from a queue (Ok when it is empty);
// the file names asked for come from a queue of their own.
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

    // Answers from the queue of paths; empty (cancelled) when it is empty.
    QString saveFileName(const QString &title, const QString &suggested, const QString &filter) override
    {
        savesAsked.append({suggested, 0, title + QLatin1Char('|') + filter});
        return savePaths.isEmpty() ? QString() : savePaths.takeFirst();
    }

    QList<Call> calls;
    QList<Call> savesAsked; // prompt: the name offered; title: "title|filter"
    QStringList savePaths;
    QList<int> answers;
};
