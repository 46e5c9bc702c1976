#pragma once

#include <QString>
#include <vector>

class EditableRowSet;
class QComboBox;
class QLineEdit;
class QWidget;

// A form's boxes bound to columns of the current row of a row set: fill()
// shows the row, collect() hands the row what the operator changed. A box
// counts as changed when its text is no longer what fill() put there, so a
// list that cannot show its column's value leaves that value alone.
class RecordBinding {
public:
    explicit RecordBinding(EditableRowSet &rows) : m_rows(rows) {}

    // A box that is read only when bound stays so.
    void bind(QLineEdit *box, const QString &column);
    // The list shows the item that equals the value, case aside; none for another value.
    void bind(QComboBox *list, const QString &column);

    // Shows the current row; without one the boxes are empty and locked.
    void fill();
    // Hands the current row every box the operator changed.
    void collect();

private:
    struct Bound {
        QWidget *widget;
        QString column;
        bool editable;
        QString shown;
    };
    static QString textOf(const QWidget *widget);
    static void show(QWidget *widget, const QString &text, bool editable);

    EditableRowSet &m_rows;
    std::vector<Bound> m_bound;
};
