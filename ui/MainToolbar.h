#pragma once

#include <QString>
#include <QToolBar>
#include <functional>
#include <vector>

class ImageList;

// The main window's eleven buttons, reached by key or by position from 1 as
// the rest of the station knows them. Positions 2, 6 and 8 are separators:
// what is written to them (a tool tip) lands on nothing visible. A button's
// value is 1 pressed, 0 released; only the operator's click is reported.
class MainToolbar final : public QToolBar {
public:
    explicit MainToolbar(const ImageList &images, QWidget *parent = nullptr);

    // The operator clicked a button: its key and whether it is now pressed.
    void setClickHandler(std::function<void(const QString &key, bool value)> handler) { m_clicked = std::move(handler); }

    int count() const { return int(m_buttons.size()); }
    QAction *at(int index) const;             // from 1
    QAction *button(const QString &key) const; // an unknown key is a run-time error
    QString key(int index) const;

    int value(const QString &key) const;
    void setValue(const QString &key, int value);
    void setToolTip(const QString &key, const QString &text);
    void setToolTipAt(int index, const QString &text);

private:
    struct Button {
        QString key;
        QAction *action;
    };
    void addButton(const QString &key, const QIcon &icon, bool check, const QString &toolTip);
    void addSeparatorButton();

    std::vector<Button> m_buttons;
    std::function<void(const QString &, bool)> m_clicked;
};
