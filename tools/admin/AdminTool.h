#pragma once

#include "db/DatabaseConfig.h"

#include <QString>
#include <QStringList>
#include <QTextStream>

// The database tool: creates an empty station database, or a demonstration
// installation, on SQLite or PostgreSQL. Returns a process exit code.
class AdminTool {
public:
    AdminTool(QTextStream &out, QTextStream &err) : m_out(out), m_err(err) {}

    int run(const QStringList &arguments);

private:
    struct Options {
        QString command;
        DatabaseConfig config;
        bool force = false;
        int days = 0;
        unsigned seed = 1;
    };

    bool parse(const QStringList &arguments, Options &o);
    int init(const Options &o);
    int demo(const Options &o);
    // Opens (creating where allowed) and lays the schema down; false when refused.
    bool prepare(const Options &o, class Database &db);
    void usage(QTextStream &s) const;

    QTextStream &m_out;
    QTextStream &m_err;
};
