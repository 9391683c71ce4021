#include <ZYNCommon/MeasurementUnit.h>

#include <array>

namespace ZYN {

namespace {

struct UnitTexts {
    QStringView text;
    QStringView ascii;
};

/// Indexed by the unit's code.
constexpr std::array units{
    UnitTexts{u"", u""},       UnitTexts{u"V", u"V"},
    UnitTexts{u"A", u"A"},     UnitTexts{u"\u03A9", u"Ohm"},
    UnitTexts{u"F", u"F"},     UnitTexts{u"H", u"H"},
    UnitTexts{u"Hz", u"Hz"},   UnitTexts{u"s", u"s"},
    UnitTexts{u"W", u"W"},     UnitTexts{u"\u00B0C", u"degC"},
    UnitTexts{u"%", u"%"},     UnitTexts{u"K", u"K"},
    UnitTexts{u"dB", u"dB"},   UnitTexts{u"m", u"m"},
    UnitTexts{u"g", u"g"},     UnitTexts{u"Pa", u"Pa"},
    UnitTexts{u"N", u"N"},     UnitTexts{u"C", u"C"},
    UnitTexts{u"J", u"J"},     UnitTexts{u"lm", u"lm"},
    UnitTexts{u"cd", u"cd"},   UnitTexts{u"lx", u"lx"},
    UnitTexts{u"T", u"T"},     UnitTexts{u"rpm", u"rpm"},
    UnitTexts{u"S", u"S"},     UnitTexts{u"hex", u"hex"},
    UnitTexts{u"bin", u"bin"},
};
static_assert(units.size() == MeasurementUnit::Binary + 1);

bool IsKnown(int code)
{
    return code >= 0 && code < int(units.size());
}

/// The texts are constants: a report asks for them in every row, so they are not copied.
QString Constant(QStringView text)
{
    return QString::fromRawData(text.data(), text.size());
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
    return IsKnown(m_code) ? Constant(units[size_t(m_code)].text) : QString();
}

QString MeasurementUnit::ToAsciiString() const
{
    return IsKnown(m_code) ? Constant(units[size_t(m_code)].ascii) : QString();
}

QList<int> MeasurementUnit::KnownCodes()
{
    QList<int> codes;
    for (int code = None; IsKnown(code); ++code)
        codes.append(code);
    return codes;
}

} // namespace ZYN
