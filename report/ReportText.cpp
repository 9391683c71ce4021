#include "ReportText.h"

#include "export/ModelAdapter.h"

#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/ValueDisplay.h>

#include <QtCore/QStringBuilder>

namespace ZYN::ReportText {

using namespace Qt::StringLiterals;

namespace {

/// What `QVariant::toString` gives, without its detour for numbers, which most values are.
CellText PlainText(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Double:
        return CellText::Real(*static_cast<const double*>(value.constData()));
    case QMetaType::Int:
    case QMetaType::LongLong:
        return CellText::Integer(value.toLongLong());
    default:
        return value.toString();
    }
}

/// A limit as it is stored. The limit is reached like a pointer, null where there is none.
template <class Limit>
CellText PlainLimit(const Limit& limit)
{
    return limit ? PlainText(*limit) : CellText();
}

} // namespace

const ValueDisplay* Display(const TestResult* result)
{
    const auto& validation = result->GetValidation();
    return validation ? validation->GetValueDisplay() : nullptr;
}

QString ResultId(EN_ZYN_RESULT result)
{
    return result < 0 ? QStringLiteral("FAIL") : QStringLiteral("PASS");
}

QString FileName(const TestProgram* program)
{
    return program->GetFileInfo().fileName();
}

QString SpreadsheetText(const QString& text)
{
    return "=\""_L1 % text % u'"';
}

bool StandsForStep(const TestMeasurement* measurement)
{
    return ModelAdapter::Id(measurement) == 0;
}

bool IsStoodFor(const TestStep* step)
{
    return !step->GetMeasurementForID(0).isNull();
}

Row::Row(const TestComponent* rowComponent, const TestResult* rowResult, const ValueDisplay* rowDisplay)
    : component(rowComponent)
    , result(rowResult)
    , display(rowDisplay)
    , validation(rowResult->GetValidation().data())
{
    if (validation)
        limits = ModelAdapter::Limits(validation);
}

CellText Ident(const Row& row)
{
    const std::optional<long> number = ModelAdapter::NumberAsIdent(row.component);
    return number ? CellText::Integer(*number) : row.component->GetIdentString();
}

CellText SpreadsheetIdent(const Row& row)
{
    const std::optional<long> number = ModelAdapter::NumberAsIdent(row.component);
    return number ? CellText::Integer(*number, "=\""_L1, "\""_L1)
                  : SpreadsheetText(row.component->GetIdentString());
}

CellText Name(const Row& row)
{
    return row.component->GetName();
}

CellText TypeCode(const Row& row)
{
    return CellText::Integer(ModelAdapter::TypeCode(row.component));
}

CellText Type(const Row& row)
{
    return row.component->GetTypeString();
}

CellText ResultCode(const Row& row)
{
    return CellText::Integer(row.result->GetResult());
}

CellText Result(const Row& row)
{
    return row.result->GetResultString();
}

CellText PlainValue(const Row& row)
{
    return PlainText(row.result->GetValue());
}

CellText ShownValue(const Row& row)
{
    const QVariant& value = row.result->GetValue();
    if (!value.isValid())
        return {};
    return row.display ? row.display->ToString(value) : ValueDisplay::StaticToString(value);
}

CellText ResultValue(const Row& row)
{
    return row.result->GetValueString(row.display);
}

CellText Unit(const Row& row)
{
    return row.result->GetUnitString(row.display, false);
}

CellText LowerOperator(const Row& row)
{
    return row.limits.lower ? row.validation->GetLowerOperator().ToString() : QString();
}

CellText PlainLowerLimit(const Row& row)
{
    return PlainLimit(row.limits.lower);
}

CellText UpperOperator(const Row& row)
{
    return row.limits.upper ? row.validation->GetUpperOperator().ToString() : QString();
}

CellText PlainUpperLimit(const Row& row)
{
    return PlainLimit(row.limits.upper);
}

CellText ShownLowerLimit(const Row& row)
{
    return row.validation ? row.validation->GetLowerLimitText() : QString();
}

CellText ShownUpperLimit(const Row& row)
{
    return row.validation ? row.validation->GetUpperLimitText() : QString();
}

CellText ResultLowerLimit(const Row& row)
{
    return row.result->GetLowerLimitString(row.display);
}

CellText ResultUpperLimit(const Row& row)
{
    return row.result->GetUpperLimitString(row.display);
}

CellText Duration(const Row& row)
{
    return row.result->GetDurationString();
}

CellText DurationForPeople(const Row& row)
{
    return row.result->GetDurationStringFormated();
}

CellText Attribute(const Row& row)
{
    return row.result->GetAttribute();
}

CellText Comment(const Row& row)
{
    return row.result->GetComment();
}

CellText SimplifiedAttribute(const Row& row)
{
    return row.result->GetAttribute().simplified();
}

CellText SimplifiedComment(const Row& row)
{
    return row.result->GetComment().simplified();
}

} // namespace ZYN::ReportText
