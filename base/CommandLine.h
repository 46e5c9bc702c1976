#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <optional>

// The command line of Zorbel's programs, read the same way in all of them:
// a QCommandLineParser with -h/--help and --version of its own, its help
// and its errors in Polish, and one exit code for a command line refused.
// A program adds its options, parses, checks the values it needs (refusing
// a bad one through refuseValue) and lets answer() say whether it runs.
class CommandLine {
public:
    // The exit code of a command line refused.
    static constexpr int RefusedExitCode = 2;

    enum class Outcome { Run, Help, Version, Refused };

    // `program` as it is called; `summary` opens the help.
    CommandLine(const QString &program, const QString &summary);

    // An option, its description in Polish.
    void addOption(const QCommandLineOption &option);
    // Positional arguments: how the usage line shows them and how many the
    // program takes at most; without this call it takes none.
    void setArguments(const QString &usage, int most);
    // Text that follows the list of options in the help.
    void setDetails(const QString &text);

    // Reads the arguments, the first being the program. A help or version
    // option anywhere wins over everything else on the line.
    Outcome parse(const QStringList &arguments);
    // The program's own refusals, after a parse that let it run; the first
    // one stands.
    void refuseValue(const QCommandLineOption &option, const QString &expected);
    void refuse(const QString &error);

    Outcome outcome() const { return m_outcome; }
    QString error() const { return m_error; }
    bool isSet(const QCommandLineOption &option) const { return m_parser.isSet(option); }
    QString value(const QCommandLineOption &option) const { return m_parser.value(option); }
    QStringList positionalArguments() const { return m_parser.positionalArguments(); }

    QString helpText() const;
    QString versionText() const;

    // What the outcome asks for: the help or the version on `out` (exit
    // code 0), or the error and where help is on `err` (RefusedExitCode).
    // Nothing for a program that is to run.
    std::optional<int> answer(QTextStream &out, QTextStream &err) const;

private:
    const QCommandLineOption *find(const QString &name) const;
    QString parseError(const QStringList &arguments) const;
    static QString shown(const QString &name);

    QString m_program;
    QString m_summary;
    QString m_details;
    QString m_argumentsUsage;
    int m_mostArguments = 0;
    QCommandLineParser m_parser;
    QList<QCommandLineOption> m_options;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
    Outcome m_outcome = Outcome::Run;
    QString m_error;
};
