#include "RecordBinding.h"

#include "db/EditableRowSet.h"

#include <QComboBox>
#include <QLineEdit>

void RecordBinding::bind(QLineEdit *box, const QString &column)
{
    m_bound.push_back({box, column, !box->isReadOnly(), {}});
}

void RecordBinding::bind(QComboBox *list, const QString &column)
{
    m_bound.push_back({list, column, true, {}});
}

void RecordBinding::fill()
{
    const bool row = m_rows.hasCurrent();
    for (Bound &b : m_bound) {
        show(b.widget, m_rows.text(b.column), row && b.editable);
        b.shown = textOf(b.widget);
    }
}

void RecordBinding::collect()
{
    for (Bound &b : m_bound) {
        const QString now = textOf(b.widget);
        if (now == b.shown)
            continue;
        m_rows.setText(b.column, now);
        b.shown = now;
    }
}

QString RecordBinding::textOf(const QWidget *widget)
{
    if (auto *list = qobject_cast<const QComboBox *>(widget))
        return list->currentText();
    return static_cast<const QLineEdit *>(widget)->text();
}

void RecordBinding::show(QWidget *widget, const QString &text, bool editable)
{
    if (auto *list = qobject_cast<QComboBox *>(widget)) {
        // "Tak" as the station stores it shows as the list's "tak"
        list->setCurrentIndex(list->findText(text, Qt::MatchFixedString));
        list->setEnabled(editable);
        return;
    }
    auto *box = static_cast<QLineEdit *>(widget);
    box->setText(text);
    box->setReadOnly(!editable);
    box->setCursorPosition(0); // a long text shows its beginning
}
