#include "Records.h"

#include "archive/questions/AnswerKeys.h"

#include <pybind11/stl.h>

namespace ZYN::Python {

namespace {

/// A dictionary that answers are put into.
class Record {
public:
    Record() = default;
    /// Begins with the names of the group, where there is one.
    explicit Record(const AnswerGroup& group)
    {
        for (const auto& part : group)
            if (IsTold(part))
                m_record[Str(part.first)] = Str(part.second);
    }

    template <typename Value>
    void Add(const char* key, const Value& value)
    {
        m_record[key] = py::cast(value);
    }
    void Add(const char* key, const py::dict& value) { m_record[key] = value; }
    const py::dict& Take() const { return m_record; }

private:
    py::dict m_record;
};

template <typename Row>
py::dict Filled(const Row& row, Record record)
{
    FillRecord(row, record);
    return record.Take();
}

py::object DriftOf(const std::optional<Drift>& drift)
{
    if (!drift)
        return py::none();
    Record record;
    record.Add("kind", drift->kind);
    record.Add("p", drift->p);
    record.Add("sigmas", drift->sigmas);
    record.Add("index", drift->index);
    record.Add("since", Filled(drift->since, Record()));
    return record.Take();
}

py::list RulesOf(const std::vector<RuleHit>& hits)
{
    py::list rules;
    for (const RuleHit& hit : hits) {
        Record rule;
        rule.Add("rule", hit.rule);
        rule.Add("index", hit.index);
        rule.Add("since", Filled(hit.since, Record()));
        rules.append(rule.Take());
    }
    return rules;
}

py::object FailureOf(const std::optional<FirstFailure>& failure)
{
    if (!failure)
        return py::none();
    Record record;
    record.Add("path", failure->path);
    record.Add("value", failure->value);
    record.Add("unit", failure->unit);
    record.Add("lower", failure->lower);
    record.Add("upper", failure->upper);
    return record.Take();
}

} // namespace

py::dict RecordOf(const YieldRow& row)
{
    return Filled(row, Record(row.group));
}

py::dict RecordOf(const FailureRow& row)
{
    return Filled(row, Record(row.group));
}

py::dict RecordOf(const MeasureRow& row)
{
    py::dict record = Filled(row, Record(row.group));
    record["drift"] = DriftOf(row.drift);
    record["rules"] = RulesOf(row.rules);
    return record;
}

py::dict RecordOf(const UnitRow& row)
{
    py::dict record = Filled(row, Record(row.group));
    record["first_failure"] =
        row.firstFailure.isEmpty() ? py::object(py::none()) : py::object(Str(row.firstFailure));
    return record;
}

py::dict RecordOf(const HistoryRow& row)
{
    py::dict record = Filled(row, Record());
    record["first_failure"] = FailureOf(row.firstFailure);
    return record;
}

py::dict RecordOf(const ArchiveInfo& info)
{
    Record record;
    record.Add("kind", info.kind);
    record.Add("version", info.version);
    record.Add("runs", info.runs);
    record.Add("replaced", info.replaced);
    record.Add("units", info.units);
    record.Add("products", info.products);
    record.Add("lots", info.lots);
    record.Add("programs", info.programs);
    record.Add("values", info.values);
    record.Add("bytes", info.bytes);
    return record.Take();
}

} // namespace ZYN::Python
