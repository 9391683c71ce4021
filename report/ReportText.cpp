#include "ReportText.h"

#include "export/ModelAdapter.h"

#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/ValueDisplay.h>

#include <QtCore/QLocale>
#include <QtCore/QStringBuilder>

namespace ZYN::ReportText {

using namespace Qt::StringLiterals;

namespace {

/// What `QVariant::toString` gives, without its detour for real numbers, which most values are.
QString PlainText(const QVariant& value)
{
    return value.typeId() == QMetaType::Double
               ? QString::number(*static_cast<const double*>(value.constData()), 'g',
                                 QLocale::FloatingPointShortest)
               : value.toString();
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
}

QString Ident(const Row& row)
{
    return row.component->GetIdentString();
}

QString SpreadsheetIdent(const Row& row)
{
    return SpreadsheetText(Ident(row));
}

QString Name(const Row& row)
{
    return row.component->GetName();
}

QString TypeCode(const Row& row)
{
    return QString::number(ModelAdapter::TypeCode(row.component));
}

QString Type(const Row& row)
{
    return row.component->GetTypeString();
}

QString ResultCode(const Row& row)
{
    return QString::number(row.result->GetResult());
}

QString Result(const Row& row)
{
    return row.result->GetResultString();
}

QString PlainValue(const Row& row)
{
    return PlainText(row.result->GetValue());
}

QString ShownValue(const Row& row)
{
    const QVariant& value = row.result->GetValue();
    if (!value.isValid())
        return {};
    return row.display ? row.display->ToString(value) : ValueDisplay::StaticToString(value);
}

QString ResultValue(const Row& row)
{
    return row.result->GetValueString(row.display);
}

QString Unit(const Row& row)
{
    return row.result->GetUnitString(row.display, false);
}

QString LowerOperator(const Row& row)
{
    const bool limited = row.validation && row.validation->HasLowerLimit();
    return limited ? row.validation->GetLowerOperator().ToString() : QString();
}

QString PlainLowerLimit(const Row& row)
{
    const bool limited = row.validation && row.validation->HasLowerLimit();
    return limited ? PlainText(row.validation->GetLowerLimit()) : QString();
}

QString UpperOperator(const Row& row)
{
    const bool limited = row.validation && row.validation->HasUpperLimit();
    return limited ? row.validation->GetUpperOperator().ToString() : QString();
}

QString PlainUpperLimit(const Row& row)
{
    const bool limited = row.validation && row.validation->HasUpperLimit();
    return limited ? PlainText(row.validation->GetUpperLimit()) : QString();
}

QString ShownLowerLimit(const Row& row)
{
    return row.validation ? row.validation->GetLowerLimitText() : QString();
}

QString ShownUpperLimit(const Row& row)
{
    return row.validation ? row.validation->GetUpperLimitText() : QString();
}

QString ResultLowerLimit(const Row& row)
{
    return row.result->GetLowerLimitString(row.display);
}

QString ResultUpperLimit(const Row& row)
{
    return row.result->GetUpperLimitString(row.display);
}

QString Duration(const Row& row)
{
    return row.result->GetDurationString();
}

QString DurationForPeople(const Row& row)
{
    return row.result->GetDurationStringFormated();
}

QString Attribute(const Row& row)
{
    return row.result->GetAttribute();
}

QString Comment(const Row& row)
{
    return row.result->GetComment();
}

QString SimplifiedAttribute(const Row& row)
{
    return Attribute(row).simplified();
}

QString SimplifiedComment(const Row& row)
{
    return Comment(row).simplified();
}

} // namespace ZYN::ReportText
