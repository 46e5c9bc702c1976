#pragma once

#include "db/DatabaseConfig.h"

#include <QCommandLineOption>
#include <QString>
#include <QTextStream>

class CommandLine;

// The hierarchy command of zorbel-admin: the installation's tree of objects
// listed, an element added or a leaf removed, for a scripted set-up.
// Unlike the station's own dialog it checks what it is given.
class HierarchyCommand {
public:
    HierarchyCommand();

    void addOptions(CommandLine &line) const;
    // Reads the action (add, remove, list) and its options; with another
    // command any of them is refused.
    void read(CommandLine &line, bool chosen);
    // Exit code 0, or 1 with a line on `err` for an element it refuses.
    int run(const DatabaseConfig &config, QTextStream &out, QTextStream &err) const;

private:
    int list(class HierarchyStore &store, QTextStream &out) const;
    int add(HierarchyStore &store, class Database &db, QTextStream &out, QTextStream &err) const;
    int remove(HierarchyStore &store, QTextStream &out, QTextStream &err) const;

    QCommandLineOption m_elementOption, m_parentOption, m_typeOption;
    QString m_action, m_element, m_parent, m_type;
};
