#include "page/LotPictures.h"

#include "page/NumberText.h"
#include "page/PageTexts.h"

#include "archive/questions/AnswerKeys.h"

#include <QtCore/QSet>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZYN::Page {

namespace {

constexpr std::size_t mostBars = 15;

double ShareOf(std::int64_t part, std::int64_t whole)
{
    return whole > 0 ? double(part) / double(whole) : 0;
}

std::vector<Bar> YieldBars(const std::vector<YieldRow>& rows)
{
    std::vector<Bar> bars;
    for (const YieldRow& row : rows) {
        const QString program = ProgramOf(row.group);
        const QString name = GroupText({row.group.back()});
        bars.push_back({program.isEmpty() ? name : TitleOf(program, name), ShareOf(row.passed, row.units),
                        Share(double(row.passed), double(row.units)), false});
    }
    return bars;
}

bool IsOfNone(const YieldRow& row)
{
    return LastOf(row.group).isEmpty();
}

QString Names(const std::vector<YieldRow>& rows)
{
    QStringList names;
    for (const YieldRow& row : rows)
        if (!IsOfNone(row) && !names.contains(LastOf(row.group)))
            names.append(LastOf(row.group));
    return names.join(QStringLiteral(", "));
}

} // namespace

std::vector<ProgramRows> ByProgram(const std::vector<YieldRow>& rows)
{
    std::vector<ProgramRows> programs;
    for (const YieldRow& row : rows) {
        const QString program = ProgramOf(row.group);
        auto known = std::find_if(programs.begin(), programs.end(),
                                  [&](const ProgramRows& one) { return one.program == program; });
        if (known == programs.end())
            known = programs.insert(programs.end(), {program, {}});
        known->rows.push_back(row);
    }
    return programs;
}

QString TitleOf(const QString& title, const QString& program)
{
    return program.isEmpty() ? title : title + QStringLiteral(" · ") + program;
}

std::vector<YieldPoint> YieldPoints(const std::vector<YieldRow>& overTime)
{
    std::vector<YieldPoint> points;
    if (overTime.size() < 2)
        return points;
    for (const YieldRow& row : overTime)
        points.push_back({LastOf(row.group), ShareOf(row.passed, row.units),
                          row.firstRuns > 0 ? ShareOf(row.firstPass, row.firstRuns)
                                            : std::numeric_limits<double>::quiet_NaN(),
                          double(row.units)});
    return points;
}

std::vector<Bar> StationBars(const LotAnswers& answers)
{
    return YieldBars(answers.byStation);
}

std::vector<Bar> SiteBars(const LotAnswers& answers)
{
    QSet<QString> sites;
    for (const YieldRow& row : answers.bySite)
        sites.insert(LastOf(row.group));
    return sites.size() > 1 ? YieldBars(answers.bySite) : std::vector<Bar>();
}

std::vector<Bar> FailureBars(const LotAnswers& answers)
{
    std::vector<Bar> bars;
    if (answers.failures.empty())
        return bars;
    const double most = std::max(answers.failures.front().share, 1e-9);
    std::int64_t others = 0;
    double othersShare = 0;
    for (const FailureRow& row : answers.failures) {
        if (bars.size() < mostBars) {
            QString name = row.path + QStringLiteral(" [") + row.ident + QLatin1Char(']');
            if (!row.group.empty())
                name = ProgramOf(row.group) + QStringLiteral(": ") + name;
            bars.push_back({name, std::min(row.share / most, 1.0),
                            QStringLiteral("%1 (%2)").arg(Percent(row.share, 1)).arg(row.first), true});
        } else {
            others += row.first;
            othersShare += row.share;
        }
    }
    if (others > 0)
        bars.push_back({Texts::tr("all others"), std::min(othersShare / most, 1.0),
                        QStringLiteral("%1 (%2)").arg(Percent(othersShare, 1)).arg(others), true});
    return bars;
}

std::vector<Bar> BinBars(const std::vector<YieldRow>& byBin)
{
    std::vector<Bar> bars;
    std::int64_t units = 0;
    std::int64_t most = 1;
    for (const YieldRow& row : byBin) {
        units += row.units;
        most = std::max(most, row.units);
    }
    const auto binOf = [](const YieldRow& row) { return ValueOf(row.group, QStringLiteral("bin")); };
    const bool hasBins =
        std::any_of(byBin.begin(), byBin.end(), [&](const YieldRow& row) { return !binOf(row).isEmpty(); });
    for (const YieldRow& row : byBin)
        if (hasBins)
            bars.push_back(
                {TitleOf(Texts::tr("Bin %1").arg(binOf(row)), ValueOf(row.group, AnswerKeys::BinName)),
                 ShareOf(row.units, most), Share(double(row.units), double(units)), row.passed < row.units});
    std::stable_sort(bars.begin(), bars.end(), [](const Bar& a, const Bar& b) { return a.share > b.share; });
    return bars;
}

