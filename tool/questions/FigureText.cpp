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
        {"hour", QT_TRANSLATE_NOOP("zyn", "Hour")},         {"day", QT_TRANSLATE_NOOP("zyn", "Day")},
        {"week", QT_TRANSLATE_NOOP("zyn", "Week")},         {"month", QT_TRANSLATE_NOOP("zyn", "Month")}};
    for (const auto& [known, title] : titles)
        if (name == QLatin1String(known))
            return Texts::tr(title);
    return name;
}

Scale::Scale(const QString& baseUnit, int factor)
    : unit(Harmless(baseUnit))
{
    const QString prefix = baseUnit.isEmpty() ? QString() : PrefixOf(factor);
    if (prefix.isEmpty())
        return;
    unit = prefix + unit;
    divisor = std::pow(10.0, factor);
}

QString Scale::Number(const std::optional<double>& number) const
{
    return number ? QString::number(*number / divisor, 'g', 5) : QString();
}

QString Scale::WithUnit(const std::optional<double>& number) const
{
    return !number || unit.isEmpty() ? Number(number) : Number(number) + QLatin1Char(' ') + unit;
}

QString Scale::Limits(const std::optional<double>& lower, const std::optional<double>& upper) const
{
    if (lower && upper)
        return QStringLiteral("%1 … %2").arg(Number(lower), WithUnit(upper));
    if (lower)
        return QStringLiteral("≥ ") + WithUnit(lower);
    return upper ? QStringLiteral("≤ ") + WithUnit(upper) : QString();
}

} // namespace ZYN::Tool
