#include "TestMain.h"
#include "RecordingDialogs.h"

#include "base/SettingsStore.h"
#include "model/clsoApp.h"
#include "fmLogin.h"
#include "frmOptions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

class OptionsLoginTest : public QObject {
    Q_OBJECT

    // the station's options as a first run reads them: the password is "lebroz"
    MemorySettingsStore store;
    clsoApp app;
    RecordingDialogs dialogs;

    template <class T = QPushButton>
    static T *control(const QWidget &window, const char *name)
    {
        return window.findChild<T *>(QLatin1String(name));
    }
    static void type(const QWidget &window, const char *box, const char *text)
    {
        control<QLineEdit>(window, box)->clear();
        QTest::keyClicks(control<QLineEdit>(window, box), QLatin1String(text));
    }
    QString stored(const char *section, const char *key = "wartosc") const
    {
        return store.value(QLatin1String(section), QLatin1String(key), QStringLiteral("(none)"));
    }

private slots:
    void init()
    {
        store = MemorySettingsStore();
        app = clsoApp();
        app.WczytajOpcje(store);
    }

    void onlyKastorWithTheAdministratorPasswordLogsIn()
    {
        fmLogin login(app, dialogs);
        login.show();
        for (const auto &[user, password] : {std::pair{"Kastor", "lebroz"}, {"kastor", "Lebroz"}, {"admin", "lebroz"}}) {
            type(login, "txtUserName", user);
            type(login, "txtPassword", password);
            control(login, "cmdOK")->click();
            QCOMPARE(dialogs.calls.takeFirst().prompt, QStringLiteral("Błędne hasło lub nazwa użytkownika"));
            QVERIFY(login.isVisible() && !app.ParametrGlob().isValid());
            QCOMPARE(login.focusWidget(), control<QLineEdit>(login, "txtPassword"));
            QCOMPARE(control<QLineEdit>(login, "txtPassword")->selectedText(), QLatin1String(password));
        }
        type(login, "txtUserName", "kastor"); // no limit on attempts
        type(login, "txtPassword", "lebroz");
        QTest::keyClick(control<QLineEdit>(login, "txtPassword"), Qt::Key_Return); // the default button
        QCOMPARE(app.ParametrGlob(), QVariant(true));
        QCOMPARE(login.result(), int(QDialog::Accepted));
        QVERIFY(dialogs.calls.isEmpty());
    }

    void cancelAndEscAnswerFalseAndTheCloseBoxNothing()
    {
        for (int way = 0; way < 3; ++way) {
            app.setParametrGlob(true);
            fmLogin login(app, dialogs);
            login.show();
            type(login, "txtUserName", "kastor");
            type(login, "txtPassword", "lebroz");
            if (way == 0)
                control(login, "cmdCancel")->click();
            else if (way == 1)
                QTest::keyClick(control<QLineEdit>(login, "txtUserName"), Qt::Key_Escape);
            else
                login.close();
            QVERIFY(!login.isVisible());
            QCOMPARE(app.ParametrGlob(), QVariant(way == 2));
        }
    }

    void applyWritesWhatTheBoxesShowButKeepsThePortInUse()
    {
        app.nr_portu = 2;
        app.Dzwieki = 1;
        app.AdmHaslo = QStringLiteral("tajne");
        frmOptions options(app, store);
        control(options, "cmdApply")->click(); // the boxes show what the station holds
        QCOMPARE(stored("port", "nr_portu") + stored("dzwieki"), QStringLiteral("21"));
        QCOMPARE(app.AdmHaslo, QStringLiteral("tajne"));
        control<QComboBox>(options, "cmbPort")->setEditText(QStringLiteral("COM3")); // not checked here
        control<QCheckBox>(options, "chkDzwieki")->setChecked(false);
        control(options, "cmdApply")->click();
        QCOMPARE(stored("port", "nr_portu"), QStringLiteral("COM3"));
        QCOMPARE(stored("dzwieki"), QStringLiteral("0"));
        QCOMPARE(app.Dzwieki, std::int16_t(0));
        QCOMPARE(app.nr_portu, std::uint8_t(2)); // the port in use stays till the next start
        control<QCheckBox>(options, "chkDzwieki")->setChecked(true);
        control(options, "cmdCancel")->click(); // earlier applies stay
        QCOMPARE(stored("dzwieki"), QStringLiteral("0"));
    }

    void newPasswordIsInForceAtOnceButReachesTheStoreOnlyAtTheNextApply()
    {
        QVERIFY(!control<QLineEdit>(frmOptions(app, store), "txtHaslo")->isEnabled()); // control mode only
        app.TrybSterowania = true;
        frmOptions options(app, store);
        type(options, "txtHaslo", "nowe");
        control(options, "cmdApply")->click();
        QCOMPARE(app.AdmHaslo, QStringLiteral("nowe"));
        QCOMPARE(stored("adm_haslo"), QStringLiteral("lebroz"));
        control(options, "cmdOK")->click();
        QCOMPARE(stored("adm_haslo"), QStringLiteral("nowe"));
    }
};

ZORBEL_TEST_MAIN(OptionsLoginTest)
#include "tst_options_login.moc"
