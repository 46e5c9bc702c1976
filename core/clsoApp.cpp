#include "core/clsoApp.h"

#include "core/Conversions.h"
#include "core/LoginPrompt.h"
#include "core/SettingsStore.h"
#include "ui/clsWizual.h"

#include <QObject>

void clsoApp::setParametrGlobObject(QObject *object)
{
    m_parametrGlob = QVariant::fromValue(object);
}

QObject *clsoApp::ParametrGlobObject() const
{
    return m_parametrGlob.value<QObject *>();
}

QVariant clsoApp::WczytajOpcje(const SettingsStore &store)
{
    nr_portu = conv::toByte(QVariant(store.value(QStringLiteral("port"), QStringLiteral("nr_portu"), QStringLiteral("1"))));
    AdmHaslo = store.value(QStringLiteral("adm_haslo"), QStringLiteral("wartosc"), QStringLiteral("lebroz"));
    Dzwieki = conv::toInt16(QVariant(store.value(QStringLiteral("dzwieki"), QStringLiteral("wartosc"), QStringLiteral("0"))));
    return {};
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
