// Limits and results of a report.

#include "CImportServiceReport_Private.h"

#include "export/ModelAdapter.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>

namespace ZYN {

using namespace Qt::StringLiterals;

bool CImportServiceReport_Private::ReadTestLimits()
{
    const QXmlStreamAttributes limitsAttributes = reader->attributes();
    m_notation.dataType = Integer(limitsAttributes.value("Type"_L1));
    ReportValues::LimitTexts limits;
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes& attributes) {
        if (name == "Unit"_L1)
            ReadUnit(attributes.value("Code"_L1), attributes.value("Factor"_L1));
        else if (name == "InvertResult"_L1)
            limits.invertResult = Integer(text) != 0;
        else if (name == "Lower"_L1)
            limits.lower = {text.toString(), m_notation};
        else if (name == "CompLower"_L1)
            limits.lowerOperator = text.toString();
        else if (name == "Upper"_L1)
            limits.upper = {text.toString(), m_notation};
        else if (name == "CompUpper"_L1)
            limits.upperOperator = text.toString();
        else if (name == "Nominal"_L1)
            limits.nominal = {text.toString(), m_notation};
        else
            return false;
        return true;
    };
    if (!ReadLeaf("Limits"_L1, onProperty))
        return false;
    limits.notation = m_notation;
    ReportValues::LimitsOutcome outcome;
    const QSharedPointer<ValidationInterface> created(ReportValues::CreateValidation(limits, &outcome));
    if (!created)
        AddLoss(tr("no limits are known for data type %1").arg(m_notation.dataType));
    else if (!outcome.readable)
        AddFinding(tr("limits that are no numbers or have an unknown operator"));
    else if (!outcome.exact)
        AddLoss(tr("limits that do not fit 32 bits, changed to such that do"));
    if (created)
        m_validation = created;
    return true;
}

void CImportServiceReport_Private::ReadUnit(QStringView unitCodeText, QStringView factorText)
{
    if (!unitCodeText.isNull())
        m_notation.unitCode = Integer(unitCodeText);
    if (!factorText.isNull())
        m_notation.factor = Integer(factorText);
}

bool CImportServiceReport_Private::ReadTestResult()
{
    const QXmlStreamAttributes resultAttributes = reader->attributes();
    const int code = Integer(resultAttributes.value("Code"_L1));
    if (m_result)
        m_result->SetResult(EN_ZYN_RESULT(code));
    return ReadLeaf("Result"_L1, [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        if (!m_result)
            return true;
        if (name == "Value"_L1)
            ReadValue(text);
        else if (name == "Duration"_L1)
            m_result->SetDuration(Duration(text));
        else if (name == "Comment"_L1)
            m_result->SetComment(text.toString());
        else if (name == "Attribute"_L1)
            m_result->SetAttribute(text.toString());
        else
            return name == "Unit"_L1; // the limits have it
        return true;
    });
}

void CImportServiceReport_Private::ReadValue(QStringView text)
{
    bool ok = false;
    m_result->SetValue(ReportValues::ToValue(text, m_notation, ModelAdapter::MeasuredType(m_result), &ok));
    if (!ok && !text.isEmpty())
        AddFinding(tr("value '%1' is not a number, read as 0").arg(text));
}

} // namespace ZYN
