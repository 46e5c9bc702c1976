#pragma once

#include "AlarmExport.h"
#include "BillingCommand.h"
#include "ExportOptions.h"
#include "HierarchyCommand.h"
#include "ReportExport.h"
#include "db/DatabaseConfig.h"

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <optional>

// The database tool: creates an empty station database or a demonstration
// installation, on SQLite or PostgreSQL, moves an older database's schema
// forward, edits the object tree and exports a controller's alarms, the
// reports and the bill of reactive energy. Returns a process exit code.
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
        ExportOptions saving; // shared by alarms, report and billing
        AlarmExport alarms;
        ReportExport report;
        BillingCommand billing;
        HierarchyCommand hierarchy;
    };

    // Reads the command line into `o`; an exit code when the tool is not
    // to run: help or version shown, or the command line refused.
    std::optional<int> parse(const QStringList &arguments, Options &o);
    void readCommands(class CommandLine &line, Options &o);
    int init(const Options &o);
    int demo(const Options &o);
    int upgrade(const Options &o);
    // Opens (creating where allowed) and lays the schema down; false when refused.
    bool prepare(const Options &o, class Database &db);

    QTextStream &m_out;
    QTextStream &m_err;
};
