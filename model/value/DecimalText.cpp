#include <ZYNCommon/DecimalText.h>

#include <QtCore/QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>
#include <optional>

namespace ZYN::DecimalText {

namespace {

constexpr qint64 SmallestPlainExponent = -7;
constexpr qint64 LargestPlainExponent = 15;
/// Beyond this an exponent in a text says nothing more; sums of a few of them stay far inside 64 bits.
constexpr qint64 ExponentBound = 1'000'000'000'000;

/// A decimal number taken apart: the digits without a point and the power of ten of the first one.
struct Decimal {
    bool negative = false;
    char digits[24];
    int count = 0;
    qint64 exponent = 0;
};

/// Builds texts in place. The longest are 24 digits with a sign, a point and an exponent.
class TextBuffer {
public:
    void Append(char c) { m_text[m_size++] = char16_t(c); }
    void Append(const char* text, qint64 count)
    {
        for (qint64 i = 0; i < count; ++i)
            Append(text[i]);
    }
    void AppendZeros(qint64 count)
    {
        for (qint64 i = 0; i < count; ++i)
            Append('0');
    }
    QString ToString() const { return QString(reinterpret_cast<const QChar*>(m_text), m_size); }

private:
    char16_t m_text[64];
    qsizetype m_size = 0;
};

void AppendPlain(TextBuffer& text, const Decimal& number)
{
    if (number.exponent < 0) {
        text.Append("0.", 2);
        text.AppendZeros(-number.exponent - 1);
        text.Append(number.digits, number.count);
        return;
    }
    const qint64 whole = number.exponent + 1;
    text.Append(number.digits, std::min<qint64>(number.count, whole));
    text.AppendZeros(whole - number.count);
    if (number.count > whole) {
        text.Append('.');
        text.Append(number.digits + whole, number.count - whole);
    }
}

void AppendScientific(TextBuffer& text, const Decimal& number)
{
    text.Append(number.digits[0]);
    if (number.count > 1) {
        text.Append('.');
        text.Append(number.digits + 1, number.count - 1);
    }
    text.Append('e');
    text.Append(number.exponent < 0 ? '-' : '+');
    char exponent[24];
    const auto end = std::to_chars(exponent, exponent + sizeof exponent, std::abs(number.exponent)).ptr;
    text.AppendZeros(2 - (end - exponent));
    text.Append(exponent, end - exponent);
}

QString Compose(const Decimal& number)
{
    TextBuffer text;
    if (number.negative)
        text.Append('-');
    if (number.exponent >= SmallestPlainExponent && number.exponent <= LargestPlainExponent)
        AppendPlain(text, number);
    else
        AppendScientific(text, number);
    return text.ToString();
}

/// A whole number of units of 10 to the power of `unit`. Zeros at its end are no digits.
Decimal Take(quint64 magnitude, qint64 unit)
{
    Decimal number;
    const char* end = std::to_chars(number.digits, number.digits + sizeof number.digits, magnitude).ptr;
    number.count = int(end - number.digits);
    number.exponent = magnitude != 0 ? number.count - 1 + unit : 0;
    while (number.count > 1 && number.digits[number.count - 1] == '0')
        --number.count;
    return number;
}

template <typename Real>
Decimal TakeShortest(Real magnitude)
{
    char text[32]; // "d.ddde-308"
    const char* const end =
        std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific).ptr;
    const char* const exponent = std::find<const char*>(text, end, 'e');
    Decimal number;
    number.digits[number.count++] = text[0];
    for (const char* digit = text + 2; digit < exponent; ++digit)
        number.digits[number.count++] = *digit;
    std::from_chars(exponent + 2, end, number.exponent);
    if (exponent[1] == '-')
        number.exponent = -number.exponent;
    return number;
}

template <typename Real>
QString FromRealOf(Real value, int shift)
{
    if (std::isnan(value))
        return QStringLiteral("nan");
    if (std::isinf(value))
        return value < 0 ? QStringLiteral("-inf") : QStringLiteral("inf");
    const Real magnitude = std::abs(value);
    std::optional<FewDigits> few;
    if constexpr (std::same_as<Real, double>) // in single precision other digits are the shortest
        few = ToFewDigits(magnitude);
    Decimal number = few ? Take(few->digits, -few->places) : TakeShortest(magnitude);
    number.negative = std::signbit(value);
    if (value != Real(0))
        number.exponent += shift;
    return Compose(number);
}

template <typename Integer>
QString FromIntegerOf(Integer value, int shift)
{
    if (shift == 0 || value == 0)
        return QString::number(value);
    Decimal number = Take(value < 0 ? quint64(0) - quint64(value) : quint64(value), shift);
    number.negative = value < 0;
    return Compose(number);
}

bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

/// A decimal text that is being read: a cursor over it and the characters kept for the conversion.
class Scanner {
public:
    explicit Scanner(QStringView text)
        : m_at(text.utf16())
        , m_end(m_at + text.size())
    {
        // The kept characters are those of the text with another exponent.
        m_kept.reserve(text.size() + 24);
    }

