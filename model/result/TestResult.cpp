#include <ZYNCommon/TestResult.h>

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/ZYNTools.h>

#include "TimeText.h"
#include "ValidationText.h"
#include "WorstResult.h"

#include "text/DecimalText.h"
#include "text/DurationText.h"

#include <cmath>

namespace ZYN {

namespace {

/// Programs, groups and steps measure nothing.
bool CarriesValue(const TestComponent* component)
{
    if (!component)
        return true;
    return component->type != ZYN_ADDRESS_PROGRAM && component->type != ZYN_ADDRESS_GROUP &&
           component->type != ZYN_ADDRESS_STEP;
}

/// The largest doubles below and above which a conversion to 64 bits is defined.
constexpr double int64Limit = 9223372036854775808.0;

QVariant Integral(const QVariant& value)
{
    const double number = value.toDouble();
    if (std::trunc(number) != number || number < -int64Limit || number >= int64Limit)
        return value;
    return static_cast<qlonglong>(number);
}

} // namespace

TestResult::TestResult(QSharedPointer<TestComponent> component)
    : m_component(std::move(component))
{
}

TestResult::~TestResult()
{
    if (m_component && m_component->GetResult() == this)
        m_component->SetResult(nullptr);
}

EN_ZYN_RESULT TestResult::GetResult() const
{
    return m_hasResult ? m_result : DerivedResult();
}

EN_ZYN_RESULT TestResult::DerivedResult() const
{
    if (m_value.isValid()) {
        if (!m_validation)
            return ZYN_RESULT_DONE;
        return m_validation->Validate(m_value) ? ZYN_RESULT_PASSED : ZYN_RESULT_FAILED;
    }
    WorstResult worst;
    if (m_set && m_component) {
        for (const TestComponent* const child : m_component->GetChildren())
            worst.Add(m_set->GetVerdict(child));
    }
    return worst.Get();
}

QString TestResult::GetResultString() const
{
    return ResultToString(GetResult());
}

QString TestResult::ResultToString(EN_ZYN_RESULT result)
{
    switch (result) {
    case ZYN_RESULT_ABORTED:
        return QStringLiteral("ABORTED");
    case ZYN_RESULT_ERROR:
        return QStringLiteral("ERROR");
    case ZYN_RESULT_FAILED:
        return QStringLiteral("FAIL");
    case ZYN_RESULT_NOT_TESTED:
        return QStringLiteral("NOT TESTED");
    case ZYN_RESULT_PASSED:
        return QStringLiteral("PASS");
    case ZYN_RESULT_DONE:
        return QStringLiteral("DONE");
    }
    return QStringLiteral("CODE %1").arg(static_cast<int>(result));
}

QString TestResult::GetValueTypeString() const
{
    return m_component ? ZYNTools::AddressToDataTypeString(m_component->type) : QString();
}

QString TestResult::GetValueString(const ValueDisplay* display) const
{
    return ValidationText::Value(m_value, m_validation.data(), display);
}

QString TestResult::GetLowerLimitString(const ValueDisplay* display) const
{
    return ValidationText::LowerLimit(m_validation.data(), display);
}

QString TestResult::GetUpperLimitString(const ValueDisplay* display) const
{
    return ValidationText::UpperLimit(m_validation.data(), display);
}

QString TestResult::GetUnitString(const ValueDisplay* display, bool bracketed) const
{
    const QString unit = ValidationText::Unit(m_validation.data(), display);
    return bracketed && !unit.isEmpty() ? QLatin1Char('[') + unit + QLatin1Char(']') : unit;
}

QString TestResult::GetBaseUnitString() const
{
    return m_validation ? m_validation->GetMeasurementUnit().ToAsciiString() : QString();
}

QString TestResult::GetComment() const
{
    return m_remarks ? m_remarks->comment : QString();
}

QString TestResult::GetAttribute() const
{
    return m_remarks ? m_remarks->attribute : QString();
}

QString TestResult::GetTimeString() const
{
    return m_time;
}

double TestResult::GetDuration() const
{
    return m_duration;
}

QString TestResult::GetDurationString() const
{
    return DurationText::Milliseconds(m_duration);
}

QString TestResult::GetDurationStringFormated() const
{
    return DurationText::ForPeople(m_duration);
}

void TestResult::SetResult(EN_ZYN_RESULT result)
{
    m_result = result;
    m_hasResult = true;
}

void TestResult::SetValue(const QVariant& value)
{
    if (!CarriesValue(m_component.get()))
        return;
    const int kind = value.metaType().id();
    if (kind == QMetaType::Bool)
        m_value = value.toBool() ? 1 : 0;
    else if (kind == QMetaType::Double && m_component && m_component->type == ZYN_ADDRESS_INTEGER)
        m_value = Integral(value);
    else
        m_value = value;
}

TestResult::Remarks& TestResult::NeedRemarks()
{
    if (!m_remarks)
        m_remarks = std::make_unique<Remarks>();
    return *m_remarks;
}

void TestResult::SetComment(const QString& comment)
{
    if (m_remarks || !comment.isNull())
        NeedRemarks().comment = comment;
}

void TestResult::SetAttribute(const QString& attribute)
{
    if (m_remarks || !attribute.isNull())
        NeedRemarks().attribute = attribute;
}

void TestResult::SetTimeString(const QString& time)
{
    m_time = time;
}

void TestResult::SetTime(const QDateTime& time)
{
    m_time = TimeText::FromTime(time);
}

void TestResult::SetDuration(double seconds)
{
    m_duration = seconds;
}

void TestResult::SetValidation(QSharedPointer<ValidationInterface> validation)
{
    m_validation = std::move(validation);
}

} // namespace ZYN
