#pragma once

#include "base/ZDate.h"

#include <QDate>
#include <QString>
#include <vector>

class Database;

// The alarms of one controller over whole days, as a table that is printed,
// saved as PDF or exported as CSV. The archive window fills it with what its
// list shows; the admin tool reads it for a range of days.
struct AlarmHistory {
    struct Row {
        ZDate raised;      // Data
        QString kod;       // kod_regul
        QString text;      // tresc
        ZDate confirmed;   // data_potw; zero when NULL
        ZDate deactivated; // Data_dezakt; zero when NULL
    };

    QString kod;
    QDate first; // the first and last day covered, both included
    QDate last;
    std::vector<Row> rows;

    // The alarms of `kod` that arose from the start of `first` to the end
    // of `last`, in the order the store gives them.
    static AlarmHistory read(Database &db, const QString &kod, QDate first, QDate last);
    // The header over the table: the controller and the day or the days.
    QString title() const;
};
