#include "page/LotAnswers.h"

#include "page/NumberText.h"

#include <QtCore/QSet>

#include <algorithm>

namespace ZYN::Page {

namespace {

constexpr std::size_t mostPoints = 60;
constexpr std::size_t leastPoints = 5;

// An answer's rows go to their place. \return whether there was one
template <typename Rows>
bool Take(std::optional<Rows> answer, Rows* rows)
{
    if (answer)
        *rows = std::move(*answer);
    return answer.has_value();
}

// Parts of time, whatever programs there are in each.
std::size_t PartsIn(const std::vector<YieldRow>& rows)
{
    QSet<QString> parts;
    for (const YieldRow& row : rows)
        parts.insert(row.group.back().second);
    return std::size_t(parts.size());
}

// Hours where they are few enough, else the next larger step, unless that makes too few.
bool AskOverTime(const Archive& archive, const RunFilter& filter, std::vector<YieldRow>* rows)
{
    for (const GroupBy step : {GroupBy::Hour, GroupBy::Day, GroupBy::Week, GroupBy::Month}) {
        std::vector<YieldRow> larger;
        if (!Take(AskYield(archive, filter, {step}), &larger))
            return false;
        const std::size_t parts = PartsIn(larger);
        if (rows->empty() || parts >= leastPoints)
            *rows = std::move(larger);
        if (parts <= mostPoints)
            break;
    }
    return true;
}

bool AskMeasurements(const Archive& archive, const RunFilter& filter, LotAnswers* answers)
{
    const auto measures = std::make_shared<MeasureAnswer>();
    if (!measures->Ask(archive, filter))
        return false;
    answers->measures = measures;
    return true;
}

} // namespace

// One of several programs has a row for each.
std::optional<std::vector<LotName>> AskLots(const Archive& archive, const RunFilter& filter)
{
    const auto rows = AskYield(archive, filter, {GroupBy::Product, GroupBy::Lot});
    if (!rows)
        return std::nullopt;
    std::vector<LotName> lots;
    for (const YieldRow& row : *rows) {
        const LotName lot{ValueOf(row.group, QStringLiteral("product")),
                          ValueOf(row.group, QStringLiteral("lot"))};
        if (std::find(lots.begin(), lots.end(), lot) == lots.end())
            lots.push_back(lot);
    }
    return lots;
}

std::optional<LotAnswers> AskLot(const Archive& archive, const RunFilter& asked, const LotName& name)
{
    LotAnswers answers;
    answers.product = name.product;
    answers.lot = name.lot;
    RunFilter filter = asked;
    filter.product = name.product;
    filter.lot = name.lot;
    filter.ofOneLot = true;
    const auto yieldBy = [&](GroupBy by, std::vector<YieldRow>* rows) {
        return Take(AskYield(archive, filter, {by}), rows);
    };
    const bool complete =
        Take(AskSpan(archive, filter), &answers.span) &&
        Take(AskYield(archive, filter, {}), &answers.yield) &&
        AskOverTime(archive, filter, &answers.overTime) && yieldBy(GroupBy::Program, &answers.byProgram) &&
        yieldBy(GroupBy::Station, &answers.byStation) && yieldBy(GroupBy::Position, &answers.byPosition) &&
        yieldBy(GroupBy::Site, &answers.bySite) && yieldBy(GroupBy::Bin, &answers.byBin) &&
        Take(AskDies(archive, filter), &answers.dies) &&
        Take(AskFailures(archive, filter, false), &answers.failures) &&
        AskMeasurements(archive, filter, &answers) &&
        Take(AskUnits(archive, filter, {.failed = true, .retested = false}), &answers.failedUnits) &&
        Take(AskUnits(archive, filter, {.failed = false, .retested = true}), &answers.retestedUnits) &&
        Take(AskNotes(archive, filter), &answers.notes);
    return complete ? std::optional(std::move(answers)) : std::nullopt;
}

} // namespace ZYN::Page
