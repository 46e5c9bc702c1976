#include "core/clsoApp.h"

#include "core/Conversions.h"
#include "core/SettingsStore.h"

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
