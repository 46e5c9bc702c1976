#pragma once

#include <QString>
#include <QVariant>
#include <cstdint>

class LoginPrompt;
class QObject;
class SettingsStore;
class clsWizual;

// The state of one running station: selection, control mode, alarm counters,
// which child windows exist, and the three options of the settings store.
// A plain bag of fields, in their declared order.
class clsoApp {
public:
    bool Loaded_Komun = false;            // declared, never set or read
    bool Loaded_Panel = false;            // the front panel window exists
    std::int16_t IloscAktywnychAlarmow = 0;
    std::int16_t IloscNiePotwAlarmow = 0;
    std::int16_t AutoKor = 0;             // declared, never set or read
    std::int16_t AutoLiniaReg1 = 0;       // declared, never set or read
    std::int16_t AutoLiniaReg2 = 0;       // declared, never set or read
    std::int16_t NrAktRegulatora = 0;     // Id of the current controller
    bool Loaded_Dane = false;             // the measurement data window exists
    std::uint8_t nr_portu = 0;
    QString Znakdaty;                     // brackets a date literal in a query
    bool TrybSterowania = false;          // control mode
    std::int16_t IloscRegulatorow = 0;
    QString AdmHaslo;
    std::int16_t Dzwieki = 0;             // stored and shown; playing ignores it
    QString AktElStruktury;
    QString AktTypEl;                     // "R", "S" or empty

    // A slot for a modal dialog's answer: a value is read back as a copy,
    // an object as a reference to the same object.
    const QVariant &ParametrGlob() const { return m_parametrGlob; }
    void setParametrGlob(const QVariant &value) { m_parametrGlob = value; }
    void setParametrGlobObject(QObject *object);
    QObject *ParametrGlobObject() const;

    // Reads port, password and sound option from the store, in that order.
    // A stored value that does not convert raises the run-time error.
    QVariant WczytajOpcje(const SettingsStore &store);
    // Writes the port and the sound option as given and the password in
    // force (not a new one being typed) to the store.
    void ZapiszOpcje(SettingsStore &store, const QString &port, const QString &dzwieki);
    // The login of the one user with the administrator's password.
    bool SprawdzLogin(const QString &user, const QString &password) const;

    // The one way into control mode and out of it. Asking for it (true)
    // shows the login window and clears `tryb` unless the login answered
    // true; leaving needs no password. The outcome is stored, told to the
    // hub in every case, and returned.
    bool UstawTrybSterowania(bool &tryb, LoginPrompt &login, clsWizual &wizual);
    // Asks for the mode opposite to the present one.
    bool PrzelaczTrybSterowania(LoginPrompt &login, clsWizual &wizual);

private:
    QVariant m_parametrGlob;
};
