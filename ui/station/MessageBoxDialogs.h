#pragma once

#include "base/Dialogs.h"

class QWidget;

// Message boxes on the screen, with the caption "Zorbel" unless one is given.
class MessageBoxDialogs final : public Dialogs {
public:
    explicit MessageBoxDialogs(QWidget *parent = nullptr) : m_parent(parent) {}
    void setParent(QWidget *parent) { m_parent = parent; }
    int MsgBox(const QString &prompt, int style, const QString &title) override;
    QString saveFileName(const QString &title, const QString &suggested, const QString &filter) override;

private:
    QWidget *m_parent;
};
