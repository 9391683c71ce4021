#include <ZYNCommon/TestMeasurement.h>

#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>

namespace ZYN {

TestMeasurement::TestMeasurement(long measurementId, const QString& name, EN_ZYN_ADDRESS address,
                                 TestStep* parent, unsigned int line, long position)
    : TestComponent(measurementId, name, address, line)
    , m_parent(parent)
    , m_position(position)
{
}

TestMeasurement::~TestMeasurement() = default;

CtrlValidation* TestMeasurement::GetValidationCtrl() const
{
    return &m_validation;
}

QList<TestComponent*> TestMeasurement::GetChildren() const
{
    return {};
}

TestProgram* TestMeasurement::GetTestProgram() const
{
    return m_parent ? m_parent->GetTestProgram() : nullptr;
}

TestStep* TestMeasurement::GetTestStep() const
{
    return m_parent;
}

void TestMeasurement::SetResult(TestResult* result)
{
    TestComponent::SetResult(result);
    // The state outlives the result that it came from.
    if (result && GetResult() == result)
        resultState = result->GetResult();
}

long TestMeasurement::GetPosition() const
{
    return m_position;
}

} // namespace ZYN
