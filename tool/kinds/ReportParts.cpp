#include "kinds/ReportParts.h"

#include "terminal/Texts.h"

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/ValidationInterface.h>

#include <algorithm>

namespace ZYN::Tool {

namespace {

const ValueDisplay* DisplayOf(const TestResult* result)
{
    return result->GetValidation() ? result->GetValidation()->GetValueDisplay() : nullptr;
}

QString SignOf(LimitOperator::Code code)
{
    switch (code) {
    case LimitOperator::None:
        return QString();
    case LimitOperator::Equal:
        return QStringLiteral("=");
    case LimitOperator::NotEqual:
        return QStringLiteral("≠");
    case LimitOperator::Less:
        return QStringLiteral("<");
    case LimitOperator::LessEqual:
        return QStringLiteral("≤");
    case LimitOperator::Greater:
        return QStringLiteral(">");
    case LimitOperator::GreaterEqual:
        return QStringLiteral("≥");
    }
    return QString();
}

// The lower side reads limit-operator-value; turned round it reads value-operator-limit.
LimitOperator::Code TurnedRound(LimitOperator::Code code)
{
    switch (code) {
    case LimitOperator::Less:
        return LimitOperator::Greater;
    case LimitOperator::LessEqual:
        return LimitOperator::GreaterEqual;
    case LimitOperator::Greater:
        return LimitOperator::Less;
    case LimitOperator::GreaterEqual:
        return LimitOperator::LessEqual;
    default:
        return code;
    }
}

} // namespace

EN_ZYN_RESULT Part::Verdict() const
{
    return result ? result->GetResult() : ZYN_RESULT_NOT_TESTED;
}

QString Part::VerdictText() const
{
    return TestResult::ResultToString(Verdict());
}

bool Part::HasValue() const
{
    return result && Verdict() != ZYN_RESULT_ABORTED && Verdict() != ZYN_RESULT_ERROR &&
           result->GetValue().isValid();
}

Part PartOf(const TestResultSet* run, const TestComponent* component)
{
    return {component, run->GetResult(component)};
}

QList<Part> ChildrenOf(const TestResultSet* run, const Part& part, bool failedOnly)
{
    QList<Part> parts;
    for (const TestComponent* const child : part.component->GetChildren()) {
        const Part childPart = PartOf(run, child);
        if (!failedOnly || childPart.Failed())
            parts.append(childPart);
    }
    return parts;
}

Part OnlyMeasurement(const TestResultSet* run, const Part& step)
{
    const auto* const testStep = qobject_cast<const TestStep*>(step.component);
    if (!testStep || testStep->GetMeasurementCount() != 1 ||
        testStep->GetMeasurementForIndex(0)->GetID() != 0)
        return {};
    return PartOf(run, testStep->GetMeasurementForIndex(0).data());
}

bool HasFailed(const UUTTest* unit)
{
    const QList<TestResultSet*> runs = unit->GetResultSets();
    return unit->GetResult() < 0 || std::any_of(runs.begin(), runs.end(), [](const TestResultSet* run) {
               return run->GetTestProgram() && PartOf(run, run->GetTestProgram().data()).Failed();
           });
}

bool HasPassedLater(const UUTTest* unit)
{
    return unit->GetResult() > 0 && HasFailed(unit);
}

QString ValueText(const TestResult* result)
{
    return result->GetValueString(DisplayOf(result));
}

QString UnitText(const TestResult* result)
{
    return result->GetUnitString(DisplayOf(result), false);
}

QString NumberUnitText(const TestResult* result)
{
    const auto& validation = result->GetValidation();
    const int unit = validation ? validation->GetMeasurementUnit().GetCode() : MeasurementUnit::None;
    const bool isInDigits = unit == MeasurementUnit::Hexadecimal || unit == MeasurementUnit::Binary;
    return isInDigits ? QString() : result->GetUnitString(nullptr, false);
}

QString LimitsText(const ValidationInterface* validation)
{
    if (!validation)
        return QString();
    const LimitOperator::Code lowerCode = validation->GetLowerOperator().GetCode();
    const LimitOperator::Code upperCode = validation->GetUpperOperator().GetCode();
    const QString lower = validation->GetLowerLimitText();
    const QString upper = validation->GetUpperLimitText();
    QString text;
    if (!validation->HasLowerLimit() && !validation->HasUpperLimit())
        return text;
    if (!validation->HasUpperLimit())
        text = SignOf(TurnedRound(lowerCode)) + QLatin1Char(' ') + lower;
    else if (!validation->HasLowerLimit())
        text = SignOf(upperCode) + QLatin1Char(' ') + upper;
    else if (lowerCode == LimitOperator::LessEqual && upperCode == LimitOperator::LessEqual)
        text = lower + QStringLiteral(" … ") + upper;
    else
        text = SignOf(TurnedRound(lowerCode)) + QLatin1Char(' ') + lower + QStringLiteral(", ") +
               SignOf(upperCode) + QLatin1Char(' ') + upper;
    return validation->IsResultInverted() ? Texts::tr("not %1").arg(text) : text;
}

} // namespace ZYN::Tool
