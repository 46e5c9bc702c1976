#pragma once

#include "base/clsWizual.h"

#include <QList>
#include <QString>
#include <QVariantList>

// Keeps every interface event with its arguments, in order.
class RecordingWizual final : public clsWizual {
public:
    struct Call {
        QString name;
        QVariantList args;
        bool operator==(const Call &) const = default;
    };

    void eZmianaTrybuSterowania(bool tryb) override { record("eZmianaTrybuSterowania", {tryb}); }
    void eAlarm(std::int16_t Id, std::int16_t Typ, const QString &Opis, bool flag) override
    {
        record("eAlarm", {Id, Typ, Opis, flag});
    }
    void eKomunikacja(std::int16_t Stan) override { record("eKomunikacja", {Stan}); }
    void eMonitoring(std::int16_t Id, bool Stan) override { record("eMonitoring", {Id, Stan}); }
    void eOkresowyOdczyt(std::int16_t Id, bool Stan) override { record("eOkresowyOdczyt", {Id, Stan}); }
    void eZalaczanieBaterii(std::int16_t Id, bool Stan) override { record("eZalaczanieBaterii", {Id, Stan}); }
    void eWylaczanieBaterii(std::int16_t Id, bool Stan) override { record("eWylaczanieBaterii", {Id, Stan}); }
    void eZapisDB(bool Stan) override { record("eZapisDB", {Stan}); }
    void eNoweDane(std::int16_t Id, const QString &Typ) override { record("eNoweDane", {Id, Typ}); }
    void eZmianaBaterii(std::int16_t Id, std::int16_t Nr) override { record("eZmianaBaterii", {Id, Nr}); }
    void eZmianaAlarmow() override { record("eZmianaAlarmow", {}); }
    void eZmianaRegulatora(std::int16_t Id) override { record("eZmianaRegulatora", {Id}); }
    void eBlokowanieRegul(std::int16_t Id, bool Blokada, bool Stan) override
    {
        record("eBlokowanieRegul", {Id, Blokada, Stan});
    }
    void eBlokadaRegul(std::int16_t Id, bool Blokada, bool Dzwiek) override
    {
        record("eBlokadaRegul", {Id, Blokada, Dzwiek});
    }
    void GrajDzwiek(const QString &Plik) override { record("GrajDzwiek", {Plik}); }

    // The calls of one operation, as their argument lists.
    QList<QVariantList> argsOf(const QString &name) const
    {
        QList<QVariantList> found;
        for (const Call &c : calls)
            if (c.name == name)
                found.append(c.args);
        return found;
    }

    QList<Call> calls;

private:
    void record(const char *name, const QVariantList &args) { calls.append({QString::fromLatin1(name), args}); }
};
