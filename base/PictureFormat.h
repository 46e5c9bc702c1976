#pragma once

#include <QString>

// A number written by a picture such as "##########0.000" or "0.000;(0.000)":
//   0  a digit, shown even when it is a leading or trailing zero
//   #  a digit, left out when it is a leading or trailing zero
//   .  the decimal point, always shown when the picture has one
// Other characters stand as they are. Digits beyond the integer places
// go in front of the first. A picture of two sections ";"-separated gives
// negative numbers the second without a minus sign; a third is for zero.
// The value is rounded half away from zero on its decimal digits: 7
// significant for a single, 15 for a double, so 1.0005f with three places
// gives "1.001". A value that rounds to zero shows no sign.
QString pictureFormat(double value, const QString &picture, int significantDigits = 15);
inline QString pictureFormat(float value, const QString &picture) { return pictureFormat(double(value), picture, 7); }
// The same for the printed reports' pictures, where ',' is the decimal sign
// ("0,000;(0,000)") and the number shows a comma.
QString pictureFormatComma(double value, const QString &picture, int significantDigits = 15);
