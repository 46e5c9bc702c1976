#include "station/ControllerLoader.h"

#include "base/Conversions.h"
#include "base/NumberForm.h"
#include "base/RunTimeError.h"
#include "db/RowSet.h"
#include "model/colRegulatory.h"

#include <optional>

namespace {

// A threshold that is NULL lies beyond every reading.
constexpr float NoThreshold = 999999999.0f;

float voltageScale(std::int16_t napieciePomiar)
{
    switch (napieciePomiar) {
    case 100: return 0.25f;
    case 380: return 1.0f;
    case 500: return 1.25f;
    default: return 0.0f;
    }
}

// The row as the operator finds it in the editor: its code and, once read,
// its address (a code may be blank or repeated).
QString rowOf(const QString &kod, std::optional<std::int16_t> adres = std::nullopt)
{
    QString who = kod.isNull() ? QString() : QStringLiteral(", Kod \"%1\"").arg(kod);
    if (adres)
        who += QStringLiteral(", Adres %1").arg(*adres);
    return who;
}

// Runs one conversion and puts the place of a failure in front of its message.
template <typename F>
decltype(auto) at(const QString &table, const QString &column, const QString &row, F &&convert)
{
    try {
        return convert();
    } catch (const RunTimeError &e) {
        throw e.within(QStringLiteral("tabela %1, kolumna %2%3").arg(table, column, row));
    }
}

}

clRegulator &ControllerLoader::load(std::int16_t id)
{
    const QString table = QStringLiteral("Regulatory");
    const QString kod = at(table, QStringLiteral("Kod"), QString(),
                           [&] { return conv::toText(m_rows.field(QStringLiteral("Kod"))).trimmed(); });
    const std::int16_t adres = at(table, QStringLiteral("Adres"), rowOf(kod),
                                  [&] { return conv::toInt16(m_rows.field(QStringLiteral("Adres"))); });
    clRegulator &r = at(table, QStringLiteral("Kod"), rowOf(kod, adres), [&]() -> clRegulator & {
        return m_controllers.Add(adres, kod, kod);
    });
    seedFromLastSample(r);
    r.Id = id;
    readConfiguration(r);
    return r;
}

void ControllerLoader::seedFromLastSample(clRegulator &r)
{
    if (m_last.isEmpty())
        return;
    m_last.MoveFirst();
    m_last.Find(QStringLiteral("Adres=") + numberForm(r.adres));
    if (m_last.EOF_())
        return;
    const QString table = QStringLiteral("OstPomiar");
    const QString row = rowOf(r.Kod, r.adres);
    auto single = [&](const char *column) {
        const QString c = QString::fromLatin1(column);
        return at(table, c, row, [&] { return conv::toSingle(m_last.field(c)); });
    };
    r.PopPradBiernPojSr = single("PopPradBiernPojSr");
    r.PopPradBiernSr = single("PopPradBiernSr");
    r.PopPradCzynny = single("PopPradCzynny");
    r.popTimerU = at(table, QStringLiteral("PopTimerU"), row,
                     [&] { return conv::toInt32(m_last.field(QStringLiteral("PopTimerU"))); });
    r.OstatniOdczyt = at(table, QStringLiteral("Czas"), row, [&] {
        const QVariant v = m_last.field(QStringLiteral("Czas"));
        if (v.isNull())
            throw RunTimeError::invalidUseOfNull();
        bool ok = false;
        const ZDate d = ZDate::fromVariant(v, &ok);
        if (!ok)
            throw RunTimeError::typeMismatch();
        return d;
    });
}

void ControllerLoader::readConfiguration(clRegulator &r)
{
    const QString table = QStringLiteral("Regulatory");
    const QString row = rowOf(r.Kod, r.adres);
    auto field = [&](const char *column) { return m_rows.field(QString::fromLatin1(column)); };
    auto int16 = [&](const char *column) {
        return at(table, QString::fromLatin1(column), row, [&] { return conv::toInt16(field(column)); });
    };
    auto single = [&](const char *column) {
        // a NULL here (a filter bound left empty in the editor) stops the start, naming row and column
        return at(table, QString::fromLatin1(column), row, [&] { return conv::toSingle(field(column)); });
    };
    auto threshold = [&](const char *column) {
        return field(column).isNull() ? NoThreshold : single(column);
    };

    r.typ = field("Typ").toString().trimmed();
    r.CzestOdczytu = int16("CzestOdczytu");
    r.NapieciePomiar = int16("NapieciePomiar");
    r.ProgNapiecie = threshold("ProgNapiecie");
    r.ProgPrad = threshold("ProgPrad");
    r.ProgTgFiMin = threshold("ProgTgFiMin");
    r.ProgTgFiMax = threshold("ProgTgFi");
    r.Przekladnia = single("Przekladnia");
    r.PrzekladniaNap = int16("PrzekladniaNap");
    r.EnCzynnaMin = single("EnCzynnaMin");
    r.EnCzynnaMax = single("EnCzynnaMax");
    r.EnBiernaCalkMin = single("EnBiernaCalkMin");
    r.EnBiernaCalkMax = single("EnBiernaCalkMax");
    r.EnBiernaPojMin = single("EnBiernaPojMin");
    r.EnBiernaPojMax = single("EnBiernaPojMax");
    r.NapiecieMin = single("NapiecieMin");
    r.NapiecieMax = single("NapiecieMax");
    r.PradCzynnyMin = single("PradCzynnyMin");
    r.PradCzynnyMax = single("PradCzynnyMax");
    r.PradBiernyMin = single("PradBiernyMin");
    r.PradBiernyMax = single("PradBiernyMax");
    r.PradCalkMin = single("PradCalkMin");
    r.PradCalkMax = single("PradCalkMax");
    r.CzestotliwoscMin = single("CzestotliwoscMin");
    r.CzestotliwoscMax = single("CzestotliwoscMax");
    r.setAktywny(at(table, QStringLiteral("aktywny"), row,
                    [&] { return conv::toText(field("aktywny")) == QLatin1String("Tak"); }));
    r.awarCzest = int16("awarCzest");
    r.SkalaNapiecia = voltageScale(r.NapieciePomiar);
}
