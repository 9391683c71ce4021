#pragma once

#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN {
class TestComponent;
class TestMeasurement;
class TestResult;
class TestResultSet;
class UUTTest;
class ValidationInterface;
} // namespace ZYN

namespace ZYN::Tool {

/// A component with its result of one run, as both views of a report want it.
struct Part {
    const TestComponent* component = nullptr;
    const TestResult* result = nullptr; ///< null: not executed

    EN_ZYN_RESULT Verdict() const;
    bool Failed() const { return Verdict() < 0; }
    QString VerdictText() const;
    /// Whether there is a value to show. A test that was stopped or went wrong here has none, although a
    /// report that left it empty reads back as 0.
    bool HasValue() const;
};

Part PartOf(const TestResultSet* run, const TestComponent* component);
/// The direct children; with `failedOnly` those that failed.
QList<Part> ChildrenOf(const TestResultSet* run, const Part& part, bool failedOnly);
/// The measurement that stands for the whole step (it has the id 0), or a part without component.
Part OnlyMeasurement(const TestResultSet* run, const Part& step);

/// Whether a unit failed, in the end or in a run before the last.
bool HasFailed(const UUTTest* unit);
/// The same although it passed in the end.
bool HasPassedLater(const UUTTest* unit);

/// The value in its display's scale and radix, without unit.
QString ValueText(const TestResult* result);
/// The unit with prefix.
QString UnitText(const TestResult* result);
/// The unit of the number itself: without prefix, and empty for one that is shown in other digits.
QString NumberUnitText(const TestResult* result);
/// "4.75 … 5.25", "≤ 60", "= 2.4.1"; empty without limits.
QString LimitsText(const ValidationInterface* validation);

} // namespace ZYN::Tool
