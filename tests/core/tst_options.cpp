#include "TestMain.h"
#include "ErrorOf.h"
#include "TestEnv.h"

#include "base/RunTimeError.h"
#include "base/SettingsStore.h"
#include "model/clsoApp.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTest>

class OptionsTest : public QObject {
    Q_OBJECT
private slots:
    void firstRunGivesDefaultsAndWritesNothing()
    {
        TestEnv env;
        QtSettingsStore store;
        clsoApp app;
        QVERIFY(!app.WczytajOpcje(store).isValid()); // an empty result
        QCOMPARE(app.nr_portu, std::uint8_t(1));
        QCOMPARE(app.AdmHaslo, QStringLiteral("lebroz"));
        QCOMPARE(app.Dzwieki, std::int16_t(0));
        QVERIFY(!QDir(env.file(QStringLiteral("config/Zorbel"))).exists());
    }

    void storedValuesComeFromTheirSections()
    {
        TestEnv env;
        QtSettingsStore store;
        store.setValue(QStringLiteral("port"), QStringLiteral("nr_portu"), QStringLiteral("3"));
        store.setValue(QStringLiteral("adm_haslo"), QStringLiteral("wartosc"), QStringLiteral("tajne"));
        store.setValue(QStringLiteral("dzwieki"), QStringLiteral("wartosc"), QStringLiteral("1"));
        // the native store on Linux: one INI file, a group per section
        QSettings ini(env.file(QStringLiteral("config/Zorbel/Zorbel.conf")), QSettings::IniFormat);
        QCOMPARE(ini.value(QStringLiteral("port/nr_portu")).toString(), QStringLiteral("3"));
        clsoApp app;
        app.WczytajOpcje(store);
        QCOMPARE(app.nr_portu, std::uint8_t(3));
        QCOMPARE(app.AdmHaslo, QStringLiteral("tajne"));
        QCOMPARE(app.Dzwieki, std::int16_t(1));
    }

    void storedValuesThatDoNotConvertAreRunTimeErrors_data()
    {
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("error");
        QTest::newRow("port not a number") << "port" << "COM2" << int(RunTimeError::TypeMismatch);
        QTest::newRow("port above a byte") << "port" << "256" << int(RunTimeError::Overflow);
        QTest::newRow("sound not a number") << "dzwieki" << "tak" << int(RunTimeError::TypeMismatch);
        QTest::newRow("sound above 16 bits") << "dzwieki" << "70000" << int(RunTimeError::Overflow);
    }

    void storedValuesThatDoNotConvertAreRunTimeErrors()
    {
        QFETCH(QString, section);
        QFETCH(QString, value);
        QFETCH(int, error);
        MemorySettingsStore store;
        store.setValue(section, section == QLatin1String("port") ? QStringLiteral("nr_portu") : QStringLiteral("wartosc"),
                       value);
        clsoApp app;
        QCOMPARE(errorOf([&] { app.WczytajOpcje(store); }), error);
    }

};

ZORBEL_TEST_MAIN(OptionsTest)
#include "tst_options.moc"
