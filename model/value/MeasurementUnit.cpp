#include <ZYNCommon/MeasurementUnit.h>

#include <array>

namespace ZYN {

namespace {

struct UnitTexts {
    QStringView text;
    QLatin1StringView ascii;
};

constexpr UnitTexts Unit(QStringView text, const char* ascii)
{
    return {text, QLatin1StringView(ascii)};
}

/// Indexed by the unit's code.
constexpr std::array Units{
    Unit(u"", ""),     Unit(u"V", "V"),          Unit(u"A", "A"),     Unit(u"\u03A9", "Ohm"),
    Unit(u"F", "F"),   Unit(u"H", "H"),          Unit(u"Hz", "Hz"),   Unit(u"s", "s"),
    Unit(u"W", "W"),   Unit(u"\u00B0C", "degC"), Unit(u"%", "%"),     Unit(u"K", "K"),
    Unit(u"dB", "dB"), Unit(u"m", "m"),          Unit(u"g", "g"),     Unit(u"Pa", "Pa"),
    Unit(u"N", "N"),   Unit(u"C", "C"),          Unit(u"J", "J"),     Unit(u"lm", "lm"),
    Unit(u"cd", "cd"), Unit(u"lx", "lx"),        Unit(u"T", "T"),     Unit(u"rpm", "rpm"),
    Unit(u"S", "S"),   Unit(u"hex", "hex"),      Unit(u"bin", "bin"),
};
static_assert(Units.size() == MeasurementUnit::Binary + 1);

bool IsKnown(int code)
{
    return code >= 0 && code < int(Units.size());
}

} // namespace

MeasurementUnit::MeasurementUnit(int code)
    : m_code(code)
{
}

int MeasurementUnit::GetCode() const
{
    return m_code;
}

QString MeasurementUnit::ToString() const
{
    if (!IsKnown(m_code))
        return {};
    // The texts are constants: a report asks for them in every row, so they are not copied.
    const QStringView text = Units[size_t(m_code)].text;
    return QString::fromRawData(text.data(), text.size());
}

QString MeasurementUnit::ToAsciiString() const
{
    return IsKnown(m_code) ? QString(Units[size_t(m_code)].ascii) : QString();
}

QList<int> MeasurementUnit::KnownCodes()
{
    QList<int> codes;
    for (int code = None; IsKnown(code); ++code)
        codes.append(code);
    return codes;
}

} // namespace ZYN
