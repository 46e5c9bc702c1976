#include "model/clsoApp.h"

#include "base/Conversions.h"
#include "base/LoginPrompt.h"
#include "base/SettingsStore.h"
#include "base/clsWizual.h"

#include <QObject>

void clsoApp::setParametrGlobObject(QObject *object)
{
    m_parametrGlob = QVariant::fromValue(object);
}

QObject *clsoApp::ParametrGlobObject() const
{
    return m_parametrGlob.value<QObject *>();
}

namespace {

// The three options: section and key in the settings store, and the default.
struct Option {
    const char *section;
    const char *key;
    const char *fallback;
    QString read(const SettingsStore &store) const
    {
        return store.value(QLatin1String(section), QLatin1String(key), QLatin1String(fallback));
    }
    void write(SettingsStore &store, const QString &value) const
    {
        store.setValue(QLatin1String(section), QLatin1String(key), value);
    }
};
constexpr Option PortOption{"port", "nr_portu", "1"};
constexpr Option PasswordOption{"adm_haslo", "wartosc", "lebroz"};
constexpr Option SoundOption{"dzwieki", "wartosc", "0"};

// the one user of the system; there is no table of users
const QString UserName = QStringLiteral("kastor");

}

QVariant clsoApp::WczytajOpcje(const SettingsStore &store)
{
    nr_portu = conv::toByte(QVariant(PortOption.read(store)));
    AdmHaslo = PasswordOption.read(store);
    Dzwieki = conv::toInt16(QVariant(SoundOption.read(store)));
    return {};
}

void clsoApp::ZapiszOpcje(SettingsStore &store, const QString &port, const QString &dzwieki)
{
    PortOption.write(store, port);
    PasswordOption.write(store, AdmHaslo);
    SoundOption.write(store, dzwieki);
}

bool clsoApp::SprawdzLogin(const QString &user, const QString &password) const
{
    return password == AdmHaslo && user == UserName;
}

namespace {

// The slot as the login leaves it: nothing yet (empty) counts as false too.
bool comparesEqualToFalse(const QVariant &v)
{
    return !v.isValid() || v.isNull() || (v.canConvert<bool>() && !v.toBool());
}

}

bool clsoApp::UstawTrybSterowania(bool &tryb, LoginPrompt &login, clsWizual &wizual)
{
    if (tryb) {
        // the slot is not cleared first: a login window closed by its own
        // close box leaves the last login's answer standing, and that counts
        login.showLogin();
        if (comparesEqualToFalse(m_parametrGlob))
            tryb = false;
    }
    TrybSterowania = tryb;
    wizual.eZmianaTrybuSterowania(tryb);
    return tryb;
}

bool clsoApp::PrzelaczTrybSterowania(LoginPrompt &login, clsWizual &wizual)
{
    bool tryb = !TrybSterowania;
    return UstawTrybSterowania(tryb, login, wizual);
}
