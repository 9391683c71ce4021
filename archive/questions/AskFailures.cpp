#include "archive/Archive.h"
#include "archive/questions/ChosenRuns.h"
#include "archive/questions/Programs.h"

#include <algorithm>
#include <map>

namespace ZYN {

std::optional<std::vector<FailureRow>> AskFailures(const Archive& archive, const RunFilter& filter, bool all)
{
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::All);
    Programs programs;
    if (!programs.Read(archive, runs))
        return std::nullopt;
    std::optional<QSqlQuery> query =
        runs.Select(QStringLiteral("f.component, sum(f.is_first), count(*)"), runs.JoinFailures(), {},
                    QStringLiteral("GROUP BY f.component") + runs.AlsoGroupBy());
    std::map<int, std::pair<std::int64_t, std::int64_t>> counts; // first and all, by component
    std::int64_t total = 0;
    while (query && query->next()) {
        auto& [first, every] = counts[query->value(0).toInt()];
        first += query->value(1).toLongLong();
        every += query->value(2).toLongLong();
        total += query->value(1).toLongLong();
    }
    if (!query || !IsComplete(archive, *query))
        return std::nullopt;
    query.reset(); // a server is asked one question at a time
    // On several servers one component has several numbers.
    query = Ask(archive, QStringLiteral("SELECT id, program, identity, ident, path FROM component"));
    std::map<std::pair<QString, QString>, FailureRow> components; // by program and identity
    while (query && query->next()) {
        const auto count = counts.find(query->value(0).toInt());
        if (count == counts.end())
            continue;
        const QString program = query->value(1).toString();
        FailureRow& row = components[{program, query->value(2).toString()}];
        row.group = programs.GroupOf(program);
        row.ident = query->value(3).toString();
        row.path = query->value(4).toString();
        row.first += count->second.first;
        row.all += count->second.second;
    }
    if (!query || !IsComplete(archive, *query))
        return std::nullopt;
    std::vector<FailureRow> rows;
    for (const auto& [name, row] : components)
        if (row.first > 0 || all)
            rows.push_back(row);
    for (FailureRow& row : rows)
        row.share = total > 0 ? double(row.first) / double(total) : 0;
    std::sort(rows.begin(), rows.end(), [](const FailureRow& a, const FailureRow& b) {
        return std::tie(b.first, a.path, b.all, a.group) < std::tie(a.first, b.path, a.all, b.group);
    });
    return rows;
}

} // namespace ZYN
