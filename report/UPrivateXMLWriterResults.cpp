// The elements of the result tree: result sets, components, limits, results.

#include "UPrivateXMLWriter.h"

#include "export/ModelAdapter.h"

#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ZYNTools.h>

namespace ZYN {

using namespace Qt::StringLiterals;

void UPrivateXMLWriter::WriteTestResultSetProperties(const TestResultSet* resultSet)
{
    WriteCounted(u"StationID"_s, resultSet->GetStationID());
    WriteProperty(u"StationDescription"_s, resultSet->GetStationDescription());
    WriteCounted(u"TestIndex"_s, resultSet->GetTestIndex());
    WriteProperty(u"FailedGroups"_s, resultSet->GetFailedTestGroups().join(u' '));
    WriteProperty(u"FailedSteps"_s, qint64(resultSet->GetFaildStepCount()));
}

void UPrivateXMLWriter::WriteComponentAttributes(const TestComponent* component)
{
    WriteAttribute(u"ID"_s, component->GetIdentString());
    WriteAttribute(u"Name"_s, component->GetName());
    WriteAttribute(u"Type"_s, qint64(ModelAdapter::TypeCode(component)));
}

void UPrivateXMLWriter::WriteComponentProperties(const TestComponent* component)
{
    WriteProperty(u"Ident"_s, component->GetIdentString());
    if (const unsigned int line = ModelAdapter::SourceLine(component); line > 0)
        WriteProperty(u"SourceLine"_s, qint64(line));
}

void UPrivateXMLWriter::WriteTestProgramProperties(const TestProgram* program)
{
    WriteProperty(u"Name"_s, program->GetDisplayName());
    WriteProperty(u"Version"_s, program->GetVersion());
    WriteProperty(u"File"_s, program->GetFileInfo().fileName());
    WriteProperty(u"FileVersion"_s, program->GetFileVersion());
    WriteProperty(u"Creator"_s, program->GetCreator());
}

void UPrivateXMLWriter::WriteTestGroupProperties(const TestGroup* group)
{
    WriteEnabled(group);
    WriteProperty(u"Type"_s, qint64(ModelAdapter::GroupKind(group)));
    WriteReportInc(group);
}

void UPrivateXMLWriter::WriteTestStepProperties(const TestStep* step)
{
    WriteEnabled(step);
    WriteReportInc(step);
}

void UPrivateXMLWriter::WriteEnabled(const TestComponent* component)
{
    const CtrlEnable* const control = component->GetEnableCtrl();
    WriteProperty(u"Enabled"_s, control && control->IsEnabled());
}

void UPrivateXMLWriter::WriteReportInc(const TestComponent* component)
{
    const CtrlLogInReport* const control = component->GetLogInReportCtrl();
    WriteProperty(u"ReportInc"_s, control && control->GetLogInReport());
}

void UPrivateXMLWriter::WriteLimits(const ValidationInterface* validation, const TestComponent* component)
{
    const EN_ZYN_ADDRESS type = ModelAdapter::TypeCode(component);
    WriteStartElement(u"Limits"_s);
    WriteAttribute(u"DataType"_s, ZYNTools::AddressToDataTypeString(type));
    WriteAttribute(u"Type"_s, qint64(type));
    WriteLimitUnit(validation);
    WriteProperty(u"InvertResult"_s, ModelAdapter::IsResultInverted(validation));
    WriteLimitValues(validation);
    WriteEndElement();
}

void UPrivateXMLWriter::WriteLimitUnit(const ValidationInterface* validation)
{
    const MeasurementUnit unit = ModelAdapter::Unit(validation);
    StartProperty(u"Unit"_s);
    WriteAttribute(u"Code"_s, qint64(ModelAdapter::UnitCode(unit)));
    QString text = unit.ToString();
    if (const ValueDisplay* const display = validation->GetValueDisplay()) {
        WriteAttribute(u"Factor"_s, qint64(display->GetScaleFactor()));
        text.prepend(display->GetScaleString());
    }
    EndProperty(text);
}

void UPrivateXMLWriter::WriteLimitValues(const ValidationInterface* validation)
{
    if (validation->HasLowerLimit()) {
        WriteProperty(u"Lower"_s, validation->GetLowerLimitText());
        WriteProperty(u"CompLower"_s, validation->GetLowerOperator().ToString());
    }
    if (validation->HasUpperLimit()) {
        WriteProperty(u"Upper"_s, validation->GetUpperLimitText());
        WriteProperty(u"CompUpper"_s, validation->GetUpperOperator().ToString());
    }
    if (ModelAdapter::HasNominal(validation))
        WriteProperty(u"Nominal"_s, ModelAdapter::NominalText(validation));
}

void UPrivateXMLWriter::WriteResult(const TestResult* result)
{
    WriteStartElement(u"Result"_s);
    WriteAttribute(u"Code"_s, qint64(result->GetResult()));
    WriteAttribute(u"Result"_s, result->GetResultString());
    WriteAttribute(u"DataType"_s, result->GetValueTypeString());
    WriteResultValues(result);
    WriteEndElement();
}

void UPrivateXMLWriter::WriteResultValues(const TestResult* result)
{
    const auto& validation = result->GetValidation();
    const ValueDisplay* const display = validation ? validation->GetValueDisplay() : nullptr;
    const QVariant& value = result->GetValue();
    WriteProperty(u"Value"_s, display ? display->ToString(value) : ValueDisplay::StaticToString(value));
    WriteProperty(u"Unit"_s, result->GetUnitString(display, false));
    WriteProperty(u"Duration"_s, result->GetDurationString());
    WriteProperty(u"Comment"_s, result->GetComment().simplified());
    WriteProperty(u"Attribute"_s, result->GetAttribute().simplified());
}

} // namespace ZYN
