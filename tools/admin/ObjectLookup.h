#pragma once

#include <QString>

class Database;

// An object of the structure named on the command line, found as the
// station's tree finds it: its controller list ("'A','B'") or why there is
// none to report on.
namespace ObjectLookup {

struct Found {
    QString controllerList; // empty with a refusal, or for an object without controllers
    QString refusal;        // an element not there, or a controller's element
};

Found find(Database &db, const QString &name);

}
