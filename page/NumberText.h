#pragma once

#include "archive/Questions.h"

namespace ZYN::Page {

/// "96.5 %"; nothing for no units.
QString Percent(double part, double whole);
/// "96.5 % (386 of 400)".
QString Share(double part, double whole);
/// "386 of 400".
QString Of(std::int64_t part, std::int64_t whole);

/// The mean of a measurement with as many digits as its sigma makes worthwhile, and its sigma; decimal.
QString MeanOf(const MeasureRow& row);
QString SigmaOf(const MeasureRow& row);
/// A figure with its unit and a prefix; whole numbers of a hexadecimal or binary unit by their digits. A dash
/// where it does not exist.
QString Figure(const std::optional<double>& value, const QString& unit, const NumberStyle& style,
               int digits = 5);
/// A capability: two digits behind the point.
QString Capability(const std::optional<double>& value);
/// "4.85 V … 5.15 V", "≥ 3 V", "= 1"; a dash without limits.
QString Limits(const MeasureRow& row);

/// Names of program and measurement.
QString NameOf(const MeasureRow& row);
/// The values of a group: "2024-01-09 06".
QString GroupText(const AnswerGroup& group);
/// The program of a group; where it has no name, in words. Empty where all runs are of one.
QString ProgramOf(const AnswerGroup& group);
/// The value of a group by this name; empty where it has none.
QString ValueOf(const AnswerGroup& group, const QString& name);
/// The last value of a group, without the program.
QString LastOf(const AnswerGroup& group);

/// "2024-01-09 06:00:00+01:00": the start of a run without parts of a second.
QString TimeText(const QString& start);
/// "A trend up of 0.9 sigma, begun at unit 7, 2024-01-09 06:00:00."
QString DriftSentence(const Drift& drift);
/// What the rules found, each where it began first; empty for nothing.
QString RulesSentence(const MeasureRow& row);

} // namespace ZYN::Page
