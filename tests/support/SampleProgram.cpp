#include "SampleProgram.h"

#include <QtCore/QDateTime>

#include <limits>
#include <utility>

namespace ZYN::SampleModels {

Limits RealLimits(int unitCode, double lower, double upper, int scaleFactor, const char* lowerOperator,
                  const char* upperOperator)
{
    return Limits(TestComponentFactory::CreateValidationReal(unitCode, lowerOperator, upperOperator, lower,
                                                             upper, -1, -1, -1, -1, -1, -1, scaleFactor,
                                                             std::numeric_limits<double>::quiet_NaN()));
}

Limits IntegerLimits(int unitCode, int lower, int upper)
{
    return Limits(TestComponentFactory::CreateValidationInt(unitCode, "<=", "<=", lower, upper, -1, -1, -1,
                                                            -1, -1, -1));
}

Limits TextLimit(const QString& text)
{
    return Limits(TestComponentFactory::CreateValidationString(0, "==", text, -1, -1, -1, -1));
}

ProgramWriter::ProgramWriter(long id, const QString& name)
    : program(new TestProgram(id, name, 0x5EED1234UL))
{
}

QSharedPointer<TestGroup> ProgramWriter::Group(long id, const QString& name, EN_ZYN_GROUP kind)
{
    const long position = program->GetGroupCount() + 1;
    m_group.reset(new TestGroup(id, name, program.get(), ++m_line, position, kind, nullptr));
    m_step.reset();
    program->AddGroup(m_group);
    return m_group;
}

QSharedPointer<TestParameter> ProgramWriter::Parameter(long id, const QString& name, EN_ZYN_ADDRESS type)
{
    const long position = m_group->GetParameterCount() + 1;
    const QSharedPointer<TestParameter> parameter(
        new TestParameter(id, name, type, m_group.get(), ++m_line, position));
    m_group->AddParameter(parameter);
    return parameter;
}

QSharedPointer<TestStep> ProgramWriter::Step(long id, const QString& name, const QString& description)
{
    const long position = m_group->GetStepCount() + 1;
    m_step.reset(new TestStep(id, name, m_group.get(), ++m_line, position, description));
    m_group->AddStep(m_step);
    return m_step;
}

QSharedPointer<TestMeasurement> ProgramWriter::Measurement(long id, const QString& name, EN_ZYN_ADDRESS type,
                                                           const Limits& limits)
{
    const long position = m_step->GetMeasurementCount() + 1;
    const QSharedPointer<TestMeasurement> measurement(
        new TestMeasurement(id, name, type, m_step.get(), ++m_line, position));
    measurement->GetValidationCtrl()->SetValidation(limits);
    m_step->AddMeasurement(measurement);
    return measurement;
}

RunWriter::RunWriter(QSharedPointer<TestProgram> program, QSharedPointer<Station> station, long testIndex)
    : m_set(new TestResultSet(std::move(program), std::move(station)))
{
    m_set->SetTestIndex(testIndex);
}

RunWriter::~RunWriter()
{
    delete m_set;
}

TestResult* RunWriter::Verdict(QSharedPointer<TestComponent> component, double seconds)
{
    const QDateTime start(QDate(2024, 3, 5), QTime(10, 15), Qt::OffsetFromUTC, 3600);
    auto* const result = new TestResult(component);
    result->SetDuration(seconds);
    result->SetTime(start.addMSecs(qRound64(m_elapsed * 1000.0)));
    m_set->AddResult(result);
    return result;
}

TestResult* RunWriter::Value(QSharedPointer<TestComponent> component, const QVariant& value, double seconds)
{
    TestResult* const result = Verdict(component, seconds);
    m_elapsed += seconds;
    result->SetValue(value);
    if (const CtrlValidation* const control = component->GetValidationCtrl())
        result->SetValidation(control->GetValidation());
    return result;
}

TestResultSet* RunWriter::Take()
{
    // Only now is every verdict known.
    for (TestResult* const result : m_set->GetResults())
        result->GetComponent()->SetResult(result);
    return std::exchange(m_set, nullptr);
}

} // namespace ZYN::SampleModels
