#include "base/NumberForm.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// Digits (no point) and the decimal exponent of the first digit, the
// shortest that read back as the same value at the given precision.
template <typename T>
void shortestDigits(T value, int maxDigits, std::string &digits, int &exponent)
{
    char buf[64];
    for (int p = 1; p <= maxDigits; ++p) {
        std::snprintf(buf, sizeof buf, "%.*e", p - 1, double(value));
        if (p == maxDigits || T(std::strtod(buf, nullptr)) == value)
            break;
    }
    // buf is "d.ddde±XX"
    const std::string s(buf);
    const auto e = s.find('e');
    exponent = std::atoi(s.c_str() + e + 1);
    digits.clear();
    for (std::size_t i = 0; i < e; ++i)
        if (s[i] >= '0' && s[i] <= '9')
            digits += s[i];
    while (digits.size() > 1 && digits.back() == '0')
        digits.pop_back();
}

std::string fixedForm(const std::string &digits, int exponent)
{
    if (exponent < 0)
        return "0." + std::string(std::size_t(-exponent - 1), '0') + digits;
    const std::size_t intLen = std::size_t(exponent) + 1;
    if (digits.size() <= intLen)
        return digits + std::string(intLen - digits.size(), '0');
    return digits.substr(0, intLen) + "." + digits.substr(intLen);
}

std::string exponentForm(const std::string &digits, int exponent)
{
    std::string mant = digits.substr(0, 1);
    if (digits.size() > 1)
        mant += "." + digits.substr(1);
    char exp[16];
    std::snprintf(exp, sizeof exp, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    return mant + exp;
}

template <typename T>
QString format(T value, int maxDigits)
{
    if (std::isnan(value))
        return QStringLiteral(" NaN");
    const bool negative = std::signbit(value) && value != 0;
    const T magnitude = std::fabs(value);
    if (std::isinf(magnitude))
        return negative ? QStringLiteral("-Inf") : QStringLiteral(" Inf");
    if (magnitude == 0)
        return QStringLiteral(" 0");
    std::string digits;
    int exponent = 0;
    shortestDigits(magnitude, maxDigits, digits, exponent);
    // Fixed form while every significant digit has its place within maxDigits positions.
    const bool fixed = exponent >= -4 && exponent < maxDigits;
    const std::string body = fixed ? fixedForm(digits, exponent) : exponentForm(digits, exponent);
    return QString::fromLatin1((negative ? "-" : " ") + body);
}

}

QString numberForm(float value) { return format(value, 7); }
QString numberForm(double value) { return format(value, 15); }

QString numberForm(std::int64_t value)
{
    return (value < 0 ? QString() : QStringLiteral(" ")) + QString::number(value);
}
