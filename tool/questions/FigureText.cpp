#include "questions/FigureText.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <cmath>

namespace ZYN::Tool {

namespace {

QString PrefixOf(int factor)
{
    static constexpr std::pair<int, char16_t> prefixes[] = {{-15, u'f'}, {-12, u'p'}, {-9, u'n'},
                                                            {-6, u'µ'},  {-3, u'm'},  {3, u'k'},
                                                            {6, u'M'},   {9, u'G'},   {12, u'T'}};
    for (const auto& [power, prefix] : prefixes)
        if (power == factor)
            return QString(QChar(prefix));
    return {};
}

} // namespace

QString ShareText(qint64 part, qint64 whole)
{
    const double share = whole > 0 ? 100.0 * double(part) / double(whole) : 0.0;
    return Texts::tr("%1 % (%2 of %3)")
        .arg(QString::number(share, 'f', 1), QString::number(part), QString::number(whole));
}

QString TitleOfGroup(const QString& name)
{
    static constexpr std::pair<const char*, const char*> titles[] = {
        {"product", QT_TRANSLATE_NOOP("zyn", "Product")},   {"lot", QT_TRANSLATE_NOOP("zyn", "Lot")},
        {"station", QT_TRANSLATE_NOOP("zyn", "Station")},   {"program", QT_TRANSLATE_NOOP("zyn", "Program")},
        {"position", QT_TRANSLATE_NOOP("zyn", "Position")}, {"site", QT_TRANSLATE_NOOP("zyn", "Site")},
        {"wafer", QT_TRANSLATE_NOOP("zyn", "Wafer")},       {"bin", QT_TRANSLATE_NOOP("zyn", "Bin")},
        {"name", QT_TRANSLATE_NOOP("zyn", "Name")},         {"hour", QT_TRANSLATE_NOOP("zyn", "Hour")},
        {"day", QT_TRANSLATE_NOOP("zyn", "Day")},           {"week", QT_TRANSLATE_NOOP("zyn", "Week")},
        {"month", QT_TRANSLATE_NOOP("zyn", "Month")}};
    for (const auto& [known, title] : titles)
        if (name == QLatin1String(known))
            return Texts::tr(title);
    return name;
}

Scale::Scale(const QString& baseUnit, const NumberStyle& style)
    : m_unit(Harmless(baseUnit))
    , m_base(style.unitCode == 25   ? 16
             : style.unitCode == 26 ? 2
                                    : 10)
    , m_lowerOperator(style.lowerOperator)
{
    const QString prefix = baseUnit.isEmpty() || m_base != 10 ? QString() : PrefixOf(style.factor);
    if (prefix.isEmpty())
        return;
    m_unit = prefix + m_unit;
    m_divisor = std::pow(10.0, style.factor);
}

bool Scale::HasDigits(double number) const
{
    return m_base != 10 && number == std::floor(number) && std::abs(number) < 0x1p53;
}

QString Scale::Number(const std::optional<double>& number) const
{
    if (!number)
        return {};
    return HasDigits(*number) ? QString::number(qint64(*number), m_base)
                              : QString::number(*number / m_divisor, 'g', 5);
}

QString Scale::WithUnit(const std::optional<double>& number) const
{
    const bool hasUnit = number && !m_unit.isEmpty() && (m_base == 10 || HasDigits(*number));
    return hasUnit ? Number(number) + QLatin1Char(' ') + m_unit : Number(number);
}

QString Scale::Range(const std::optional<double>& lower, const std::optional<double>& upper) const
{
    if (lower && upper)
        return QStringLiteral("%1 … %2").arg(Number(lower), WithUnit(upper));
    if (lower)
        return QStringLiteral("≥ ") + WithUnit(lower);
    return upper ? QStringLiteral("≤ ") + WithUnit(upper) : QString();
}

QString Scale::Limits(const std::optional<double>& lower, const std::optional<double>& upper) const
{
    if (lower && m_lowerOperator == QLatin1String("=="))
        return QStringLiteral("= ") + WithUnit(lower);
    if (lower && m_lowerOperator == QLatin1String("!="))
        return QStringLiteral("≠ ") + WithUnit(lower);
    return Range(lower, upper);
}

} // namespace ZYN::Tool
