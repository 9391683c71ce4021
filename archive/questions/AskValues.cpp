#include "archive/questions/SeriesReader.h"

namespace ZYN {

std::optional<ValueArrays> AskValues(const Archive& archive, const RunFilter& filter,
                                     const QStringList& names)
{
    SeriesReader reader(archive, filter, names);
    if (!reader.Read())
        return std::nullopt;
    ValueArrays arrays;
    for (MeasuredSeries& series : reader.GetSeries())
        arrays.series.push_back({reader.GetPrograms().GroupOf(series.item.program), series.item.ident,
                                 series.item.path, series.item.unit, series.item.judgement.lower,
                                 series.item.judgement.upper, std::move(series.values),
                                 std::move(series.codes), std::move(series.runs)});
    arrays.runs = std::move(reader.GetRuns());
    return arrays;
}

} // namespace ZYN
