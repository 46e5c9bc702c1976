#pragma once

#include <QString>

// A meter: kept as a declared extension point; nothing fills or reads it yet.
class clMiernik {
public:
    QString Kod;
};
