#include "archive/questions/YieldOrder.h"

#include "archive/figures/Wilson.h"
#include "archive/questions/GroupColumns.h"

#include <algorithm>
#include <map>

namespace ZYN {

namespace {

using Names = std::vector<QString>;

struct Counts {
    std::int64_t units = 0, passed = 0;
};

Names FirstNames(const AnswerGroup& group, std::size_t count)
{
    Names names;
    for (std::size_t i = 0; i < count; ++i)
        names.push_back(group[i].second);
    return names;
}

bool IsTimeName(const QString& name)
{
    return name == NameOf(GroupBy::Hour) || name == NameOf(GroupBy::Day) || name == NameOf(GroupBy::Week) ||
           name == NameOf(GroupBy::Month);
}

// The shorter number first: "2" before "10".
bool IsNameBefore(const QString& a, const QString& b)
{
    bool areNumbers = false, isNumber = false;
    const qlonglong x = a.toLongLong(&areNumbers);
    const qlonglong y = b.toLongLong(&isNumber);
    return areNumbers && isNumber ? x < y : a < b;
}

} // namespace

void SortYield(std::vector<YieldRow>* rows)
{
    if (rows->empty())
        return;
    const std::size_t depth = rows->front().group.size();
    std::map<Names, Counts> counts; // of all that begin with the same names
    for (const YieldRow& row : *rows)
        for (std::size_t i = 1; i <= depth; ++i) {
            Counts& all = counts[FirstNames(row.group, i)];
            all.units += row.units;
            all.passed += row.passed;
        }
    const auto badness = [&](const AnswerGroup& group, std::size_t names) {
        const Counts& all = counts.at(FirstNames(group, names));
        return Figures::WilsonLowerBound(all.units - all.passed, all.units);
    };
    std::sort(rows->begin(), rows->end(), [&](const YieldRow& a, const YieldRow& b) {
        for (std::size_t i = 0; i < depth; ++i) {
            const QString& one = a.group[i].second;
            const QString& other = b.group[i].second;
            if (one == other)
                continue;
            if (IsTimeName(a.group[i].first))
                return one.isEmpty() || other.isEmpty() ? other.isEmpty() : one < other;
            const double bad = badness(a.group, i + 1);
            const double otherBad = badness(b.group, i + 1);
            return bad == otherBad ? IsNameBefore(one, other) : bad > otherBad;
        }
        return false;
    });
}

} // namespace ZYN
