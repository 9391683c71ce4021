#include "Records.h"

#include <pybind11/stl.h>

namespace ZYN::Python {

namespace {

py::dict Begin(const AnswerGroup& group)
{
    py::dict record;
    for (const auto& [name, value] : group)
        record[Str(name)] = Str(value);
    return record;
}

template <typename Value>
void Put(py::dict& record, const char* key, const Value& value)
{
    record[key] = py::cast(value);
}

py::object TextOrNone(const QString& text)
{
    return text.isEmpty() ? py::object(py::none()) : py::object(Str(text));
}

py::dict PlaceOf(const RunPlace& place)
{
    py::dict record;
    Put(record, "serial", place.serial);
    Put(record, "lot", place.lot);
    Put(record, "start", place.start);
    return record;
}

py::object DriftOf(const std::optional<Drift>& drift)
{
    if (!drift)
        return py::none();
    py::dict record;
    Put(record, "kind", drift->kind);
    Put(record, "p", drift->p);
    Put(record, "sigmas", drift->sigmas);
    Put(record, "index", drift->index);
    record["since"] = PlaceOf(drift->since);
    return record;
}

} // namespace

py::dict RecordOf(const YieldRow& row)
{
    py::dict record = Begin(row.group);
    Put(record, "units", row.units);
    Put(record, "first_runs", row.firstRuns);
    Put(record, "first_pass", row.firstPass);
    Put(record, "passed", row.passed);
    Put(record, "runs", row.runs);
    Put(record, "runs_passed", row.runsPassed);
    Put(record, "failed", row.failed);
    Put(record, "aborted", row.aborted);
    Put(record, "errors", row.errors);
    Put(record, "not_tested", row.notTested);
    return record;
}

py::dict RecordOf(const FailureRow& row)
{
    py::dict record = Begin(row.group);
    Put(record, "ident", row.ident);
    Put(record, "path", row.path);
    Put(record, "first", row.first);
    Put(record, "all", row.all);
    Put(record, "share", row.share);
    return record;
}

py::dict RecordOf(const MeasureRow& row)
{
    py::dict record = Begin(row.group);
    Put(record, "ident", row.ident);
    Put(record, "path", row.path);
    Put(record, "unit", row.unit);
    Put(record, "lower", row.lower);
    Put(record, "upper", row.upper);
    Put(record, "count", row.count);
    Put(record, "mean", row.mean);
    Put(record, "sigma", row.sigma);
    Put(record, "min", row.min);
    Put(record, "max", row.max);
    Put(record, "cpk", row.cpk);
    Put(record, "cpk_passed", row.cpkPassed);
    Put(record, "failed", row.failed);
    record["drift"] = DriftOf(row.drift);
    py::list rules;
    for (const RuleHit& hit : row.rules) {
        py::dict rule;
        Put(rule, "rule", hit.rule);
        Put(rule, "index", hit.index);
        rule["since"] = PlaceOf(hit.since);
        rules.append(rule);
    }
    record["rules"] = rules;
    return record;
}

py::dict RecordOf(const UnitRow& row)
{
    py::dict record = Begin(row.group);
    Put(record, "product", row.product);
    Put(record, "lot", row.lot);
    Put(record, "serial", row.serial);
    Put(record, "runs", row.runs);
    Put(record, "first_code", row.firstCode);
    Put(record, "code", row.code);
    record["first_failure"] = TextOrNone(row.firstFailure);
    return record;
}

py::dict RecordOf(const HistoryRow& row)
{
    py::dict record;
    Put(record, "product", row.product);
    Put(record, "serial", row.serial);
    Put(record, "lot", row.lot);
    Put(record, "station", row.station);
    Put(record, "start", row.start);
    Put(record, "program", row.program);
    Put(record, "verdict", row.verdict);
    Put(record, "code", row.code);
    Put(record, "run", row.run);
    record["first_failure"] = py::none();
    if (const std::optional<FirstFailure>& failure = row.firstFailure) {
        py::dict first;
        Put(first, "path", failure->path);
        Put(first, "value", failure->value);
        Put(first, "unit", failure->unit);
        Put(first, "lower", failure->lower);
        Put(first, "upper", failure->upper);
        record["first_failure"] = first;
    }
    return record;
}

py::dict RecordOf(const ArchiveInfo& info)
{
    py::dict record;
    Put(record, "kind", info.kind);
    Put(record, "version", info.version);
    Put(record, "runs", info.runs);
    Put(record, "replaced", info.replaced);
    Put(record, "units", info.units);
    Put(record, "products", info.products);
    Put(record, "lots", info.lots);
    Put(record, "programs", info.programs);
    Put(record, "values", info.values);
    Put(record, "bytes", info.bytes);
    return record;
}

} // namespace ZYN::Python
