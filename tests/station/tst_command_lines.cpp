#include "TestMain.h"
#include "TestEnv.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

// The three programs read their command lines one way: help and version on
// the standard output with exit code 0, a refusal on the standard error
// with exit code 2, all in Polish; the station answers help and version
// without a screen.
class CommandLinesTest : public QObject {
    Q_OBJECT
private slots:
    void programsAnswerTheirCommandLines_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<bool>("screen");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("out");
        QTest::addColumn<QString>("err");
        const QString version = QStringLiteral(", wersja \\d+\\.\\d+\\.\\d+\\n$");
        QTest::newRow("station help") << "zorbel" << QStringList{"--help"} << false << 0
                                      << "^Użycie: zorbel \\[opcje\\]\\n.*--screenshot PLIK" << "^$";
        QTest::newRow("station version") << "zorbel" << QStringList{"-platform", "xcb", "--version"} << false << 0
                                         << "^zorbel" + version << "^$";
        QTest::newRow("station refuses") << "zorbel" << QStringList{"--trigger"} << true << 2 << "^$"
                                         << "zorbel: opcja --trigger wymaga wartości\\nPomoc: zorbel --help\\n$";
        QTest::newRow("admin version") << "zorbel-admin" << QStringList{"--version"} << false << 0
                                       << "^zorbel-admin" + version << "^$";
        QTest::newRow("admin refuses") << "zorbel-admin" << QStringList{"init", "--colour"} << false << 2 << "^$"
                                       << "^zorbel-admin: nieznana opcja --colour\\n";
        QTest::newRow("simulator version") << "zorbel-sim" << QStringList{"--version"} << false << 0
                                           << "^zorbel-sim" + version << "^$";
        QTest::newRow("simulator refuses") << "zorbel-sim" << QStringList{"--addresses", "1", "--drop", "7"} << false
                                           << 2 << "^$"
                                           << "^zorbel-sim: błędna wartość opcji --drop: 7 \\(dozwolona: liczba od 0 do 1\\)\\n";
    }
    void programsAnswerTheirCommandLines()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, args);
        QFETCH(bool, screen);
        QFETCH(int, exitCode);
        QFETCH(QString, out);
        QFETCH(QString, err);
        TestEnv env;
        QProcess p;
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        if (!screen) {
            // a program that wanted a screen would end here with Qt's complaint
            e.remove(QStringLiteral("DISPLAY"));
            e.remove(QStringLiteral("WAYLAND_DISPLAY"));
            e.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        }
        p.setProcessEnvironment(e);
        p.start(TestEnv::program(program), args);
        QVERIFY(p.waitForFinished(20000));
        const QString stdOut = QString::fromUtf8(p.readAllStandardOutput());
        const QString stdErr = QString::fromUtf8(p.readAllStandardError());
        QCOMPARE(p.exitStatus(), QProcess::NormalExit);
        QCOMPARE(p.exitCode(), exitCode);
        const auto dotAll = QRegularExpression::DotMatchesEverythingOption;
        QVERIFY2(QRegularExpression(out, dotAll).match(stdOut).hasMatch(), qPrintable(stdOut));
        if (screen) // Qt may have its say about the screen there
            QVERIFY2(stdErr.contains(QRegularExpression(err)), qPrintable(stdErr));
        else
            QVERIFY2(QRegularExpression(err, dotAll).match(stdErr).hasMatch(), qPrintable(stdErr));
    }
};

ZORBEL_TEST_MAIN(CommandLinesTest)
#include "tst_command_lines.moc"
