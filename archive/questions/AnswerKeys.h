#pragma once

#include "archive/Questions.h"

/// \file
/// By what names figures stand in answers for programs, JSON and Python: once for all of them. A record has
/// `Add(const char* key, value)` for texts, `std::int64_t` and `std::optional<double>`.

namespace ZYN {

namespace AnswerKeys {
inline constexpr QLatin1String BinName("name"); ///< of a group, behind its bin
}

/// Whether a part of a group is told to programs: a bin that no lot names has no name.
inline bool IsTold(const AnswerGroup::value_type& part)
{
    return part.first != AnswerKeys::BinName || !part.second.isEmpty();
}

template <class Record>
void FillRecord(const RunPlace& place, Record& record)
{
    record.Add("serial", place.serial);
    record.Add("lot", place.lot);
    record.Add("start", place.start);
}

template <class Record>
void FillRecord(const YieldRow& row, Record& record)
{
    record.Add("units", row.units);
    record.Add("first_runs", row.firstRuns);
    record.Add("first_pass", row.firstPass);
    record.Add("passed", row.passed);
    record.Add("runs", row.runs);
    record.Add("runs_passed", row.runsPassed);
    record.Add("failed", row.failed);
    record.Add("aborted", row.aborted);
    record.Add("errors", row.errors);
    record.Add("not_tested", row.notTested);
}

template <class Record>
void FillRecord(const FailureRow& row, Record& record)
{
    record.Add("ident", row.ident);
    record.Add("path", row.path);
    record.Add("first", row.first);
    record.Add("all", row.all);
    record.Add("share", std::optional(row.share));
}

/// But for drift and rules, which hold others.
template <class Record>
void FillRecord(const MeasureRow& row, Record& record)
{
    record.Add("ident", row.ident);
    record.Add("path", row.path);
    record.Add("unit", row.unit);
    record.Add("lower", row.lower);
    record.Add("upper", row.upper);
    record.Add("count", row.count);
    record.Add("mean", row.mean);
    record.Add("sigma", row.sigma);
    record.Add("min", row.min);
    record.Add("max", row.max);
    record.Add("cpk", row.cpk);
    record.Add("cpk_passed", row.cpkPassed);
    record.Add("failed", row.failed);
}

/// But for the first failure, which may be none.
template <class Record>
void FillRecord(const UnitRow& row, Record& record)
{
    record.Add("product", row.product);
    record.Add("lot", row.lot);
    record.Add("serial", row.serial);
    record.Add("runs", row.runs);
    record.Add("first_code", std::int64_t(row.firstCode));
    record.Add("code", std::int64_t(row.code));
}

/// But for the first failure, which may be none.
template <class Record>
void FillRecord(const HistoryRow& row, Record& record)
{
    record.Add("product", row.product);
    record.Add("serial", row.serial);
    record.Add("lot", row.lot);
    record.Add("station", row.station);
    record.Add("start", row.start);
    record.Add("program", row.program);
    record.Add("verdict", row.verdict);
    record.Add("code", std::int64_t(row.code));
    record.Add("run", row.run);
}

} // namespace ZYN
