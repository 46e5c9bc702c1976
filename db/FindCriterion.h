#pragma once

#include <QString>
#include <QVariant>

// A search criterion of the form "Column=value", blanks allowed round the
// '=' and quotes round a text. A number matches a number of equal value, so
// "Adres= 5" finds the address 5 however the column holds it.
class FindCriterion {
public:
    // Text without a column before an '=' is a run-time error.
    explicit FindCriterion(const QString &criterion);

    const QString &column() const { return m_column; }
    // NULL matches nothing.
    bool matches(const QVariant &value) const;

private:
    QString m_column;
    QString m_wanted;
};
