#pragma once

#include "db/DatabaseConfig.h"

#include <QString>
#include <QStringList>

class Dialogs;

// The per-user directory a station started from the menu works in
// (zorbel --user-dir): "Zorbel" in the user's data directory, e.g.
// ~/.local/share/Zorbel. A menu start has no current directory of its own,
// so the database and everything relative to it lie here instead.
class UserDirectory {
public:
    // `dataHome`: the user's data directory (~/.local/share).
    explicit UserDirectory(const QString &dataHome);
    // The one QStandardPaths names.
    static UserDirectory standard();

    QString path() const { return m_path; }

    // Makes the directory where it is missing and makes it current; then,
    // when the database is missing there, asks whether to create one and
    // creates it with zorbel-admin from `programDir` (else PATH). False when
    // the operator declines. RunTimeError when the directory cannot be made
    // or the database cannot be created.
    bool enter(const DatabaseConfig &config, Dialogs &dialogs, const QString &programDir) const;

    // Whether the start must create a database first: a SQLite file that is
    // not there. A server's database is never created from here.
    static bool lacksDatabase(const DatabaseConfig &config);
    // The arguments of zorbel-admin that create the SQLite file, empty.
    static QStringList initArguments(const DatabaseConfig &config);
    // zorbel-admin beside the station's own program, else the one on PATH;
    // empty when there is none.
    static QString adminProgram(const QString &programDir);

private:
    static void createDatabase(const DatabaseConfig &config, const QString &programDir);

    QString m_path;
};
