#include "page/LotSections.h"

#include "page/Axis.h"
#include "page/GroupPlots.h"
#include "page/Html.h"
#include "page/LotAnswers.h"
#include "page/MeasureSection.h"
#include "page/PageTexts.h"
#include "page/SvgPlot.h"

#include <QtCore/QSet>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZYN::Page {

namespace {

constexpr double plotWidth = 540;
constexpr std::size_t mostBars = 15;
constexpr std::size_t mostUnits = 500;

QString GroupText(const AnswerGroup& group)
{
    QStringList values;
    for (const auto& [key, value] : group)
        values.append(value.isEmpty() ? QString(QChar(0x2013)) : value);
    return values.join(QStringLiteral(" · "));
}

QString Card(const QString& figure, const QString& what, const QString& detail, bool isBad = false)
{
    return QStringLiteral("<li%1><span>%2</span><b>%3</b><span>%4</span></li>\n")
        .arg(isBad ? QStringLiteral(" class=\"bad\"") : QString(), what, figure, detail);
}

QString Cards(const YieldRow& row)
{
    const auto of = [](std::int64_t part, std::int64_t whole) {
        return Texts::tr("%1 of %2").arg(QString::number(part), QString::number(whole));
    };
    return QStringLiteral("<ul class=\"cards\">\n") +
           Card(Percent(double(row.passed), double(row.units)), Texts::tr("Yield"),
                of(row.passed, row.units)) +
           Card(Percent(double(row.firstPass), double(row.firstRuns)), Texts::tr("First pass"),
                of(row.firstPass, row.firstRuns)) +
           Card(QString::number(row.units), Texts::tr("Units"),
                Texts::tr("%n runs", nullptr, int(row.runs))) +
           Card(QString::number(row.units - row.passed), Texts::tr("Units failed"),
                Texts::tr("%n failed runs", nullptr, int(row.failed)), row.units > row.passed) +
           Card(QString::number(row.aborted), Texts::tr("Aborted"), Texts::tr("runs"), row.aborted > 0) +
           Card(QString::number(row.errors), Texts::tr("Errors"), Texts::tr("runs"), row.errors > 0) +
           QStringLiteral("</ul>\n");
}

QString Figures(const LotAnswers& answers)
{
    QString text;
    for (const YieldRow& row : answers.yield) {
        if (answers.yield.size() > 1)
            text += QStringLiteral("<h3>%1</h3>\n").arg(Escaped(GroupText(row.group)));
        text += Cards(row);
    }
    return text;
}

QString OverTime(const LotAnswers& answers)
{
    if (answers.overTime.size() < 2)
        return {};
    std::vector<YieldPoint> points;
    for (const YieldRow& row : answers.overTime)
        points.push_back({GroupText(row.group), row.units > 0 ? double(row.passed) / double(row.units) : 0,
                          row.firstRuns > 0 ? double(row.firstPass) / double(row.firstRuns)
                                            : std::numeric_limits<double>::quiet_NaN(),
                          double(row.units)});
    const QByteArray plot =
        SvgPlot({plotWidth, 220}, Texts::tr("Yield over time"),
                Texts::tr("From %1 to %2").arg(points.front().label, points.back().label),
                [&](QPainter& painter, const QRectF& area) { DrawYieldOverTime(painter, area, points); });
    return QStringLiteral("<section><h3>%1</h3><p class=\"hint\">%2</p>%3</section>\n")
        .arg(Texts::tr("Yield over time"), Texts::tr("Solid: yield; dashed: first pass; bars: units."),
             QString::fromUtf8(plot));
}

QString BarPlot(const QString& title, const QString& hint, const std::vector<Bar>& bars)
{
    const QByteArray plot =
        SvgPlot({plotWidth, double(bars.size()) * barHeight + 4}, title, hint,
                [&](QPainter& painter, const QRectF& area) { DrawBars(painter, area, bars); });
    return QStringLiteral("<section><h3>%1</h3><p class=\"hint\">%2</p>%3</section>\n")
        .arg(title, hint, QString::fromUtf8(plot));
}

QString ByStation(const LotAnswers& answers)
{
    if (answers.byStation.empty())
        return {};
    std::vector<Bar> bars;
    for (const YieldRow& row : answers.byStation)
        bars.push_back({GroupText(row.group), row.units > 0 ? double(row.passed) / double(row.units) : 0,
                        Share(double(row.passed), double(row.units)), false});
    return BarPlot(Texts::tr("Yield by station"),
                   Texts::tr("The worst first, by what is sure of its failure rate."), bars);
}

QString ByPosition(const LotAnswers& answers)
{
    std::vector<const YieldRow*> rows;
    for (const YieldRow& row : answers.byPosition)
        if (!row.group.empty() && !row.group.back().second.isEmpty())
            rows.push_back(&row);
    if (rows.size() < 2)
        return {};
    std::stable_sort(rows.begin(), rows.end(), [](const YieldRow* a, const YieldRow* b) {
        return a->group.back().second.toInt() < b->group.back().second.toInt();
    });
    QString text =
        QStringLiteral("<section><h3>%1</h3><table class=\"map\"><caption>%2</caption><tr>")
            .arg(Texts::tr("Yield by position on the panel"), Texts::tr("Share of units that passed"));
    const auto columns = std::size_t(std::ceil(std::sqrt(double(rows.size()))));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i > 0 && i % columns == 0)
            text += QStringLiteral("</tr>\n<tr>");
        text += QStringLiteral("<td><span class=\"hint\">%1</span><b>%2</b>%3</td>")
                    .arg(Escaped(GroupText(rows[i]->group)),
                         Percent(double(rows[i]->passed), double(rows[i]->units)),
                         Texts::tr("%1 of %2").arg(rows[i]->passed).arg(rows[i]->units));
    }
    return text + QStringLiteral("</tr></table></section>\n");
}

