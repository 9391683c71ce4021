#include <ZYNCommon/TestStep.h>

#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>

#include <algorithm>

namespace ZYN {

namespace {

/// Up to this number of measurements searching them costs less than an index, above all in memory.
constexpr qsizetype mostSearched = 16;

} // namespace

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

QSharedPointer<TestMeasurement> TestStep::GetMeasurementForID(long measurementId) const
{
    if (m_indexForID.isEmpty()) {
        const auto found =
            std::find_if(m_measurements.begin(), m_measurements.end(),
                         [&](const auto& measurement) { return measurement->id == measurementId; });
        return found == m_measurements.end() ? nullptr : *found;
    }
    return m_measurements.value(m_indexForID.value(measurementId, -1));
}

int TestStep::AddMeasurement(QSharedPointer<TestMeasurement> measurement)
{
    if (!measurement)
        return -1;
    measurement->m_parent = this;
    m_measurements.append(std::move(measurement));
    const qsizetype last = m_measurements.size() - 1;
    if (last >= mostSearched) {
        for (qsizetype index = m_indexForID.isEmpty() ? 0 : last; index <= last; ++index) {
            if (const long key = m_measurements.at(index)->id; !m_indexForID.contains(key))
                m_indexForID.insert(key, index);
        }
    }
    return static_cast<int>(last);
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

TestGroup* TestStep::GetTestGroup() const
{
    return m_parent;
}

} // namespace ZYN
