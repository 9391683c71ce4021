#include "archive/Archive.h"
#include "archive/questions/ChosenRuns.h"

#include <algorithm>
#include <tuple>

namespace ZYN {

std::optional<std::vector<DieRow>> AskDies(const Archive& archive, const RunFilter& filter)
{
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::Units);
    std::optional<QSqlQuery> query =
        runs.Select(QStringLiteral("r.unit, u.wafer, r.x, r.y, r.code, r.hard_bin"), runs.JoinHome(),
                    QStringLiteral("r.x IS NOT NULL AND r.y IS NOT NULL"),
                    QStringLiteral("ORDER BY r.unit, ") + ChosenRuns::InOrder());
    std::vector<DieRow> dies;
    qint64 lastUnit = -1;
    while (query && query->next()) {
        const qint64 unit = query->value(0).toLongLong();
        if (unit != lastUnit)
            dies.emplace_back();
        lastUnit = unit;
        DieRow& die = dies.back();
        die.wafer = query->value(1).toString();
        die.x = query->value(2).toInt();
        die.y = query->value(3).toInt();
        die.code = query->value(4).toInt();
        const QVariant bin = query->value(5);
        die.hardBin = bin.isNull() ? std::nullopt : std::optional(bin.toInt());
    }
    if (!query || !IsComplete(archive, *query))
        return std::nullopt;
    std::sort(dies.begin(), dies.end(), [](const DieRow& a, const DieRow& b) {
        return std::tie(a.wafer, a.y, a.x) < std::tie(b.wafer, b.y, b.x);
    });
    return dies;
}

} // namespace ZYN
