#include "archive/Archive.h"
#include "archive/ArchiveTexts.h"
#include "archive/StartOfRun.h"
#include "archive/questions/ChosenRuns.h"

#include <map>

namespace ZYN {

namespace {

bool AppendUnreadableStarts(const Archive& archive, const RunFilter& filter, QStringList* notes)
{
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::All);
    std::optional<QSqlQuery> query =
        runs.Select(QStringLiteral("u.serial, u.seen_ident, v.source, v.start_text"),
                    ChosenRuns::JoinHome() + runs.JoinValues(),
                    QStringLiteral("r.start = %1").arg(QString::number(UnreadableStart)),
                    QStringLiteral("ORDER BY ") + ChosenRuns::InOrder());
    while (query && query->next()) {
        const QString serial = query->value(0).toString();
        notes->append(ArchiveTexts::tr("%1: the start '%2' of unit '%3' cannot be read; its run comes last")
                          .arg(query->value(2).toString(), query->value(3).toString(),
                               serial.isEmpty() ? query->value(1).toString() : serial));
    }
    return query && IsComplete(archive, *query);
}

// Most archives have none, which the index of serials tells at once.
const QString repeatedSerials =
    QStringLiteral("SELECT serial FROM unit WHERE serial <> '' GROUP BY serial HAVING count(*) > 1");

std::optional<bool> HasRepeatedSerials(const Archive& archive)
{
    std::optional<QSqlQuery> query = Ask(archive, repeatedSerials + QStringLiteral(" LIMIT 1"));
    const bool hasSome = query && query->next();
    return query && IsComplete(archive, *query) ? std::optional(hasSome) : std::nullopt;
}

bool AppendSerialsOfSeveralLots(const Archive& archive, const RunFilter& filter, QStringList* notes)
{
    const std::optional<bool> hasSome = HasRepeatedSerials(archive);
    if (!hasSome || !*hasSome)
        return hasSome.has_value();
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::Units);
    std::optional<QSqlQuery> query =
        runs.Select(QStringLiteral("DISTINCT u.product, u.serial, u.lot"), ChosenRuns::JoinHome(),
                    QStringLiteral("u.serial IN (%1)").arg(repeatedSerials),
                    QStringLiteral("ORDER BY u.product, u.serial, u.lot"));
    std::map<std::pair<QString, QString>, QStringList> lots;
    while (query && query->next())
        lots[{query->value(0).toString(), query->value(1).toString()}].append(query->value(2).toString());
    for (const auto& [unit, names] : lots)
        if (names.size() > 1)
            notes->append(ArchiveTexts::tr(
                              "serial '%1' of product '%2' stands in several lots (%3) and counts as several "
                              "units; --across-lots joins them")
                              .arg(unit.second, unit.first, names.join(QLatin1String(", "))));
    return query && IsComplete(archive, *query);
}

} // namespace

std::optional<QStringList> AskNotes(const Archive& archive, const RunFilter& filter)
{
    QStringList notes;
    if (!AppendUnreadableStarts(archive, filter, &notes) ||
        (!filter.acrossLots && !AppendSerialsOfSeveralLots(archive, filter, &notes)))
        return std::nullopt;
    return notes;
}

} // namespace ZYN
