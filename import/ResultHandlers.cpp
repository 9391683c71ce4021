// The result tree of a report: result sets, programs, groups, steps, measurements.

#include "CImportServiceReport_Private.h"

#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/ValidationInterface.h>

#include <algorithm>

namespace ZYN {

using namespace Qt::StringLiterals;

bool CImportServiceReport_Private::ReadTestResults(UUTTest* uutTest)
{
    m_station.reset();
    const auto noProperty = [](QStringView, QStringView, const QXmlStreamAttributes&) { return false; };
    return ReadElement("TestResults"_L1, noProperty, [&](QStringView name) {
        if (name != "TestResultSet"_L1)
            return false;
        ReadTestResultSet(uutTest);
        return true;
    });
}

bool CImportServiceReport_Private::ReadTestResultSet(UUTTest* uutTest)
{
    m_results.clear();
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        if (name == "StationID"_L1)
            m_station.reset(new Station(Integer(text, true), u"hurz"_s)); // a report does not name stations
        else if (name == "StationDescription"_L1 && m_station)
            m_station->SetDescription(text.toString());
        else if (name == "TestIndex"_L1)
            m_testIndex = Integer(text, true);
        else
            return name == "FailedGroups"_L1 || name == "FailedSteps"_L1; // the model counts them itself
        return true;
    };
    const auto onChild = [&](QStringView name) {
        if (name != "Testprogram"_L1)
            return false;
        ReadTestProgram();
        return true;
    };
    if (!ReadElement("TestResultSet"_L1, onProperty, onChild))
        return false;
    AssignResultSet(uutTest);
    return true;
}

void CImportServiceReport_Private::AssignResultSet(UUTTest* uutTest)
{
    // A report does not name a program that has no result, and a set without one could not be written again.
    if (!m_program)
        m_program = QSharedPointer<TestProgram>::create(0L, QString(), 0UL);
    auto resultSet = std::make_unique<TestResultSet>(m_program, m_station);
    resultSet->SetTestIndex(m_testIndex);
    for (std::unique_ptr<TestResult>& collected : m_results)
        resultSet->AddResult(collected.release());
    m_result = nullptr;
    m_results.clear();
    uutTest->AssignResultSet(resultSet.release());
}

CImportServiceReport_Private::Component CImportServiceReport_Private::StartComponent()
{
    const QXmlStreamAttributes attributes = reader->attributes();
    const QStringView ident = attributes.value("ID"_L1);
    bool isNumber = false;
    Component component;
    component.id = ReportValues::ToInteger(ident, &isNumber);
    if (!isNumber)
        AddLoss(tr("ident '%1' is not a number, read as 0").arg(ident));
    component.name = attributes.value("Name"_L1).toString();
    component.type = Integer(attributes.value("Type"_L1));
    return component;
}

bool CImportServiceReport_Private::ReadCommonProperty(QStringView name, QStringView text,
                                                      Component& component)
{
    if (name == "SourceLine"_L1)
        component.sourceLine = std::max(0, Integer(text));
    else if (name == "Enabled"_L1)
        component.enabled = Integer(text);
    else if (name == "ReportInc"_L1)
        component.reportInc = Integer(text);
    else
        return name == "Ident"_L1; // the same as the attribute
    return true;
}

template <class Model>
void CImportServiceReport_Private::SetSwitches(Model* component, const Component& read)
{
    if (CtrlEnable* const control = component->GetEnableCtrl())
        read.enabled != 0 ? control->EnableOn() : control->EnableOff();
    if (CtrlLogInReport* const control = component->GetLogInReportCtrl())
        read.reportInc != 0 ? control->LogInReportOn() : control->LogInReportOff();
}

void CImportServiceReport_Private::ReadResultOf(const QSharedPointer<TestComponent>& component,
                                                const QSharedPointer<ValidationInterface>& judgedBy)
{
    m_results.push_back(std::make_unique<TestResult>(component));
    m_result = m_results.back().get();
    ReadTestResult();
    m_result->SetValidation(judgedBy);
    component->SetResult(m_result);
}