std::vector<PanelPlace> PanelPlaces(const std::vector<YieldRow>& byPosition)
{
    std::vector<PanelPlace> places;
    for (const YieldRow& row : byPosition)
        if (!IsOfNone(row))
            places.push_back({LastOf(row.group), row});
    std::stable_sort(places.begin(), places.end(), [](const PanelPlace& a, const PanelPlace& b) {
        return a.name.toInt() < b.name.toInt();
    });
    if (places.size() < 2)
        places.clear();
    return places;
}

std::size_t PanelColumns(std::size_t places)
{
    return std::size_t(std::ceil(std::sqrt(double(places))));
}

std::vector<WaferDies> Wafers(const LotAnswers& answers)
{
    std::vector<WaferDies> wafers;
    for (const DieRow& die : answers.dies) {
        if (wafers.empty() || wafers.back().name != die.wafer)
            wafers.push_back({die.wafer, {}});
        wafers.back().dies.push_back({die.x, die.y, die.code > 0});
    }
    return wafers;
}

QString PassedShare(const WaferDies& wafer)
{
    const auto passed = std::count_if(wafer.dies.begin(), wafer.dies.end(),
                                      [](const WaferDies::Die& die) { return die.passed; });
    return Share(double(passed), double(wafer.dies.size()));
}

MeasureData DataOf(const MeasureRow& row, const MeasuredNumbers& numbers)
{
    MeasureData data{row.unit,      row.style.unitCode != 25 && row.style.unitCode != 26,
                     row.lower,     row.upper,
                     row.mean,      numbers.values,
                     numbers.codes, {}};
    if (row.drift)
        data.marks.push_back({row.drift->index, row.drift->kind == QLatin1String("step")
                                                    ? Texts::tr("step")
                                                    : Texts::tr("trend")});
    QSet<int> named; // the first hit of each rule
    for (const RuleHit& hit : row.rules) {
        const QString name = named.contains(hit.rule) ? QString() : Texts::tr("rule %1").arg(hit.rule);
        named.insert(hit.rule);
        data.marks.push_back({hit.index, name});
    }
    std::stable_sort(
        data.marks.begin(), data.marks.end(),
        [](const MeasureData::Mark& a, const MeasureData::Mark& b) { return a.index < b.index; });
    return data;
}

std::vector<std::size_t> DriftingRows(const LotAnswers& answers)
{
    const std::vector<MeasureRow>& rows = answers.Rows();
    std::vector<std::size_t> drifting;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].drift)
            drifting.push_back(i);
    std::stable_sort(drifting.begin(), drifting.end(), [&](std::size_t a, std::size_t b) {
        return std::abs(rows[a].drift->sigmas) > std::abs(rows[b].drift->sigmas);
    });
    return drifting;
}

QString TitleOf(const std::vector<LotName>& lots)
{
    if (lots.size() != 1)
        return Texts::tr("%n lots", nullptr, int(lots.size()));
    const LotName& lot = lots.front();
    if (lot.product.isEmpty())
        return lot.lot.isEmpty() ? Texts::tr("Runs without product and lot")
                                 : Texts::tr("Lot %1").arg(lot.lot);
    return lot.lot.isEmpty() ? lot.product : Texts::tr("Lot %1 · %2").arg(lot.lot, lot.product);
}

std::vector<std::pair<QString, QString>> FactsOf(const LotAnswers& answers)
{
    std::vector<std::pair<QString, QString>> facts;
    const auto add = [&](const QString& name, const QString& text) {
        if (!text.isEmpty())
            facts.emplace_back(name, text);
    };
    add(Texts::tr("Product"), answers.product);
    add(Texts::tr("Lot"), answers.lot);
    add(Texts::tr("Program"), Names(answers.byProgram));
    add(Texts::tr("Station"), Names(answers.byStation));
    const QString first = TimeText(answers.span.first);
    const QString last = TimeText(answers.span.last);
    add(first == last ? Texts::tr("Start") : Texts::tr("First start"), first);
    add(Texts::tr("Last start"), first == last ? QString() : last);
    return facts;
}

std::vector<CardText> CardsOf(const YieldRow& row)
{
    return {{Texts::tr("Yield"), Percent(double(row.passed), double(row.units)), Of(row.passed, row.units)},
            {Texts::tr("First pass"), Percent(double(row.firstPass), double(row.firstRuns)),
             Of(row.firstPass, row.firstRuns)},
            {Texts::tr("Units"), QString::number(row.units), Texts::tr("%n runs", nullptr, int(row.runs))},
            {Texts::tr("Units not passed"), QString::number(row.units - row.passed),
             Texts::tr("%n failed runs", nullptr, int(row.failed)), row.units > row.passed},
            {Texts::tr("Aborted"), QString::number(row.aborted), Texts::tr("runs"), row.aborted > 0},
            {Texts::tr("Errors"), QString::number(row.errors), Texts::tr("runs"), row.errors > 0}};
}

} // namespace ZYN::Page
