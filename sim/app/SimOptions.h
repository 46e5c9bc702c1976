#pragma once

#include "base/CommandLine.h"
#include "simcore/Faults.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
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

// The simulator's command line, read by the programs' shared CommandLine
// into SimOptions.
class SimCommandLine {
public:
    SimCommandLine();
    ~SimCommandLine();

    // Reads the arguments (the first is the program) and checks the values.
    CommandLine::Outcome parse(const QStringList &arguments);
    const SimOptions &options() const { return m_options; }
    // The outcome, the help, the error, and the answer to give.
    const CommandLine &line() const;

private:
    struct Parser;
    std::unique_ptr<Parser> m_parser;
    SimOptions m_options;
};

// The outcome of reading a command line in short: options, or help
// wanted, or the error that refuses it.
struct ParsedCommandLine {
    SimOptions options;
    bool helpWanted = false;
    QString error;
};

ParsedCommandLine parseCommandLine(const QStringList &arguments);
QString helpText();

} // namespace sim
