#pragma once

#include "ReportFiles.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>

/// Pieces of reports, written by hand, and the way to what was read from them.
namespace ZYN::ReportFiles {

inline QByteArray Property(const char* name, const QByteArray& text)
{
    return QByteArray("<Property Name=\"") + name + "\">" + text + "</Property>";
}

inline QByteArray Report(const QByteArray& content)
{
    return "<TestReport Version=\"1.4.0\">" + content + "</TestReport>";
}

/// A report with a result set of one program that has this content.
inline QByteArray ProgramReport(const QByteArray& content)
{
    return Report("<TestResults><TestResultSet><Testprogram ID='1' Name='P' Type='1'>" + content +
                  "</Testprogram></TestResultSet></TestResults>");
}

/// The same with one group and in it one step that holds these measurements; the step's id is 3.
inline QByteArray StepReport(const QByteArray& measurements)
{
    return ProgramReport("<Result Code='1'/><TestGroup ID='2' Name='G' Type='2'><Result Code='1'/>"
                         "<TestStep ID='3' Name='S' Type='3'><Result Code='1'/>" +
                         measurements + "</TestStep></TestGroup>");
}

inline QByteArray Limits(int type, const QByteArray& unitAttributes,
                         const QByteArray& properties = QByteArray())
{
    return "<Limits Type='" + QByteArray::number(type) + "'><Property Name='Unit' " + unitAttributes + "/>" +
           properties + "</Limits>";
}

inline QByteArray Measurement(int type, const QByteArray& limits, const QByteArray& value)
{
    return "<TestMeasurement ID='4' Name='M' Type='" + QByteArray::number(type) + "'>" + limits +
           "<Result Code='1'>" + Property("Value", value) + "</Result></TestMeasurement>";
}

inline QSharedPointer<TestStep> StepOf(const Reading& reading)
{
    return reading.test->GetResultSets().value(0)->GetTestProgram()->GetGroupForIndex(0)->GetStepForIndex(0);
}

inline const TestResult* ResultOf(const Reading& reading, int measurement = 0)
{
    return StepOf(reading)->GetMeasurementForIndex(measurement)->GetResult();
}

} // namespace ZYN::ReportFiles
