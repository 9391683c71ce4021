#pragma once

#include "Model.h"

#include <QtCore/QDateTime>

#include <optional>

/// Unit tests as a tester would leave them, with fixed ids, times and values: what the expected files
/// below tests/golden were made from.
namespace ZYN::SampleModels {

/// One unit with every header item that passed: groups of every kind, parameters, steps with and without
/// a measurement 0.
QSharedPointer<UUTTest> PassedUnit();
/// One unit that failed: a measurement for every kind of value, with and without limits.
QSharedPointer<UUTTest> FailedUnit();
/// A panel of three items of which the first passed, the second failed and the third was aborted. The
/// items run one and the same program; the panel itself has a result set of its own.
QSharedPointer<UUTTest> Panel();
/// A test of a unit that has a serial number and nothing else: no product, lot, session, results.
QSharedPointer<UUTTest> BareUnit();
/// Names and texts that no format may stumble over.
QSharedPointer<UUTTest> HostileNames();
/// A unit with components of every kind that are not to be reported. The program, the groups and the
/// steps have controls of their own that say so.
QSharedPointer<UUTTest> ExcludedComponents();
/// A unit whose one step has this many measurements; %1 in their name becomes their number.
QSharedPointer<UUTTest> UnitWithRows(int rows, const QString& name);

/// A sample and how it is reported: one folder below tests/golden.
struct ReportCase {
    QString name;
    QSharedPointer<UUTTest> test;
    bool withLogo = false;
    bool ignoreReportFlag = false;
    /// Nothing leaves the builder's own setting.
    std::optional<bool> useScaledData;
};

/// Names of all cases.
QStringList ReportCaseNames();
/// A fresh model for a case; nothing for an unknown name.
std::optional<ReportCase> MakeReportCase(const QString& name);

/// The clock of all expected files, a local time.
QDateTime ReportTime();
/// The test engine's version in all expected files.
QString EngineVersion();

} // namespace ZYN::SampleModels
