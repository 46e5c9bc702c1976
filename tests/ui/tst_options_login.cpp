#include "TestMain.h"
#include "ClippedControls.h"
#include "RecordingDialogs.h"

#include "base/SettingsStore.h"
#include "model/clsoApp.h"
#include "fmLogin.h"
#include "frmOptions.h"
#include "Twips.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTabBar>
#include <QTest>
#include <QTimer>

namespace {

template <class T>
T *control(const QWidget &window, const char *name)
{
    T *c = window.findChild<T *>(QLatin1String(name));
    if (!c)
        qFatal("no control %s", name);
    return c;
}

QPushButton *button(const QWidget &window, const char *name)
{
    return control<QPushButton>(window, name);
}

QLineEdit *edit(const QWidget &window, const char *name)
{
    return control<QLineEdit>(window, name);
}

QChar maskOf(QLineEdit *box)
{
    return QChar(box->style()->styleHint(QStyle::SH_LineEdit_PasswordCharacter, nullptr, box));
}

void typeInto(QLineEdit *box, const QString &text)
{
    box->clear();
    QTest::keyClicks(box, text);
}

QString stored(const SettingsStore &store, const char *section, const char *key)
{
    return store.value(QLatin1String(section), QLatin1String(key), QStringLiteral("(none)"));
}

}

class OptionsLoginTest : public QObject {
    Q_OBJECT

    // the station's options as a first run reads them
    MemorySettingsStore store;
    clsoApp app;
    RecordingDialogs dialogs;

    void fillLogin(const fmLogin &login, const QString &user, const QString &password)
    {
        typeInto(edit(login, "txtUserName"), user);
        typeInto(edit(login, "txtPassword"), password);
    }

private slots:
    void init()
    {
        store = MemorySettingsStore();
        app = clsoApp();
        dialogs.calls.clear();
        app.WczytajOpcje(store);
    }

    void kastorWithTheAdministratorPasswordLogsIn()
    {
        fmLogin login(app, dialogs);
        login.show();
        fillLogin(login, QStringLiteral("kastor"), QStringLiteral("lebroz"));
        QTest::keyClick(edit(login, "txtPassword"), Qt::Key_Return); // the default button
        QCOMPARE(app.ParametrGlob(), QVariant(true));
        QVERIFY(!login.isVisible());
        QCOMPARE(login.result(), int(QDialog::Accepted));
        QVERIFY(dialogs.calls.isEmpty());
    }

    void wrongLoginIsToldAndTheWindowStays_data()
    {
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("password");
        QTest::newRow("user name in other case") << "Kastor" << "lebroz";
        QTest::newRow("password in other case") << "kastor" << "Lebroz";
        QTest::newRow("wrong password") << "kastor" << "haslo";
        QTest::newRow("unknown user") << "admin" << "lebroz";
    }

    void wrongLoginIsToldAndTheWindowStays()
    {
        QFETCH(QString, user);
        QFETCH(QString, password);
        fmLogin login(app, dialogs);
        login.show();
        fillLogin(login, user, password);
        QLineEdit *txtPassword = edit(login, "txtPassword");
        txtPassword->setCursorPosition(1);
        button(login, "cmdOK")->click();
        QCOMPARE(dialogs.calls.size(), 1);
        QCOMPARE(dialogs.calls[0].prompt, QStringLiteral("Błędne hasło lub nazwa użytkownika"));
        QCOMPARE(dialogs.calls[0].title, QStringLiteral("Logowanie"));
        QCOMPARE(dialogs.calls[0].style, int(Dialogs::OkOnly));
        QVERIFY(login.isVisible());
        QVERIFY(!app.ParametrGlob().isValid());
        QCOMPARE(login.focusWidget(), txtPassword);
        QCOMPARE(txtPassword->selectedText(), password);
        // there is no limit on attempts
        fillLogin(login, QStringLiteral("kastor"), QStringLiteral("lebroz"));
        button(login, "cmdOK")->click();
        QCOMPARE(app.ParametrGlob(), QVariant(true));
    }

    void cancelAndEscAnswerFalse()
    {
        for (bool byEsc : {false, true}) {
            app.setParametrGlob(true);
            fmLogin login(app, dialogs);
            login.show();
            if (byEsc)
                QTest::keyClick(edit(login, "txtUserName"), Qt::Key_Escape);
            else
                button(login, "cmdCancel")->click();
            QCOMPARE(app.ParametrGlob(), QVariant(false));
            QVERIFY(!login.isVisible());
        }
    }

    void closingOtherwiseLeavesTheAnswerAsItWas()
    {
        for (const QVariant &before : {QVariant(), QVariant(true), QVariant(false)}) {
            app.setParametrGlob(before);
            fmLogin login(app, dialogs);
            login.show();
            fillLogin(login, QStringLiteral("kastor"), QStringLiteral("zle"));
            QVERIFY(login.close());
            QVERIFY(!login.isVisible());
            QCOMPARE(app.ParametrGlob(), before);
        }
        QVERIFY(dialogs.calls.isEmpty());
    }

