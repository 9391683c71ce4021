#include <ZYNCommon/TestStep.h>

#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>

namespace ZYN {

TestStep::TestStep(long stepId, const QString& name, TestGroup* parent, unsigned int line, long position,
                   const QString& description)
    : TestComponent(stepId, name, ZYN_ADDRESS_STEP, line)
    , m_parent(parent)
    , m_position(position)
    , m_description(description)
{
    SetEnableCtrl(new CtrlEnable);
    SetLogInReportCtrl(new CtrlLogInReport);
}

TestStep::~TestStep() = default;

int TestStep::GetMeasurementCount() const
{
    return static_cast<int>(m_measurements.size());
}

QSharedPointer<TestMeasurement> TestStep::GetMeasurementForIndex(int index) const
{
    return m_measurements.value(index);
}

QSharedPointer<TestMeasurement> TestStep::GetMeasurementForID(long measurementId) const
{
    const auto found = m_indexForID.constFind(measurementId);
    return found == m_indexForID.constEnd() ? nullptr : m_measurements.at(*found);
}

int TestStep::AddMeasurement(QSharedPointer<TestMeasurement> measurement)
{
    if (!measurement)
        return -1;
    measurement->m_parent = this;
    if (!m_indexForID.contains(measurement->id))
        m_indexForID.insert(measurement->id, m_measurements.size());
    m_measurements.append(std::move(measurement));
    return GetMeasurementCount() - 1;
}

long TestStep::GetPosition() const
{
    return m_position;
}

QString TestStep::GetDescription() const
{
    return m_description;
}

QList<TestComponent*> TestStep::GetChildren() const
{
    QList<TestComponent*> children;
    children.reserve(m_measurements.size());
    for (const auto& measurement : m_measurements)
        children.append(measurement.data());
    return children;
}

TestProgram* TestStep::GetTestProgram() const
{
    return m_parent ? m_parent->GetTestProgram() : nullptr;
}

} // namespace ZYN
