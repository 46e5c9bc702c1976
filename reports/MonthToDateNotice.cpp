#include "reports/MonthToDateNotice.h"

#include "base/ReactiveTariff.h"
#include "base/RunTimeError.h"
#include "reports/BillingStatement.h"
#include "reports/BillingText.h"

#include <QStringList>

namespace {

constexpr int NamedInText = 3; // controllers named in the bar; all in the tool tip

// The fee of the whole month at the pace of its days so far.
std::optional<double> atPace(const BillingStatement &s, const BillingStatement::Line &line)
{
    if (!line.fee || !s.pace || s.pace->elapsedDays <= 0)
        return std::nullopt;
    return *line.fee * s.pace->periodDays / s.pace->elapsedDays;
}

QString describe(const BillingStatement &s, const BillingStatement::Line &line, bool withFee)
{
    QString text = line.kod + QLatin1Char(' ') + BillingText::tgFi(line.tgFi);
    const std::optional<double> fee = atPace(s, line);
    if (withFee && fee)
        text += QStringLiteral(" (opłata w tym tempie %1)").arg(BillingText::fee(fee));
    return text;
}

}

MonthToDateNotice MonthToDateNotice::check(Database &db, ZDate now, const ReactiveTariff &tariff)
{
    const QDate today = now.date();
    const QDate first(today.year(), today.month(), 1);
    BillingQuery::Scope every;
    every.everyController = true;
    const double tgFi0 = tariff.on(today).tgFi0;
    MonthToDateNotice notice;
    try {
        const BillingStatement s = BillingStatement::compute(db, every, QStringLiteral("wszystkie regulatory"), first,
                                                             first.addMonths(1).addDays(-1), now, tariff);
        QStringList shown, all;
        for (const BillingStatement::Line &line : s.controllers) {
            if (!line.tgFi || *line.tgFi <= tgFi0)
                continue;
            if (shown.size() < NamedInText)
                shown << describe(s, line, shown.isEmpty());
            all << describe(s, line, true);
        }
        if (all.isEmpty())
            return notice;
        const QString head = QStringLiteral("tg φ od początku miesiąca powyżej %1: ").arg(BillingText::number(tgFi0, 2));
        notice.text = head + shown.join(QStringLiteral(", "));
        if (all.size() > shown.size())
            notice.text += QStringLiteral(" i %1 inne").arg(all.size() - shown.size());
        notice.toolTip = head + QLatin1Char('\n') + all.join(QLatin1Char('\n'));
    } catch (const RunTimeError &e) {
        notice.text = QStringLiteral("Rozliczenie energii biernej: ") + e.message();
    }
    return notice;
}
