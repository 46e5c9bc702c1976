#pragma once

#include <QString>
#include <functional>

class Dialogs;
class QDateTimeEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

// The controls of the small windows, each named as the window calls it.
namespace form {

QLabel *label(QWidget *parent, const char *name, const QString &caption);
QPushButton *button(QWidget *parent, const char *name, const QString &caption);
// A day chosen in a box or from a calendar, shown as "25.11.2026".
QDateTimeEdit *dateEdit(QWidget *parent, const char *name);
// A text box that shows each character as "*".
QLineEdit *passwordBox(QWidget *parent, const char *name);

// Lets the form see every key pressed in it before its controls do, as
// its event filter: the form's own keys must not be taken by a control.
void previewKeys(QWidget *form);

// Runs an operator's command; a run-time error ends it with its message.
void guarded(Dialogs &dialogs, const std::function<void()> &command);

// Closes a window, with the frame around it when it is a child of the main window.
void unload(QWidget *window);

}