    void optionsShowWhatTheStationHolds_data()
    {
        QTest::addColumn<bool>("controlMode");
        QTest::newRow("normal mode") << false;
        QTest::newRow("control mode") << true;
    }

    void optionsShowWhatTheStationHolds()
    {
        QFETCH(bool, controlMode);
        app.nr_portu = 2;
        app.AdmHaslo = QStringLiteral("tajne");
        app.Dzwieki = 1;
        app.TrybSterowania = controlMode;
        frmOptions options(app, store);
        options.show();
        QCOMPARE(options.windowTitle(), QStringLiteral("Opcje programu"));
        auto *cmbPort = control<QComboBox>(options, "cmbPort");
        QVERIFY(cmbPort->isEditable());
        QCOMPARE(cmbPort->count(), 2);
        QCOMPARE(cmbPort->itemText(0), QStringLiteral("1"));
        QCOMPARE(cmbPort->itemText(1), QStringLiteral("2"));
        QCOMPARE(cmbPort->currentText(), QStringLiteral("2"));
        QLineEdit *txtHaslo = edit(options, "txtHaslo");
        QCOMPARE(txtHaslo->isEnabled(), controlMode);
        QCOMPARE(txtHaslo->text(), QStringLiteral("tajne"));
        QCOMPARE(maskOf(txtHaslo), QLatin1Char('*'));
        QVERIFY(control<QCheckBox>(options, "chkDzwieki")->isChecked());
        const QRect screen = options.screen()->geometry();
        QCOMPARE(options.pos(), QPoint((screen.width() - options.width()) / 2, (screen.height() - options.height()) / 2));
        QCOMPARE(stored(store, "port", "nr_portu"), QStringLiteral("(none)")); // showing writes nothing
    }

    void applyWritesTheThreeKeysAndTwoOptions()
    {
        app.TrybSterowania = false;
        frmOptions options(app, store);
        options.show();
        control<QComboBox>(options, "cmbPort")->setEditText(QStringLiteral("COM3")); // not checked here
        control<QCheckBox>(options, "chkDzwieki")->setChecked(true);
        button(options, "cmdApply")->click();
        QCOMPARE(stored(store, "port", "nr_portu"), QStringLiteral("COM3"));
        QCOMPARE(stored(store, "adm_haslo", "wartosc"), QStringLiteral("lebroz"));
        QCOMPARE(stored(store, "dzwieki", "wartosc"), QStringLiteral("1"));
        QCOMPARE(app.Dzwieki, std::int16_t(1));
        QCOMPARE(app.AdmHaslo, QStringLiteral("lebroz"));
        QCOMPARE(app.nr_portu, std::uint8_t(1)); // the port in use stays
        QVERIFY(options.isVisible());
        control<QCheckBox>(options, "chkDzwieki")->setChecked(false);
        button(options, "cmdApply")->click();
        QCOMPARE(stored(store, "dzwieki", "wartosc"), QStringLiteral("0"));
        QCOMPARE(app.Dzwieki, std::int16_t(0));
    }

    void newPasswordReachesTheStoreOnlyAtTheNextApply()
    {
        app.TrybSterowania = true;
        {
            frmOptions options(app, store);
            options.show();
            typeInto(edit(options, "txtHaslo"), QStringLiteral("nowe"));
            button(options, "cmdOK")->click();
            QVERIFY(!options.isVisible());
        }
        QCOMPARE(app.AdmHaslo, QStringLiteral("nowe"));
        QCOMPARE(stored(store, "adm_haslo", "wartosc"), QStringLiteral("lebroz"));

        app.AdmHaslo = QStringLiteral("lebroz");
        frmOptions options(app, store);
        options.show();
        typeInto(edit(options, "txtHaslo"), QStringLiteral("nowe"));
        button(options, "cmdApply")->click();
        QCOMPARE(stored(store, "adm_haslo", "wartosc"), QStringLiteral("lebroz"));
        button(options, "cmdApply")->click();
        button(options, "cmdOK")->click();
        QCOMPARE(stored(store, "adm_haslo", "wartosc"), QStringLiteral("nowe"));
        QCOMPARE(app.AdmHaslo, QStringLiteral("nowe"));
    }

    void cancelKeepsEarlierApplies()
    {
        frmOptions options(app, store);
        options.show();
        auto *cmbPort = control<QComboBox>(options, "cmbPort");
        cmbPort->setEditText(QStringLiteral("4"));
        button(options, "cmdApply")->click();
        cmbPort->setEditText(QStringLiteral("5"));
        control<QCheckBox>(options, "chkDzwieki")->setChecked(true);
        button(options, "cmdCancel")->click();
        QVERIFY(!options.isVisible());
        QCOMPARE(stored(store, "port", "nr_portu"), QStringLiteral("4"));
        QCOMPARE(stored(store, "dzwieki", "wartosc"), QStringLiteral("0"));
        QCOMPARE(app.Dzwieki, std::int16_t(0));
    }

};

ZORBEL_TEST_MAIN(OptionsLoginTest)
#include "tst_options_login.moc"