    bool AtEnd() const { return m_at == m_end; }
    bool Take(char16_t c)
    {
        if (AtEnd() || *m_at != c)
            return false;
        ++m_at;
        return true;
    }
    /// Keeps sign, digits and point. \return false when there is no digit
    bool TakeMantissa();
    /// Reads an exponent with its sign. \return false when there is no digit
    bool TakeExponent(qint64& exponent);
    double Convert(qint64 exponent, bool& ok);
    void Negate() { m_kept.append('-'); }

private:
    const char16_t* m_at;
    const char16_t* m_end;
    QVarLengthArray<char, 96> m_kept;
    bool m_significant = false;
    qint64 m_leading = 0; ///< power of ten of the first significant digit
};

bool Scanner::TakeMantissa()
{
    bool digits = false;
    bool point = false;
    for (; !AtEnd(); ++m_at) {
        if (IsDigit(*m_at)) {
            digits = true;
            if (m_significant) {
                m_leading += point ? 0 : 1;
            } else {
                m_leading -= point ? 1 : 0;
                m_significant = *m_at != u'0';
            }
        } else if (*m_at == u'.' && !point) {
            point = true;
        } else {
            break;
        }
        m_kept.append(char(*m_at));
    }
    return digits;
}

bool Scanner::TakeExponent(qint64& exponent)
{
    const bool negative = Take(u'-');
    if (!negative)
        Take(u'+');
    bool digits = false;
    for (; !AtEnd() && IsDigit(*m_at); ++m_at) {
        digits = true;
        exponent = std::min(exponent * 10 + (*m_at - u'0'), ExponentBound);
    }
    if (negative)
        exponent = -exponent;
    return digits;
}

double Scanner::Convert(qint64 exponent, bool& ok)
{
    if (exponent != 0) {
        char text[24];
        const auto end = std::to_chars(text, text + sizeof text, exponent).ptr;
        m_kept.append('e');
        m_kept.append(text, end - text);
    }
    double value = 0.0;
    const auto result = std::from_chars(m_kept.cbegin(), m_kept.cend(), value);
    ok = true;
    if (result.ec == std::errc())
        return value;
    // Out of range at the small end is a number that rounds to zero; at the large end it is none.
    ok = !m_significant || m_leading + exponent < 0;
    return ok && m_kept.front() == '-' ? -0.0 : 0.0;
}

double Parse(QStringView text, int shift, bool& ok)
{
    Scanner scanner(text);
    const bool negative = scanner.Take(u'-');
    if (negative)
        scanner.Negate();
    else
        scanner.Take(u'+');
    if (!scanner.TakeMantissa())
        return 0.0;
    qint64 exponent = 0;
    if ((scanner.Take(u'e') || scanner.Take(u'E')) && !scanner.TakeExponent(exponent))
        return 0.0;
    if (!scanner.AtEnd())
        return 0.0;
    return scanner.Convert(exponent + shift, ok);
}

} // namespace

QString FromReal(double value, int shift)
{
    return FromRealOf(value, shift);
}

QString FromSingle(float value, int shift)
{
    return FromRealOf(value, shift);
}

QString FromInteger(qint64 value, int shift)
{
    return FromIntegerOf(value, shift);
}

QString FromInteger(quint64 value, int shift)
{
    return FromIntegerOf(value, shift);
}

double ToReal(QStringView text, int shift, bool* ok)
{
    const QStringView trimmed = text.trimmed();
    bool isNumber = false;
    double value = Parse(trimmed, shift, isNumber);
    if (!isNumber) {
        const bool negative = trimmed.startsWith(u'-');
        const QStringView name = negative || trimmed.startsWith(u'+') ? trimmed.mid(1) : trimmed;
        if (name.compare(u"nan", Qt::CaseInsensitive) == 0) {
            value = std::numeric_limits<double>::quiet_NaN();
            isNumber = true;
        } else if (name.compare(u"inf", Qt::CaseInsensitive) == 0) {
            value = std::numeric_limits<double>::infinity() * (negative ? -1 : 1);
            isNumber = true;
        }
    }
    if (ok)
        *ok = isNumber;
    return value;
}

// The quotient of two exact numbers is the double nearest to that decimal, and no two decimals of up to 15
// digits have the same: what is found is the shortest.
std::optional<FewDigits> ToFewDigits(double number)
{
    constexpr int mostPlaces = 15;
    constexpr double tenTo15 = 1e15;
    double units = 1.0;
    for (int places = 0; places <= mostPlaces && number * units < tenTo15; ++places, units *= 10.0) {
        // Should this round the wrong way, the division tells. A rounding function is a call, and slow.
        const auto digits =
            static_cast<quint64>(number * units + 0.5); // NOLINT(bugprone-incorrect-roundings)
        if (static_cast<double>(digits) / units == number)
            return FewDigits{digits, places};
    }
    return std::nullopt;
}

QString ToDigits(qint64 value, int base)
{
    return QString::number(quint64(value), base);
}

} // namespace ZYN::DecimalText