QString Failures(const LotAnswers& answers)
{
    if (answers.failures.empty())
        return {};
    std::vector<Bar> bars;
    const double most = std::max(answers.failures.front().share, 1e-9);
    std::int64_t others = 0;
    double othersShare = 0;
    for (const FailureRow& row : answers.failures) {
        if (bars.size() < mostBars) {
            bars.push_back({row.path + QStringLiteral(" [") + row.ident + QLatin1Char(']'), row.share / most,
                            QStringLiteral("%1 (%2)").arg(Percent(row.share, 1)).arg(row.first), true});
        } else {
            others += row.first;
            othersShare += row.share;
        }
    }
    if (others > 0)
        bars.push_back({Texts::tr("all others"), std::min(othersShare / most, 1.0),
                        QStringLiteral("%1 (%2)").arg(Percent(othersShare, 1)).arg(others), true});
    return BarPlot(Texts::tr("What failed first"), Texts::tr("Share of all failed runs, and how many."),
                   bars);
}

QString UnitTable(const QString& title, const QString& hint, const std::vector<UnitRow>& units, int number,
                  bool anchors)
{
    if (units.empty())
        return {};
    QString text =
        QStringLiteral(
            "<h3>%1</h3>\n<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\"%1\">"
            "<table><caption>%2</caption><thead><tr><th scope=\"col\">%3</th>"
            "<th scope=\"col\" class=\"n\">%4</th><th scope=\"col\">%5</th></tr></thead>\n<tbody>\n")
            .arg(title, hint, Texts::tr("Serial"), Texts::tr("Runs"), Texts::tr("First failure"));
    QSet<QString> anchored; // a unit of several programs has a row for each
    for (std::size_t i = 0; i < std::min(units.size(), mostUnits); ++i) {
        const UnitRow& unit = units[i];
        QString anchor;
        if (anchors && !anchored.contains(unit.serial))
            anchor = QStringLiteral(" id=\"%1\"").arg(UnitAnchor(number, unit.serial));
        anchored.insert(unit.serial);
        text +=
            QStringLiteral("<tr%1><th scope=\"row\">%2</th><td class=\"n\">%3</td><td>%4</td></tr>\n")
                .arg(anchor, Escaped(unit.serial), QString::number(unit.runs), Escaped(unit.firstFailure));
    }
    text += QStringLiteral("</tbody></table></div>\n");
    if (units.size() > mostUnits)
        text += QStringLiteral("<p class=\"hint\">%1</p>\n")
                    .arg(Texts::tr("and %n more: zyn units", nullptr, int(units.size() - mostUnits)));
    return text;
}

QString Notes(const LotAnswers& answers)
{
    QString text;
    for (const QString& note : answers.notes)
        text += QStringLiteral("<p class=\"hint\">%1</p>\n").arg(Escaped(note));
    return text;
}

} // namespace

QString LotSection(const LotAnswers& answers, int number, bool isOneOfSeveral)
{
    QString text = QStringLiteral("<article>\n");
    if (isOneOfSeveral)
        text += QStringLiteral("<h2>%1 · %2</h2>\n").arg(Escaped(answers.product), Escaped(answers.lot));
    text += Notes(answers) + Figures(answers) + LookAtThis(answers, number);
    text += QStringLiteral("<div class=\"two\">\n") + OverTime(answers) + Failures(answers) +
            ByStation(answers) + ByPosition(answers) + QStringLiteral("</div>\n");
    text += Measurements(answers, number);
    text += UnitTable(Texts::tr("Failed units"), Texts::tr("Units whose last run did not pass"),
                      answers.failedUnits, number, true);
    text += UnitTable(Texts::tr("Units tested more than once"), Texts::tr("Of one program"),
                      answers.retestedUnits, number, false);
    return text + QStringLiteral("</article>\n");
}

} // namespace ZYN::Page
