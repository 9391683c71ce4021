#include "page/LotAnswers.h"

namespace ZYN::Page {

namespace {

constexpr std::size_t mostPoints = 60;

// An answer's rows go to their place. \return whether there was one
template <typename Rows>
bool Take(std::optional<Rows> answer, Rows* rows)
{
    if (answer)
        *rows = std::move(*answer);
    return answer.has_value();
}

// Hours where they are few enough, else the next larger step; hours too where days would be a dot or two.
bool AskOverTime(const Archive& archive, const RunFilter& filter, std::vector<YieldRow>* rows)
{
    for (const GroupBy step : {GroupBy::Hour, GroupBy::Day, GroupBy::Week, GroupBy::Month}) {
        if (!Take(AskYield(archive, filter, {step}), rows))
            return false;
        if (rows->size() <= mostPoints)
            break;
    }
    return true;
}

} // namespace

std::optional<LotAnswers> AskLot(const Archive& archive, const RunFilter& asked, const QString& product,
                                 const QString& lot)
{
    LotAnswers answers;
    answers.product = product;
    answers.lot = lot;
    RunFilter filter = asked;
    filter.product = product;
    filter.lot = lot;
    MeasureOptions measures;
    measures.values = true;
    const bool complete =
        Take(AskYield(archive, filter, {}), &answers.yield) &&
        AskOverTime(archive, filter, &answers.overTime) &&
        Take(AskYield(archive, filter, {GroupBy::Station}), &answers.byStation) &&
        Take(AskYield(archive, filter, {GroupBy::Position}), &answers.byPosition) &&
        Take(AskYield(archive, filter, {GroupBy::Bin}), &answers.byBin) &&
        Take(AskFailures(archive, filter, false), &answers.failures) &&
        Take(AskMeasures(archive, filter, measures), &answers.measures) &&
        Take(AskUnits(archive, filter, {.failed = true, .retested = false}), &answers.failedUnits) &&
        Take(AskUnits(archive, filter, {.failed = false, .retested = true}), &answers.retestedUnits) &&
        Take(AskNotes(archive, filter), &answers.notes);
    return complete ? std::optional(std::move(answers)) : std::nullopt;
}

} // namespace ZYN::Page