bool CImportServiceReport_Private::ReadTestProgram()
{
    const Component read = StartComponent();
    m_program = QSharedPointer<TestProgram>::create(read.id, read.name, 0UL);
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        if (name == "Name"_L1)
            m_program->SetDisplayName(text.toString());
        else if (name == "Version"_L1)
            m_program->SetVersion(text.toString());
        else if (name == "File"_L1)
            m_program->SetFileName(text.toUtf8().constData());
        else if (name == "Creator"_L1)
            m_program->SetCreator(text.toString());
        else
            return name == "Ident"_L1 || name == "SourceLine"_L1 || name == "FileVersion"_L1;
        return true;
    };
    return ReadElement("Testprogram"_L1, onProperty, [&](QStringView name) {
        if (name == "Result"_L1)
            ReadResultOf(m_program, nullptr);
        else if (name == "TestGroup"_L1)
            ReadTestGroup();
        else
            return false;
        return true;
    });
}

bool CImportServiceReport_Private::ReadTestGroup()
{
    Component read = StartComponent();
    int kind = 0;
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        if (name != "Type"_L1)
            return ReadCommonProperty(name, text, read);
        kind = Integer(text);
        return true;
    };
    return ReadElement("TestGroup"_L1, onProperty, [&](QStringView name) {
        if (name == "Result"_L1) {
            // All properties stand before it.
            m_group = QSharedPointer<TestGroup>::create(read.id, read.name, m_program.data(),
                                                        unsigned(read.sourceLine), -1L, EN_ZYN_GROUP(kind),
                                                        nullptr);
            SetSwitches(m_group.data(), read);
            ReadResultOf(m_group, nullptr);
            if (m_program)
                m_program->AddGroup(m_group);
        } else if (name == "TestStep"_L1) {
            ReadTestStep();
        } else if (name == "TestParameter"_L1) {
            reader->skipCurrentElement(); // parameters are not read
        } else {
            return false;
        }
        return true;
    });
}

bool CImportServiceReport_Private::ReadTestStep()
{
    Component read = StartComponent();
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        return ReadCommonProperty(name, text, read);
    };
    return ReadElement("TestStep"_L1, onProperty, [&](QStringView name) {
        if (name == "Result"_L1) {
            m_step = QSharedPointer<TestStep>::create(read.id, read.name, m_group.data(),
                                                      unsigned(read.sourceLine), -1L, QString());
            SetSwitches(m_step.data(), read);
            ReadResultOf(m_step, nullptr);
            if (m_group)
                m_group->AddStep(m_step);
            else
                AddFinding(tr("step '%1' before any group, in no program").arg(read.name));
        } else if (name == "TestMeasurement"_L1) {
            ReadTestMeasurement();
        } else {
            return false;
        }
        return true;
    });
}

bool CImportServiceReport_Private::ReadTestMeasurement()
{
    Component read = StartComponent();
    m_notation.unitCode = 0;
    bool hasLimits = false;
    const auto onProperty = [&](QStringView name, QStringView text, const QXmlStreamAttributes&) {
        return ReadCommonProperty(name, text, read);
    };
    return ReadElement("TestMeasurement"_L1, onProperty, [&](QStringView name) {
        if (name == "Limits"_L1) {
            hasLimits = true;
            ReadTestLimits();
        } else if (name == "Result"_L1) {
            if (!hasLimits && m_validation)
                AddFinding(
                    tr("measurement '%1' has no limits, takes those of the one before").arg(read.name));
            const auto measurement = QSharedPointer<TestMeasurement>::create(
                read.id, read.name, EN_ZYN_ADDRESS(read.type), m_step.data(), unsigned(read.sourceLine), -1L);
            ReadResultOf(measurement, m_validation);
            if (m_step)
                m_step->AddMeasurement(measurement);
            else
                AddFinding(tr("measurement '%1' before any step, in no program").arg(read.name));
        } else {
            return false;
        }
        return true;
    });
}

} // namespace ZYN
