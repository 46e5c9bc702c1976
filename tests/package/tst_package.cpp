// The Debian package cpack builds from this tree: the files it holds, and
// its command-line tools run without a display from a root it is unpacked
// into (dpkg -x).
#include "TestMain.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace {

// The exit code (-1 for a crash or a hang) and all the program said.
QPair<int, QString> run(const QString &program, const QStringList &args,
                        const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment())
{
    QProcess p;
    p.setProcessEnvironment(env);
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    const bool ended = p.waitForFinished(300000) && p.exitStatus() == QProcess::NormalExit;
    return {ended ? p.exitCode() : -1, QString::fromUtf8(p.readAll())};
}

}

class PackageTest : public QObject {
    Q_OBJECT
    QTemporaryDir m_dir;
    QString m_deb;

private slots:
    void initTestCase()
    {
        if (!QFileInfo(QStringLiteral(ZORBEL_CPACK)).isExecutable()
            || QStandardPaths::findExecutable(QStringLiteral("dpkg-deb")).isEmpty())
            QSKIP("cpack or dpkg-deb is not installed: the Debian package cannot be built here");
        const auto built = run(QStringLiteral(ZORBEL_CPACK), {QStringLiteral("-G"), QStringLiteral("DEB"),
                                                               QStringLiteral("--config"), QStringLiteral(ZORBEL_CPACK_CONFIG),
                                                               QStringLiteral("-B"), m_dir.path()});
        QVERIFY2(built.first == 0, qPrintable(built.second));
        const QString arch = run(QStringLiteral("dpkg"), {QStringLiteral("--print-architecture")}).second.trimmed();
        m_deb = m_dir.filePath(QStringLiteral("zorbel_" ZORBEL_VERSION "_%1.deb").arg(arch));
        QCOMPARE(run(QStringLiteral("dpkg"), {QStringLiteral("-x"), m_deb, m_dir.filePath(QStringLiteral("root"))}).first, 0);
    }

    void holdsTheProgramsSoundsMenuEntryIconAndManualPagesOnly()
    {
        QStringList files;
        for (const QString &line : run(QStringLiteral("dpkg-deb"), {QStringLiteral("-c"), m_deb}).second.split(u'\n'))
            if (line.startsWith(u'-'))
                files << line.section(QStringLiteral(" ./"), 1);
        files.sort();
        QCOMPARE(files.join(u' '), QStringLiteral(
            "usr/bin/zorbel usr/bin/zorbel-admin usr/bin/zorbel-sim usr/share/applications/zorbel.desktop "
            "usr/share/icons/hicolor/scalable/apps/zorbel.svg usr/share/man/man1/zorbel-admin.1.gz "
            "usr/share/man/man1/zorbel-sim.1.gz usr/share/man/man1/zorbel.1.gz usr/share/zorbel/sounds/alarm.wav "
            "usr/share/zorbel/sounds/odblokregul.wav usr/share/zorbel/sounds/zablokregul.wav"));
    }

    void toolsRunFromTheUnpackedRootWithoutADisplay()
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            env.remove(QLatin1String(name));
        for (const QString program : {"zorbel-admin", "zorbel-sim", "zorbel"}) {
            const auto help = run(m_dir.filePath(QStringLiteral("root/usr/bin/") + program), {QStringLiteral("--help")}, env);
            QVERIFY2(help.first == 0 && help.second.startsWith(QStringLiteral("Użycie: %1 [opcje]").arg(program)),
                     qPrintable(program + u'\n' + help.second));
        }
    }
};

ZORBEL_TEST_MAIN(PackageTest)
#include "tst_package.moc"
