#include "archive/Archive.h"
#include "archive/questions/ChosenRuns.h"

namespace ZYN {

std::optional<std::vector<SourcePlace>> AskPlaces(const Archive& archive)
{
    const ChosenRuns runs(archive, {}, ChosenRuns::Of::All);
    std::optional<QSqlQuery> query =
        runs.Select(QStringLiteral("v.source, r.is_panel, r.position, r.run_index"), runs.JoinValues());
    std::vector<SourcePlace> places;
    while (query && query->next()) {
        SourcePlace place{query->value(0).toString(), query->value(1).toBool(), {}, query->value(3).toInt()};
        if (!query->value(2).isNull())
            place.position = query->value(2).toInt();
        places.push_back(place);
    }
    return query && IsComplete(archive, *query) ? std::optional(std::move(places)) : std::nullopt;
}

} // namespace ZYN
