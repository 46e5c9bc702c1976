#include "TestMain.h"
#include "base/CommandLine.h"

#include <QTest>

namespace {

// A program "prog" with a flag, an option with a value, and at most one argument.
struct Prog {
    Prog()
    {
        line.addOption(flag);
        line.addOption(count);
        line.setArguments(QStringLiteral("[PLIK]"), 1);
        line.setDetails(QStringLiteral("Szczegóły na końcu."));
    }
    QCommandLineOption flag{QStringLiteral("force"), QStringLiteral("zastępuje")};
    QCommandLineOption count{QStringLiteral("count"), QStringLiteral("ile razy,\nod 0 do 5"), QStringLiteral("N")};
    CommandLine line{QStringLiteral("prog"), QStringLiteral("Program do prób.")};
};

struct Answer {
    std::optional<int> code;
    QString out, err;
};

Answer answer(const CommandLine &line)
{
    QString out, err;
    QTextStream o(&out), e(&err);
    const std::optional<int> code = line.answer(o, e);
    return {code, out, err};
}

}

class CommandLineTest : public QObject {
    Q_OBJECT
private slots:
    void outcomes_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("outcome");
        QTest::addColumn<QString>("error");
        const int run = int(CommandLine::Outcome::Run), refused = int(CommandLine::Outcome::Refused);
        QTest::newRow("nothing") << QStringList{} << run << QString();
        QTest::newRow("all it takes") << QStringList{"--force", "--count", "3", "a.db"} << run << QString();
        QTest::newRow("help") << QStringList{"-h"} << int(CommandLine::Outcome::Help) << QString();
        QTest::newRow("help wins over a fault") << QStringList{"--bogus", "--help"} << int(CommandLine::Outcome::Help)
                                                << QString();
        QTest::newRow("version") << QStringList{"--version"} << int(CommandLine::Outcome::Version) << QString();
        QTest::newRow("unknown long") << QStringList{"--bogus"} << refused << "nieznana opcja --bogus";
        QTest::newRow("unknown short") << QStringList{"-x"} << refused << "nieznana opcja -x";
        QTest::newRow("value missing") << QStringList{"--count"} << refused << "opcja --count wymaga wartości";
        QTest::newRow("value on a flag") << QStringList{"--force=1"} << refused
                                         << "opcja --force nie przyjmuje wartości";
        QTest::newRow("one argument too many") << QStringList{"a", "b"} << refused << "nieoczekiwany argument: b";
    }
    void outcomes()
    {
        QFETCH(QStringList, args);
        QFETCH(int, outcome);
        QFETCH(QString, error);
        Prog p;
        QCOMPARE(int(p.line.parse(QStringList{QStringLiteral("prog")} + args)), outcome);
        QCOMPARE(p.line.error(), error);
    }

    void theProgramRefusesABadValueTheSameWay()
    {
        Prog p;
        QCOMPARE(p.line.parse({QStringLiteral("prog"), QStringLiteral("--count"), QStringLiteral("7")}),
                 CommandLine::Outcome::Run);
        p.line.refuseValue(p.count, QStringLiteral("liczba od 0 do 5"));
        p.line.refuse(QStringLiteral("druga usterka")); // the first one is told
        const Answer a = answer(p.line);
        QCOMPARE(a.code.value_or(-1), CommandLine::RefusedExitCode);
        QCOMPARE(a.err, QStringLiteral("prog: błędna wartość opcji --count: 7 (dozwolona: liczba od 0 do 5)\n"
                                       "Pomoc: prog --help\n"));
        QVERIFY(a.out.isEmpty());
    }

};

ZORBEL_TEST_MAIN(CommandLineTest)
#include "tst_command_line.moc"
