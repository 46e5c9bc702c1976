#include "base/CommandLine.h"

#include <algorithm>

CommandLine::CommandLine(const QString &program, const QString &summary)
    : m_program(program), m_summary(summary),
      m_help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("pokazuje tę pomoc")),
      m_version(QStringLiteral("version"), QStringLiteral("pokazuje wersję programu"))
{
    addOption(m_help);
    addOption(m_version);
}

void CommandLine::addOption(const QCommandLineOption &option)
{
    m_parser.addOption(option);
    m_options.append(option);
}

void CommandLine::setArguments(const QString &usage, int most)
{
    m_argumentsUsage = usage;
    m_mostArguments = most;
}

void CommandLine::setDetails(const QString &text)
{
    m_details = text;
}

CommandLine::Outcome CommandLine::parse(const QStringList &arguments)
{
    // the parser goes on past an error, so that a help option is seen anywhere
    const bool parsed = m_parser.parse(arguments);
    m_error.clear();
    m_outcome = Outcome::Run;
    if (m_parser.isSet(m_help))
        m_outcome = Outcome::Help;
    else if (m_parser.isSet(m_version))
        m_outcome = Outcome::Version;
    else if (!parsed)
        refuse(parseError(arguments));
    else if (positionalArguments().size() > m_mostArguments)
        refuse(QStringLiteral("nieoczekiwany argument: ") + positionalArguments().at(m_mostArguments));
    return m_outcome;
}

void CommandLine::refuseValue(const QCommandLineOption &option, const QString &expected)
{
    refuse(QStringLiteral("błędna wartość opcji %1: %2 (dozwolona: %3)")
               .arg(shown(option.names().constLast()), value(option), expected));
}

void CommandLine::refuse(const QString &error)
{
    if (m_outcome == Outcome::Refused) // the first fault is the one told
        return;
    m_outcome = Outcome::Refused;
    m_error = error;
}

const QCommandLineOption *CommandLine::find(const QString &name) const
{
    for (const QCommandLineOption &o : m_options)
        if (o.names().contains(name))
            return &o;
    return nullptr;
}

QString CommandLine::parseError(const QStringList &arguments) const
{
    if (!m_parser.unknownOptionNames().isEmpty())
        return QStringLiteral("nieznana opcja ") + shown(m_parser.unknownOptionNames().constFirst());
    // the parser's other complaints concern a value: which, it says only in English
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString &a = arguments.at(i);
        if (a == QLatin1String("--"))
            break;
        if (a.size() < 2 || !a.startsWith(u'-'))
            continue;
        const qsizetype from = a.startsWith(QLatin1String("--")) ? 2 : 1;
        const qsizetype assign = a.indexOf(u'=');
        const QString name = a.mid(from, assign < 0 ? -1 : assign - from);
        const QCommandLineOption *o = find(name);
        if (!o)
            continue;
        if (o->valueName().isEmpty()) {
            if (assign >= 0)
                return QStringLiteral("opcja %1 nie przyjmuje wartości").arg(shown(name));
        } else if (assign < 0 && ++i == arguments.size()) {
            return QStringLiteral("opcja %1 wymaga wartości").arg(shown(name));
        }
    }
    return QStringLiteral("niepoprawny wiersz poleceń");
}

QString CommandLine::shown(const QString &name)
{
    return (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
}

QString CommandLine::helpText() const
{
    QString text = QStringLiteral("Użycie: ") + m_program + QStringLiteral(" [opcje]");
    if (!m_argumentsUsage.isEmpty())
        text += u' ' + m_argumentsUsage;
    text += u'\n' + m_summary + QStringLiteral("\n\nOpcje:\n");

    QList<QPair<QString, QString>> rows;
    qsizetype width = 0;
    for (const QCommandLineOption &o : m_options) {
        if (o.flags() & QCommandLineOption::HiddenFromHelp)
            continue;
        QStringList names;
        for (const QString &n : o.names())
            names << shown(n);
        QString cell = names.join(QStringLiteral(", "));
        if (!o.valueName().isEmpty())
            cell += u' ' + o.valueName();
        width = std::max(width, cell.size());
        rows.append({cell, o.description()});
    }
    const QString indent(width + 4, u' ');
    for (const auto &[cell, description] : rows) {
        QString lines = description;
        lines.replace(u'\n', u'\n' + indent);
        text += QStringLiteral("  ") + cell.leftJustified(width + 2) + lines + u'\n';
    }
    if (!m_details.isEmpty())
        text += u'\n' + m_details + u'\n';
    return text;
}

QString CommandLine::versionText() const
{
    return m_program + QStringLiteral(", wersja ") + QStringLiteral(ZORBEL_VERSION);
}

std::optional<int> CommandLine::answer(QTextStream &out, QTextStream &err) const
{
    switch (m_outcome) {
    case Outcome::Run:
        break;
    case Outcome::Help:
        out << helpText();
        out.flush();
        return 0;
    case Outcome::Version:
        out << versionText() << '\n';
        out.flush();
        return 0;
    case Outcome::Refused:
        err << m_program << ": " << m_error << '\n' << "Pomoc: " << m_program << " --help\n";
        err.flush();
        return RefusedExitCode;
    }
    return std::nullopt;
}
