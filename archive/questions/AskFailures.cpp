#include "archive/Archive.h"
#include "archive/questions/ChosenRuns.h"
#include "archive/questions/Programs.h"

#include <algorithm>

namespace ZYN {

std::optional<std::vector<FailureRow>> AskFailures(const Archive& archive, const RunFilter& filter, bool all)
{
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::All);
    Programs programs;
    if (!programs.Read(archive, runs))
        return std::nullopt;
    std::optional<QSqlQuery> query =
        runs.Select(QStringLiteral("c.program, c.ident, c.path, sum(f.is_first), count(*)"),
                    runs.JoinFailures() + QStringLiteral(" JOIN component c ON c.id = f.component"), {},
                    QStringLiteral("GROUP BY c.id, c.program, c.ident, c.path"));
    std::vector<FailureRow> rows;
    std::int64_t total = 0;
    while (query && query->next()) {
        FailureRow row;
        row.group = programs.GroupOf(query->value(0).toString());
        row.ident = query->value(1).toString();
        row.path = query->value(2).toString();
        row.first = query->value(3).toLongLong();
        row.all = query->value(4).toLongLong();
        total += row.first;
        if (row.first > 0 || all)
            rows.push_back(row);
    }
    if (!query || !IsComplete(archive, *query))
        return std::nullopt;
    for (FailureRow& row : rows)
        row.share = total > 0 ? double(row.first) / double(total) : 0;
    std::sort(rows.begin(), rows.end(), [](const FailureRow& a, const FailureRow& b) {
        return std::tie(b.first, a.path, b.all, a.group) < std::tie(a.first, b.path, a.all, b.group);
    });
    return rows;
}

} // namespace ZYN
