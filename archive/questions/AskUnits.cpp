#include "archive/Archive.h"
#include "archive/questions/ChosenRuns.h"
#include "archive/questions/Programs.h"

#include <QtCore/QHash>

#include <algorithm>

namespace ZYN {

namespace {

// Only units that may be in the answer are read: most have passed at once.
QString ConditionOf(const UnitOptions& options, const ChosenRuns& runs)
{
    QStringList conditions;
    if (options.failed)
        conditions.append(runs.HasRunThatDidNotPass());
    if (options.retested)
        conditions.append(runs.HasRetest());
    return conditions.join(QLatin1String(" AND "));
}

bool IsWanted(const UnitRow& unit, const UnitOptions& options)
{
    return (!options.failed || unit.code <= 0) && (!options.retested || unit.runs > 1);
}

std::optional<QHash<int, QString>> PathsOfComponents(const Archive& archive)
{
    QHash<int, QString> paths;
    std::optional<QSqlQuery> query = Ask(archive, QStringLiteral("SELECT id, path FROM component"));
    while (query && query->next())
        paths.insert(query->value(0).toInt(), query->value(1).toString());
    return query && IsComplete(archive, *query) ? std::optional(paths) : std::nullopt;
}

void FillFailure(const QSqlQuery& query, const QHash<int, QString>& paths, UnitRow* row)
{
    row->firstFailure = paths.value(query.value(3).toInt());
    const QVariant number = query.value(8);
    row->failedValue = number.isNull() ? std::nullopt : std::optional(number.toDouble());
    row->failedUnit = query.value(9).toString();
    row->failedStyle.factor = query.value(10).toInt();
    row->failedStyle.unitCode = query.value(11).toInt();
}

} // namespace

std::optional<std::vector<UnitRow>> AskUnits(const Archive& archive, const RunFilter& filter,
                                             const UnitOptions& options)
{
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::Units);
    Programs programs;
    const std::optional<QHash<int, QString>> paths = PathsOfComponents(archive);
    if (!paths || !programs.Read(archive, runs))
        return std::nullopt;
    std::optional<QSqlQuery> query = runs.Select(
        QStringLiteral("r.unit, r.layout, r.code, f.component, u.product, u.lot, u.serial, u.seen_ident, "
                       "f.num, i.unit, i.factor, i.unit_code"),
        runs.JoinHome() + runs.JoinFirstFailure() +
            QStringLiteral(" AND r.code < 0 LEFT JOIN layout_item i ON i.layout = "
                           "r.layout AND i.component = f.component"),
        ConditionOf(options, runs), QStringLiteral("ORDER BY r.unit, r.program, ") + ChosenRuns::InOrder());
    std::vector<UnitRow> units;
    qint64 lastUnit = 0;
    int lastLayout = 0;
    while (query && query->next()) {
        const qint64 unit = query->value(0).toLongLong();
        const int layout = query->value(1).toInt();
        const int code = query->value(2).toInt();
        const bool isSame =
            unit == lastUnit && (layout == lastLayout || programs.NameOf(layout) == units.back().program);
        lastUnit = unit;
        lastLayout = layout;
        if (!isSame) {
            if (!units.empty() && !IsWanted(units.back(), options))
                units.pop_back();
            UnitRow& row = units.emplace_back();
            row.program = programs.NameOf(layout);
            row.product = query->value(4).toString();
            row.lot = query->value(5).toString();
            row.serial = query->value(6).toString();
            if (row.serial.isEmpty())
                row.serial = query->value(7).toString();
            row.firstCode = code;
        }
        UnitRow& row = units.back();
        ++row.runs;
        row.code = code;
        if (code < 0)
            FillFailure(*query, *paths, &row);
    }
    if (!query || !IsComplete(archive, *query))
        return std::nullopt;
    if (!units.empty() && !IsWanted(units.back(), options))
        units.pop_back();
    for (UnitRow& row : units)
        row.group = programs.GroupOf(row.program);
    std::sort(units.begin(), units.end(), [](const UnitRow& a, const UnitRow& b) {
        return std::tie(a.product, a.lot, a.serial, a.program) <
               std::tie(b.product, b.lot, b.serial, b.program);
    });
    return units;
}

} // namespace ZYN
