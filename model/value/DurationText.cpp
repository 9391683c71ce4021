#include <ZYNCommon/DurationText.h>

#include <ZYNCommon/DecimalText.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace ZYN::DurationText {

namespace {

/// A text of numbers and their units, built in place.
class Pieces {
public:
    /// \param width least number of digits, filled up with zeros
    Pieces& Number(qint64 number, int width = 1)
    {
        char digits[24] = {};
        const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        for (auto missing = width - (end - digits); missing > 0; --missing)
            m_text[m_size++] = u'0';
        for (const char* digit = digits; digit != end; ++digit)
            m_text[m_size++] = static_cast<char16_t>(*digit);
        return *this;
    }
    Pieces& Text(QStringView text)
    {
        std::copy(text.utf16(), text.utf16() + text.size(), m_text + m_size);
        m_size += text.size();
        return *this;
    }
    QString ToString() const { return QStringView(m_text, m_size).toString(); }

private:
    char16_t m_text[64]; ///< three numbers of a duration need half of it
    qsizetype m_size = 0;
};

} // namespace

QString Milliseconds(double seconds)
{
    return DecimalText::FromReal(seconds, 3);
}

QString ForPeople(double seconds)
{
    // Beyond this a text of hours says nothing, and the rounding below would not fit its integer.
    constexpr double LongestSeconds = 1e12;
    if (!(std::abs(seconds) < LongestSeconds))
        return DecimalText::FromReal(seconds) + QStringLiteral(" s");
    if (seconds < 0)
        return QLatin1Char('-') + ForPeople(-seconds);

    const qint64 milliseconds = std::llround(seconds * 1000);
    if (milliseconds < 60'000)
        return Pieces()
            .Number(milliseconds / 1000)
            .Text(u".")
            .Number(milliseconds % 1000, 3)
            .Text(u" s")
            .ToString();
    const qint64 whole = std::llround(seconds);
    if (whole < 3600)
        return Pieces().Number(whole / 60).Text(u" min ").Number(whole % 60, 2).Text(u" s").ToString();
    return Pieces()
        .Number(whole / 3600)
        .Text(u" h ")
        .Number(whole / 60 % 60, 2)
        .Text(u" min ")
        .Number(whole % 60, 2)
        .Text(u" s")
        .ToString();
}

} // namespace ZYN::DurationText
