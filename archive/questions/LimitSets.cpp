#include "archive/questions/LimitSets.h"

#include "archive/ArrayReader.h"
#include "archive/questions/ChosenRuns.h"

namespace ZYN {

namespace {

std::vector<Judgement> JudgementsOf(const QSqlQuery& row)
{
    const auto bytes = [&](int column) { return row.value(column).toString().toUtf8(); };
    const std::vector<double> lower = NumbersOf(bytes(0));
    const std::vector<double> upper = NumbersOf(bytes(1));
    const std::vector<std::string> lowerOperator = TextsOf(bytes(2));
    const std::vector<std::string> upperOperator = TextsOf(bytes(3));
    const std::vector<bool> inverted = FlagsOf(bytes(4));
    const auto limit = [](double number) {
        return std::isnan(number) ? std::nullopt : std::optional(number);
    };
    std::vector<Judgement> judgements(
        std::min({lower.size(), upper.size(), lowerOperator.size(), upperOperator.size()}));
    for (std::size_t i = 0; i < judgements.size(); ++i)
        judgements[i] = {limit(lower[i]), limit(upper[i]), lowerOperator[i], upperOperator[i],
                         i < inverted.size() && inverted[i]};
    return judgements;
}

} // namespace

const std::vector<Judgement>* LimitSets::Get(qint64 id)
{
    if (const auto known = m_sets.find(id); known != m_sets.end())
        return &known->second;
    std::optional<QSqlQuery> query =
        Ask(m_archive,
            QStringLiteral("SELECT lower, upper, lower_op, upper_op, inverted FROM limit_set WHERE id = ?"),
            {id});
    std::vector<Judgement> judgements;
    if (query && query->next())
        judgements = JudgementsOf(*query);
    if (!query || !IsComplete(m_archive, *query))
        return nullptr;
    return &m_sets.emplace(id, std::move(judgements)).first->second;
}

} // namespace ZYN
