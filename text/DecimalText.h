#pragma once

#include <QtCore/QString>

#include <optional>

/// Numbers as decimal texts and back. No digit of a number is lost.
namespace ZYN::DecimalText {

/// The shortest decimal that reads back as exactly this number, multiplied with a power of ten by moving
/// the decimal point. "nan", "inf" and "-inf" for what is no number. Locale-independent.
///
/// Plain digits where the decimal exponent is from -7 to 15, else scientific ("1.5e-09").
QString FromReal(double value, int shift = 0);
/// The same with the shortest decimal that reads back as this number of single precision.
QString FromSingle(float value, int shift = 0);
/// The same of an integer: always plain digits when nothing is shifted.
QString FromInteger(qint64 value, int shift = 0);
QString FromInteger(quint64 value, int shift = 0);

/// The number that a decimal text gives when its decimal point is moved by `shift` places before the
/// conversion: correctly rounded, where multiplying with a computed power of ten is off by a bit.
/// \param ok set to whether the text is a number ("nan", "inf", "-inf" are; "1e999" is not)
/// \return 0.0 when it is not
double ToReal(QStringView text, int shift = 0, bool* ok = nullptr);

/// A number as a whole number of units of ten to the power of `-places`.
struct FewDigits {
    quint64 digits = 0;
    int places = 0;
};
/// The shortest decimal of a number that has up to 15 digits and 15 places, as instruments give them; much
/// faster than the general conversion. Nothing for other numbers, and for negative ones.
std::optional<FewDigits> ToFewDigits(double number);

/// Lower-case digits in two's complement, without a prefix; 64 bits for negative numbers.
QString ToDigits(qint64 value, int base);

} // namespace ZYN::DecimalText
