#include "page/NumberText.h"

#include "page/Axis.h"
#include "page/PageTexts.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>
#include <cmath>

namespace ZYN::Page {

namespace {

const QString dash = QString(QChar(0x2013));
constexpr int fewDigits = 5;
constexpr int limitDigits = 7; // what a float of a lot file holds
constexpr int manyDigits = 12;

int BaseOf(const NumberStyle& style)
{
    return style.unitCode == 25 ? 16 : style.unitCode == 26 ? 2 : 10;
}

QString PlaceText(const RunPlace& place)
{
    return Texts::tr("unit %1, %2").arg(place.serial, TimeText(place.start));
}

} // namespace

QString TimeText(const QString& start)
{
    static const QRegularExpression parts(
        QStringLiteral("^(\\d{4}-\\d\\d-\\d\\d)T(\\d\\d:\\d\\d:\\d\\d)(?:\\.\\d+)?"));
    return QString(start).replace(parts, QStringLiteral("\\1 \\2"));
}

QString Percent(double part, double whole)
{
    return whole > 0 ? QString::number(100 * part / whole, 'f', 1) + QChar(0xA0) + QLatin1Char('%')
                     : QString();
}

QString Share(double part, double whole)
{
    if (!(whole > 0))
        return dash;
    return Texts::tr("%1 (%2 of %3)")
        .arg(Percent(part, whole), QString::number(part, 'f', 0), QString::number(whole, 'f', 0));
}

QString Of(std::int64_t part, std::int64_t whole)
{
    return Texts::tr("%1 of %2").arg(QString::number(part), QString::number(whole));
}

QString Figure(const std::optional<double>& value, const QString& unit, const NumberStyle& style, int digits)
{
    if (!value)
        return dash;
    const int base = BaseOf(style);
    if (base == 10)
        return WithUnit(*value, unit, digits);
    if (*value != std::floor(*value) || std::abs(*value) >= 0x1p53)
        return ShortNumber(*value, digits);
    const QString text = QString::number(qint64(*value), base);
    return unit.isEmpty() ? text : text + QChar(0x202F) + unit;
}

QString MeanOf(const MeasureRow& row)
{
    int digits = fewDigits;
    if (row.mean && row.sigma && *row.sigma > 0 && *row.mean != 0)
        digits = int(std::clamp(std::ceil(std::log10(std::abs(*row.mean) / *row.sigma)) + 2,
                                double(fewDigits), double(manyDigits)));
    return Figure(row.mean, BaseOf(row.style) == 10 ? row.unit : QString(), {}, digits);
}

QString SigmaOf(const MeasureRow& row)
{
    return Figure(row.sigma, BaseOf(row.style) == 10 ? row.unit : QString(), {}, fewDigits);
}

QString Capability(const std::optional<double>& value)
{
    return value ? QString::number(*value, 'f', 2) : dash;
}

QString Limits(const MeasureRow& row)
{
    const auto figure = [&](const std::optional<double>& limit, int digits = limitDigits) {
        return Figure(limit, row.unit, row.style, digits);
    };
    if (row.lower && row.style.lowerOperator == QLatin1String("=="))
        return QStringLiteral("= ") + figure(row.lower);
    if (row.lower && row.style.lowerOperator == QLatin1String("!="))
        return QStringLiteral("≠ ") + figure(row.lower);
    if (row.lower && row.upper) {
        const int digits = figure(row.lower) == figure(row.upper) ? manyDigits : limitDigits;
        return figure(row.lower, digits) + QStringLiteral(" … ") + figure(row.upper, digits);
    }
    if (row.lower)
        return QStringLiteral("≥ ") + figure(row.lower);
    return row.upper ? QStringLiteral("≤ ") + figure(row.upper) : dash;
}

QString NameOf(const MeasureRow& row)
{
    const QString program = ProgramOf(row.group);
    return program.isEmpty() ? row.path : program + QStringLiteral(": ") + row.path;
}

QString GroupText(const AnswerGroup& group)
{
    QStringList values;
    for (const auto& [key, value] : group)
        values.append(value.isEmpty() ? dash : value);
    return values.join(QStringLiteral(" · "));
}

QString ProgramOf(const AnswerGroup& group)
{
    if (group.empty() || group.front().first != QLatin1String("program"))
        return {};
    const QString& name = group.front().second;
    return name.isEmpty() ? Texts::tr("Without a program") : name;
}

QString ValueOf(const AnswerGroup& group, const QString& name)
{
    for (const auto& [known, value] : group)
        if (known == name)
            return value;
    return {};
}

QString LastOf(const AnswerGroup& group)
{
    return group.empty() ? QString() : group.back().second;
}

QString DriftSentence(const Drift& drift)
{
    const QString size = QString::number(std::abs(drift.sigmas), 'f', 1);
    const QString text = drift.kind == QLatin1String("step")
                             ? (drift.sigmas < 0 ? Texts::tr("A step down of %1 sigma since %2.")
                                                 : Texts::tr("A step up of %1 sigma since %2."))
                             : (drift.sigmas < 0 ? Texts::tr("A trend down of %1 sigma, begun at %2.")
                                                 : Texts::tr("A trend up of %1 sigma, begun at %2."));
    return text.arg(size, PlaceText(drift.since));
}

QString RulesSentence(const MeasureRow& row)
{
    QStringList rules;
    QSet<int> told;
    for (const RuleHit& hit : row.rules) {
        if (!told.contains(hit.rule))
            rules.append(
                Texts::tr("rule %1, first at %2").arg(QString::number(hit.rule), PlaceText(hit.since)));
        told.insert(hit.rule);
    }
    return rules.join(QStringLiteral("; "));
}

} // namespace ZYN::Page
