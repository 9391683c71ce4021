#include "page/MeasureSection.h"

#include "page/Axis.h"
#include "page/Html.h"
#include "page/LotAnswers.h"
#include "page/MeasurePlots.h"
#include "page/PageTexts.h"
#include "page/SvgPlot.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QSet>

#include <algorithm>
#include <limits>

namespace ZYN::Page {

namespace {

constexpr QSizeF histogramSize(380, 210);
constexpr QSizeF trendSize(680, 210);
constexpr std::size_t openAtFirst = 3;

std::size_t IndexOf(const MeasureRow& row, const RunPlace& place)
{
    for (std::size_t i = 0; i < row.values.size(); ++i)
        if (row.values[i].serial == place.serial && row.values[i].start == place.start)
            return i;
    return 0;
}

QString DriftName(const Drift& drift)
{
    return drift.kind == QLatin1String("step") ? Texts::tr("step") : Texts::tr("trend");
}

MeasureData DataOf(const MeasureRow& row)
{
    MeasureData data{row.unit, row.lower, row.upper, row.mean, row.sigma, {}, {}, {}};
    data.values.reserve(row.values.size());
    for (const MeasuredValue& value : row.values) {
        data.values.push_back(value.value);
        data.good.push_back(value.code >= 0);
    }
    if (row.drift)
        data.marks.push_back({IndexOf(row, row.drift->since), DriftName(*row.drift)});
    QSet<int> named; // the first hit of each rule
    for (const RuleHit& hit : row.rules) {
        const QString name = named.contains(hit.rule) ? QString() : Texts::tr("rule %1").arg(hit.rule);
        named.insert(hit.rule);
        data.marks.push_back({IndexOf(row, hit.since), name});
    }
    std::stable_sort(
        data.marks.begin(), data.marks.end(),
        [](const MeasureData::Mark& a, const MeasureData::Mark& b) { return a.index < b.index; });
    return data;
}

QString Optional(const std::optional<double>& value, const QString& unit)
{
    return value ? Figure(*value, unit) : QString(QChar(0x2013));
}

QString Plain(const std::optional<double>& value)
{
    return value ? QString::number(*value, 'f', 2) : QString(QChar(0x2013));
}

QString LimitsOf(const MeasureRow& row)
{
    if (!row.lower && !row.upper)
        return QString(QChar(0x2013));
    return Optional(row.lower, row.unit) + QStringLiteral(" … ") + Optional(row.upper, row.unit);
}

QString Plots(const MeasureRow& row)
{
    const MeasureData data = DataOf(row);
    if (data.values.empty())
        return {};
    const QString description =
        Texts::tr("%n values, mean %1, sigma %2, limits %3", nullptr, int(row.count))
            .arg(Optional(row.mean, row.unit), Optional(row.sigma, row.unit), LimitsOf(row));
    const QByteArray histogram =
        SvgPlot(histogramSize, Texts::tr("How often: %1").arg(row.path), description,
                [&](QPainter& painter, const QRectF& area) { DrawHistogram(painter, area, data); });
    const QByteArray trend =
        SvgPlot(trendSize, Texts::tr("In order of time: %1").arg(row.path), description,
                [&](QPainter& painter, const QRectF& area) { DrawTrend(painter, area, data); });
    return QStringLiteral("<div class=\"plots\">%1%2</div>\n")
        .arg(QString::fromUtf8(histogram), QString::fromUtf8(trend));
}

QString PlaceText(const RunPlace& place)
{
    return Texts::tr("unit %1, %2").arg(place.serial, place.start);
}

QString DriftSentence(const MeasureRow& row)
{
    const Drift& drift = *row.drift;
    const QString size = QString::number(std::abs(drift.sigmas), 'f', 1);
    const QString text = drift.kind == QLatin1String("step")
                             ? (drift.sigmas < 0 ? Texts::tr("A step down of %1 sigma since %2.")
                                                 : Texts::tr("A step up of %1 sigma since %2."))
                             : (drift.sigmas < 0 ? Texts::tr("A trend down of %1 sigma, begun at %2.")
                                                 : Texts::tr("A trend up of %1 sigma, begun at %2."));
    return text.arg(size, PlaceText(drift.since));
}

QString NameOf(const MeasureRow& row)
{
    QString name = row.path;
    for (const auto& [key, value] : row.group)
        name = value + QStringLiteral(": ") + name;
    return Escaped(name);
}

QString RowOf(const MeasureRow& row, int number, std::size_t index)
{
    const bool isPoor = row.cpk && *row.cpk < 1;
    return QStringLiteral(
               "<tr><th scope=\"row\"><a href=\"#m%1-%2\">%3</a></th><td>%4</td><td class=\"n\">%5</td>"
               "<td class=\"n\">%6</td><td class=\"n\">%7</td><td class=\"n%8\">%9</td>")
               .arg(QString::number(number), QString::number(index), NameOf(row), Escaped(row.ident),
                    LimitsOf(row), Optional(row.mean, row.unit), Optional(row.sigma, row.unit),
                    isPoor ? QStringLiteral(" bad") : QString(), Plain(row.cpk)) +
           QStringLiteral("<td class=\"n\">%1</td><td class=\"n\">%2</td><td class=\"n\">%3</td></tr>\n")
               .arg(Plain(row.cpkPassed), QString::number(row.count), QString::number(row.failed));
}

QString DetailsOf(const MeasureRow& row, int number, std::size_t index)
{
    QString text =
        QStringLiteral("<details id=\"m%1-%2\"%3><summary>%4<span>CPK %5</span></summary>\n")
            .arg(QString::number(number), QString::number(index),
                 index < openAtFirst ? QStringLiteral(" open") : QString(), NameOf(row), Plain(row.cpk));
    if (row.drift)
        text += QStringLiteral("<p>%1</p>").arg(Escaped(DriftSentence(row)));
    QStringList rules;
    QSet<int> told;
    for (const RuleHit& hit : row.rules) {
        if (!told.contains(hit.rule))
            rules.append(
                Texts::tr("rule %1, first at %2").arg(QString::number(hit.rule), PlaceText(hit.since)));
        told.insert(hit.rule);
    }
    if (!rules.isEmpty())
        text += QStringLiteral("<p class=\"hint\">%1</p>").arg(Escaped(rules.join(QStringLiteral("; "))));
    if (row.notNumbers > 0)
        text += QStringLiteral("<p class=\"hint\">%1</p>")
                    .arg(Texts::tr("%n values are no finite number", nullptr, int(row.notNumbers)));
    return text + Plots(row) + QStringLiteral("</details>\n");
}

} // namespace

QString UnitAnchor(int number, const QString& serial)
{
    const QByteArray hash =
        QCryptographicHash::hash(serial.toUtf8(), QCryptographicHash::Sha1).toHex().left(10);
    return QStringLiteral("u%1-%2").arg(number).arg(QString::fromLatin1(hash));
}

QString LookAtThis(const LotAnswers& answers, int number)
{
    std::vector<std::pair<const MeasureRow*, std::size_t>> drifting;
    for (std::size_t i = 0; i < answers.measures.size(); ++i)
        if (answers.measures[i].drift)
            drifting.emplace_back(&answers.measures[i], i);
    if (drifting.empty())
        return {};
    std::stable_sort(drifting.begin(), drifting.end(), [](const auto& a, const auto& b) {
        return std::abs(a.first->drift->sigmas) > std::abs(b.first->drift->sigmas);
    });
    QString text =
        QStringLiteral("<section class=\"look\" aria-labelledby=\"look%1\">\n<h3 id=\"look%1\">%2</h3>\n")
            .arg(QString::number(number), Texts::tr("Look at this"));
    for (const auto& [row, index] : drifting)
        text += QStringLiteral("<p><a href=\"#m%1-%2\"><strong>%3</strong></a> %4</p>\n%5")
                    .arg(QString::number(number), QString::number(index), NameOf(*row),
                         Escaped(DriftSentence(*row)), Plots(*row));
    return text + QStringLiteral("</section>\n");
}

QString Measurements(const LotAnswers& answers, int number)
{
    if (answers.measures.empty())
        return {};
    QString text =
        QStringLiteral(
            "<h3>%1</h3>\n<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\"%1\"><table>"
            "<caption>%2</caption>\n<thead><tr>")
            .arg(Texts::tr("Measurements"), Texts::tr("Lowest CPK first; each name leads to its pictures."));
    const QString columns[] = {Texts::tr("Measurement"),   Texts::tr("Ident"),  Texts::tr("Limits"),
                               Texts::tr("Mean"),          Texts::tr("Sigma"),  Texts::tr("CPK"),
                               Texts::tr("CPK of passed"), Texts::tr("Values"), Texts::tr("Failed")};
    for (int i = 0; const QString& column : columns)
        text += QStringLiteral("<th scope=\"col\"%1>%2</th>")
                    .arg(i++ < 2 ? QString() : QStringLiteral(" class=\"n\""), column);
    text += QStringLiteral("</tr></thead>\n<tbody>\n");
    for (std::size_t i = 0; i < answers.measures.size(); ++i)
        text += RowOf(answers.measures[i], number, i);
    text +=
        QStringLiteral("</tbody></table></div>\n<h3>%1</h3>\n").arg(Texts::tr("Distributions and trends"));
    for (std::size_t i = 0; i < answers.measures.size(); ++i)
        text += DetailsOf(answers.measures[i], number, i);
    return text;
}

} // namespace ZYN::Page
