#include "archive/Archive.h"
#include "archive/ArchiveTexts.h"
#include "archive/StartOfRun.h"
#include "archive/questions/ChosenRuns.h"

#include <map>

namespace ZYN {

namespace {

QString UnitText(const QString& name)
{
    return name.isEmpty() ? ArchiveTexts::tr("a unit without serial")
                          : ArchiveTexts::tr("unit '%1'").arg(name);
}

bool AppendunreadableStarts(const Archive& archive, const RunFilter& filter, QStringList* notes)
{
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::All);
    std::optional<QSqlQuery> query = runs.Select(
        QStringLiteral("u.serial, u.seen_ident, v.source, v.start_text"), runs.JoinHome() + runs.JoinValues(),
        QStringLiteral("r.start = %1").arg(QString::number(unreadableStart)),
        QStringLiteral("ORDER BY ") + ChosenRuns::InOrder());
    while (query && query->next()) {
        const QString serial = query->value(0).toString(), source = query->value(2).toString(),
                      start = query->value(3).toString();
        const QString unit = UnitText(serial.isEmpty() ? query->value(1).toString() : serial);
        notes->append(
            start.isEmpty()
                ? ArchiveTexts::tr("%1: the run of %2 has no start; it comes last").arg(source, unit)
                : ArchiveTexts::tr("%1: the start '%2' of %3 cannot be read; its run comes last")
                      .arg(source, start, unit));
    }
    return query && IsComplete(archive, *query);
}

const QString repeatedSerials = QStringLiteral(
    "SELECT product, serial FROM unit WHERE serial <> ''%1 GROUP BY serial, product HAVING count(*) > 1");

// Most archives have none, which is told at once.
std::optional<bool> HasRepeatedSerials(const Archive& archive, const RunFilter& filter)
{
    const bool isAll = filter.product.isEmpty();
    std::optional<QSqlQuery> query =
        Ask(archive,
            repeatedSerials.arg(isAll ? QString() : QStringLiteral(" AND product = ?")) +
                QStringLiteral(" LIMIT 1"),
            isAll ? QVariantList() : QVariantList{filter.product});
    const bool hasSome = query && query->next();
    return query && IsComplete(archive, *query) ? std::optional(hasSome) : std::nullopt;
}

bool AppendSerialsOfSeveralLots(const Archive& archive, const RunFilter& filter, QStringList* notes)
{
    const std::optional<bool> hasSome = HasRepeatedSerials(archive, filter);
    if (!hasSome || !*hasSome)
        return hasSome.has_value();
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::Units);
    std::optional<QSqlQuery> query =
        runs.Select(QStringLiteral("DISTINCT u.product, u.serial, u.lot"), runs.JoinHome(),
                    QStringLiteral("(u.product, u.serial) IN (%1)").arg(repeatedSerials.arg(QString())),
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
    if (!AppendunreadableStarts(archive, filter, &notes) ||
        (!filter.acrossLots && !AppendSerialsOfSeveralLots(archive, filter, &notes)))
        return std::nullopt;
    return notes;
}

} // namespace ZYN
