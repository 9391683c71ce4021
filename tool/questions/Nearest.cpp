#include "questions/Nearest.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace ZYN::Tool {

namespace {

// Letters to add, leave out or replace (Levenshtein, 1965).
int Distance(const QString& a, const QString& b)
{
    std::vector<int> row(std::size_t(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < a.size(); ++i) {
        int diagonal = row[0]++;
        for (qsizetype j = 0; j < b.size(); ++j) {
            const int replaced = diagonal + int(a.at(i) != b.at(j));
            diagonal = row[std::size_t(j) + 1];
            row[std::size_t(j) + 1] = std::min({replaced, diagonal + 1, row[std::size_t(j)] + 1});
        }
    }
    return row.back();
}

} // namespace

QStringList Nearest(const QString& name, const QStringList& names, qsizetype count)
{
    const QString wanted = name.toCaseFolded();
    std::vector<std::pair<int, QString>> near;
    for (const QString& candidate : names) {
        const QString folded = candidate.toCaseFolded();
        const int distance = folded.contains(wanted) ? 1 : Distance(wanted, folded);
        if (!candidate.isEmpty() && distance <= qMax(qsizetype(1), name.size() / 2))
            near.emplace_back(distance, candidate);
    }
    std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) {
        return std::pair(a.first, a.second.size()) < std::pair(b.first, b.second.size());
    });
    QStringList nearest;
    for (const auto& [distance, candidate] : near)
        if (nearest.size() < count)
            nearest.append(candidate);
    return nearest;
}

QString Suggestion(const QString& name, const QStringList& names)
{
    QStringList quoted;
    for (const QString& candidate : Nearest(name, names, 3))
        quoted.append(QLatin1Char('\'') + Harmless(candidate) + QLatin1Char('\''));
    if (quoted.isEmpty())
        return {};
    const QString last = quoted.takeLast();
    return quoted.isEmpty() ? Texts::tr("did you mean %1?").arg(last)
                            : Texts::tr("did you mean %1 or %2?").arg(quoted.join(QLatin1String(", ")), last);
}

} // namespace ZYN::Tool
