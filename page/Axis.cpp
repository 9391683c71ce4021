#include "page/Axis.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace ZYN::Page {

namespace {

constexpr std::array<const char*, 9> prefixes = {"p", "n", "µ", "m", "", "k", "M", "G", "T"};
constexpr int leastExponent = -12;
constexpr int mostExponent = 12;
constexpr double largest = 1e300;   // further values are beyond any axis
constexpr double leastSpan = 1e-12; // of the values: less is a single place

// Units that people write with a prefix; "°C", "%", "rpm" are not.
bool TakesPrefix(const QString& unit)
{
    static const QStringList units{QStringLiteral("V"),   QStringLiteral("A"), QStringLiteral("\u03A9"),
                                   QStringLiteral("Ohm"), QStringLiteral("F"), QStringLiteral("H"),
                                   QStringLiteral("Hz"),  QStringLiteral("s"), QStringLiteral("W"),
                                   QStringLiteral("m"),   QStringLiteral("g"), QStringLiteral("Pa"),
                                   QStringLiteral("N"),   QStringLiteral("C"), QStringLiteral("J"),
                                   QStringLiteral("T"),   QStringLiteral("S")};
    return units.contains(unit);
}

int ExponentFor(double magnitude, const QString& unit)
{
    if (!TakesPrefix(unit) || magnitude <= 0 || !std::isfinite(magnitude))
        return 0;
    const int exponent = 3 * int(std::floor(std::log10(magnitude) / 3 + 1e-9));
    return std::clamp(exponent, leastExponent, mostExponent);
}

QString Prefixed(int exponent, const QString& unit)
{
    return QString::fromUtf8(prefixes.at(size_t((exponent - leastExponent) / 3))) + unit;
}

double RoundStep(double step)
{
    const double power = std::pow(10, std::floor(std::log10(step)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (step <= factor * power * (1 + 1e-9))
            return factor * power;
    return 10 * power;
}

} // namespace

Axis::Axis(double from, double to, int count)
{
    from = std::clamp(from, -largest, largest);
    to = std::clamp(to, -largest, largest);
    if (!(to - from > std::max({std::abs(from), std::abs(to), 1 / largest}) * leastSpan)) {
        const double room = std::max(std::abs(from) * 0.05, 1e-12);
        to = from + room;
        from -= room;
    }
    m_step = RoundStep((to - from) / count);
    m_from = std::floor(from / m_step + 1e-9) * m_step;
    m_to = std::ceil(to / m_step - 1e-9) * m_step;
}

Axis Axis::Exact(double from, double to)
{
    Axis axis(from, to, 1);
    axis.m_from = from;
    axis.m_to = to;
    axis.m_step = to - from;
    return axis;
}

Axis Axis::UpTo(double to, int count)
{
    Axis axis(0, to, count);
    axis.m_step = std::max(axis.m_step, 1.0);
    axis.m_to = to;
    return axis;
}

int Axis::Exponent(const QString& unit) const
{
    return ExponentFor(std::max(std::abs(m_from), std::abs(m_to)), unit);
}

std::vector<Tick> Axis::Ticks(const QString& unit) const
{
    const int exponent = Exponent(unit);
    const double scale = std::pow(10, exponent);
    const int decimals = std::clamp(int(std::ceil(-std::log10(m_step / scale) - 1e-9)), 0, 12);
    const double most = std::max(std::abs(m_from), std::abs(m_to));
    const bool isLong = decimals > 6 || most / scale >= 1e7;
    const int digits = int(std::ceil(std::log10(most / m_step) - 1e-9)) + 1; // neighbours differ in the last
    std::vector<Tick> ticks;
    const int count = int(std::floor((m_to - m_from) / m_step + 1e-6));
    for (int i = 0; i <= count; ++i) {
        const double value = m_from + i * m_step;
        const double shown = std::abs(value) < m_step * 1e-6 ? 0 : value / scale;
        ticks.push_back({value, isLong ? ShortNumber(shown, digits) : QString::number(shown, 'f', decimals)});
    }
    return ticks;
}

QString Axis::UnitText(const QString& unit) const
{
    return Prefixed(Exponent(unit), unit);
}

QString ShortNumber(double value, int digits)
{
    return QString::number(value, 'g', digits);
}

QString WithUnit(double value, const QString& unit, int digits)
{
    const int exponent = ExponentFor(std::abs(value), unit);
    const QString number = ShortNumber(value / std::pow(10, exponent), digits);
    return unit.isEmpty() ? number : number + QChar(0x202F) + Prefixed(exponent, unit);
}

} // namespace ZYN::Page
