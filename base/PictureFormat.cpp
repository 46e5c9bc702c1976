#include "base/PictureFormat.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

namespace {

bool isPlaceholder(QChar c) { return c == QLatin1Char('0') || c == QLatin1Char('#'); }

// |value| as decimal digits with `places` digits after the point, rounded
// half away from zero from its first `significant` digits.
QString roundedDigits(double magnitude, int significant, int places)
{
    // "d.ddddde±x": the value to its significant digits, correctly rounded
    const QString e = QString::number(magnitude, 'e', significant - 1);
    const int exponent = e.mid(e.indexOf(QLatin1Char('e')) + 1).toInt();
    QString digits = e.left(e.indexOf(QLatin1Char('e'))).remove(QLatin1Char('.'));
    // place the point: `intCount` digits stand before it
    int intCount = exponent + 1;
    if (intCount < 1) {
        digits.prepend(QString(1 - intCount, QLatin1Char('0')));
        intCount = 1;
    }
    const int keep = intCount + places;
    if (digits.size() < keep + 1)
        digits.append(QString(keep + 1 - digits.size(), QLatin1Char('0')));
    const bool up = digits.at(keep) >= QLatin1Char('5');
    digits.truncate(keep);
    for (int i = keep - 1; up && i >= 0; --i) {
        if (digits[i] == QLatin1Char('9')) {
            digits[i] = QLatin1Char('0');
            if (i == 0)
                digits.prepend(QLatin1Char('1'));
        } else {
            digits[i] = QChar(digits[i].unicode() + 1);
            break;
        }
    }
    // the point as a '.' in the digits; the caller splits on it
    digits.insert(digits.size() - places, QLatin1Char('.'));
    return digits;
}

// Integer digits into the placeholders from the right; a '#' with no digit
// left stays empty, a '0' shows one; digits to spare go before the first.
QString fillInteger(const QString &picture, QString digits)
{
    while (digits.startsWith(QLatin1Char('0')))
        digits.remove(0, 1);
    QString out;
    qsizetype afterFirst = -1; // characters from the first placeholder's place to the end
    for (qsizetype i = picture.size() - 1; i >= 0; --i) {
        const QChar c = picture.at(i);
        if (isPlaceholder(c) && !digits.isEmpty()) {
            out.prepend(digits.back());
            digits.chop(1);
        } else if (c != QLatin1Char('#')) {
            out.prepend(c); // a forced zero or a literal
        }
        if (isPlaceholder(c))
            afterFirst = out.size();
    }
    if (afterFirst >= 0)
        out.insert(out.size() - afterFirst, digits);
    return out;
}

// Fraction digits into the placeholders from the left; trailing zeros on
// '#' places are left out.
QString fillFraction(const QString &picture, const QString &digits)
{
    int lastForced = -1;
    int n = 0;
    for (QChar c : picture)
        if (isPlaceholder(c)) {
            if (c == QLatin1Char('0'))
                lastForced = n;
            ++n;
        }
    int significantEnd = digits.size();
    while (significantEnd > lastForced + 1 && digits.at(significantEnd - 1) == QLatin1Char('0'))
        --significantEnd;
    QString out;
    n = 0;
    for (QChar c : picture) {
        if (!isPlaceholder(c))
            out.append(c);
        else if (n++ < significantEnd)
            out.append(digits.at(n - 1));
    }
    return out;
}

int fractionPlaces(const QString &picture)
{
    const int point = picture.indexOf(QLatin1Char('.'));
    if (point < 0)
        return 0;
    int places = 0;
    for (int i = point + 1; i < picture.size(); ++i)
        places += isPlaceholder(picture.at(i)) ? 1 : 0;
    return places;
}

}

QString pictureFormat(double value, const QString &picture, int significantDigits)
{
    if (!std::isfinite(value))
        return QString::number(value);
    const QStringList sections = picture.split(QLatin1Char(';'));
    const double magnitude = std::fabs(value);
    QString section = sections.at(0);
    if (value < 0 && sections.size() >= 2)
        section = sections.at(1);
    else if (value == 0 && sections.size() >= 3)
        section = sections.at(2);
    const int places = fractionPlaces(section);
    const QString rounded = magnitude == 0 ? QStringLiteral("0.") + QString(places, QLatin1Char('0'))
                                           : roundedDigits(magnitude, significantDigits, places);
    const int point = rounded.indexOf(QLatin1Char('.'));
    const QString intDigits = rounded.left(point);
    const QString fracDigits = rounded.mid(point + 1);
    const int picturePoint = section.indexOf(QLatin1Char('.'));
    QString out = fillInteger(picturePoint < 0 ? section : section.left(picturePoint), intDigits);
    if (picturePoint >= 0)
        out += QLatin1Char('.') + fillFraction(section.mid(picturePoint + 1), fracDigits);
    const bool roundsToZero = std::all_of(rounded.cbegin(), rounded.cend(),
                                          [](QChar c) { return c == QLatin1Char('0') || c == QLatin1Char('.'); });
    // one section: a negative number takes a minus sign in front
    if (value < 0 && sections.size() < 2 && !roundsToZero)
        out.prepend(QLatin1Char('-'));
    return out;
}

QString pictureFormatComma(double value, const QString &picture, int significantDigits)
{
    const auto swapped = [](QString text) {
        for (QChar &c : text)
            c = c == QLatin1Char(',') ? QLatin1Char('.') : c == QLatin1Char('.') ? QLatin1Char(',') : c;
        return text;
    };
    return swapped(pictureFormat(value, swapped(picture), significantDigits));
}
