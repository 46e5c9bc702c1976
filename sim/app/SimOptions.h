#pragma once

#include "simcore/Faults.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace sim {

struct SimOptions {
    QString linkPath;                 // --link: symlink to the pty slave
    std::optional<quint16> tcpPort;   // --tcp: serve TCP instead of a pty
    QString databaseUrl;              // --db
    QString configFile;               // --config
    std::optional<QList<int>> addresses;
    bool unpaced = false;
    double speed = 1;
    FaultPlan faults;
    quint32 seed = 1;
    QString logFile;
    bool verbose = false;
};

// The outcome of reading the command line: options, or help wanted, or an
// error to show with a hint at --help.
struct ParsedCommandLine {
    SimOptions options;
    bool helpWanted = false;
    QString error;
};

ParsedCommandLine parseCommandLine(const QStringList &arguments);
QString helpText();

} // namespace sim
