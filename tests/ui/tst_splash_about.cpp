#include "ClippedControls.h"
#include "RecordingDialogs.h"

#include "SystemInfoProgram.h"
#include "frmAbout.h"
#include "frmSplash.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

namespace {

template <class T = QLabel>
T *control(const QWidget &window, const char *name)
{
    T *c = window.findChild<T *>(QLatin1String(name));
    if (!c)
        qFatal("no control %s", name);
    return c;
}

QStringList labelTexts(const QWidget &window)
{
    QStringList texts;
    for (const QLabel *l : window.findChildren<QLabel *>())
        texts << l->text();
    return texts;
}

}

class SplashAboutTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { QCoreApplication::setApplicationVersion(QString()); }

    void splashShowsNameVersionAndNotices()
    {
        QCoreApplication::setApplicationVersion(QStringLiteral("2.7.13"));
        frmSplash splash;
        splash.show();
        QCOMPARE(control(splash, "lblVersion")->text(), QStringLiteral("Wersja 2.7.13"));
        QVERIFY(labelTexts(splash).contains(QStringLiteral("system nadzoru energii biernej")));
        QVERIFY(control(splash, "lblCopyright")->text().contains(QStringLiteral("Zorbel")));
        QVERIFY(!control(splash, "lblWarning")->text().isEmpty());
        auto *ok = control<QPushButton>(splash, "Command1");
        QCOMPARE(ok->text(), QStringLiteral("&Ok"));
        QCOMPARE(ok->parentWidget(), control<QFrame>(splash, "Frame1"));
        QCOMPARE(clippedControls(splash), QStringList());

        QCoreApplication::setApplicationVersion(QStringLiteral("3.4"));
        QCOMPARE(control(frmSplash(), "lblVersion")->text(), QStringLiteral("Wersja 3.4.0"));
        QCoreApplication::setApplicationVersion(QString()); // the version the program was built as
        const QString built = control(frmSplash(), "lblVersion")->text();
        QVERIFY2(QRegularExpression(QStringLiteral("^Wersja \\d+\\.\\d+\\.\\d+$")).match(built).hasMatch(), qPrintable(built));
    }

    void splashShowsProgressUntilTheStartClosesIt()
    {
        frmSplash splash;
        splash.showProgress(QStringLiteral("Otwieram bazę danych i wczytuje regulatory..."));
        QVERIFY(splash.isVisible());
        QCOMPARE(control(splash, "lblProgress")->text(), QStringLiteral("Otwieram bazę danych i wczytuje regulatory..."));
        QCOMPARE(clippedControls(splash), QStringList());
        splash.closeSplash();
        QVERIFY(!splash.isVisible());
    }

    void okFrameClickAndAnyKeyCloseTheSplash_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("Ok") << "Command1";
        QTest::newRow("click on the frame") << "Frame1";
        QTest::newRow("letter on the window") << "key";
        QTest::newRow("letter on the button") << "key on Command1";
        QTest::newRow("F1 on the button") << "F1 on Command1";
    }

    void okFrameClickAndAnyKeyCloseTheSplash()
    {
        QFETCH(QString, how);
        frmSplash splash;
        splash.show();
        auto *ok = control<QPushButton>(splash, "Command1");
        if (how == QLatin1String("Command1"))
            QTest::mouseClick(ok, Qt::LeftButton);
        else if (how == QLatin1String("Frame1"))
            QTest::mouseClick(control<QFrame>(splash, "Frame1"), Qt::LeftButton, {}, QPoint(4, 4));
        else if (how == QLatin1String("key"))
            QTest::keyClick(&splash, Qt::Key_A);
        else if (how == QLatin1String("key on Command1"))
            QTest::keyClick(ok, Qt::Key_X);
        else
            QTest::keyClick(ok, Qt::Key_F1);
        QVERIFY(!splash.isVisible());
    }

    void splashFromTheMenuIsModal()
    {
        frmSplash splash;
        // A splash shown outside the application's loop runs pending timers
        // while it shows: the key comes once the dialog's own loop waits.
        QMetaObject::Connection waiting;
        waiting = connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &splash, [&] {
            disconnect(waiting);
            QVERIFY(splash.isModal());
            QTest::keyClick(&splash, Qt::Key_Space);
        });
        QCOMPARE(splash.exec(), int(QDialog::Rejected));
        QVERIFY(!splash.isVisible());
    }

    void aboutShowsTitleAndVersion()
    {
        QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
        RecordingDialogs dialogs;
        frmAbout about(dialogs);
        about.show();
        QCOMPARE(about.windowTitle(), QStringLiteral("About Zorbel"));
        QCOMPARE(control(about, "lblTitle")->text(), QStringLiteral("Zorbel"));
        QCOMPARE(control(about, "lblVersion")->text(), QStringLiteral("Version 1.2.3"));
        QCOMPARE(clippedControls(about), QStringList());
        control<QPushButton>(about, "cmdOK")->click();
        QVERIFY(!about.isVisible());
        QVERIFY(dialogs.calls.isEmpty());
    }

    void sysInfoWithoutTheProgramSaysItIsUnavailable()
    {
        QCOMPARE(systemInfoProgram(), QString()); // no system registry on this platform
        RecordingDialogs dialogs;
        frmAbout about(dialogs);
        about.show();
        control<QPushButton>(about, "cmdSysInfo")->click();
        QCOMPARE(dialogs.calls.size(), 1);
        QCOMPARE(dialogs.calls[0].prompt, QStringLiteral("System Information Is Unavailable At This Time"));
        QCOMPARE(dialogs.calls[0].style, int(Dialogs::OkOnly));
        QVERIFY(about.isVisible());
    }
};

QTEST_MAIN(SplashAboutTest)
#include "tst_splash_about.moc"
