#pragma once

#include <ZYNCommon/SharedAt.h>
#include <ZYNCommon/TestComponent.h>

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QSharedPointer>

namespace ZYN {

class TestGroup;
class TestMeasurement;

/// A step of a test group: an ordered list of measurements.
/// A new step has an enable control and a log-in-report control, both on.
class ZYNCOMMON_EXPORT TestStep : public TestComponent {
    Q_OBJECT
public:
    /// \param parent the group, borrowed; may be null until `TestGroup::AddStep`
    /// \param sourceLine line in the program's source, 0 when unknown
    /// \param position the author's own numbering, -1 when there is none
    /// \param description what the step does, for people
    TestStep(long id, const QString& name, TestGroup* parent, unsigned int sourceLine, long position,
             const QString& description);
    ~TestStep() override;

    int GetMeasurementCount() const { return static_cast<int>(m_measurements.size()); }
    /// The measurement at an index from 0; null outside the range. Valid until the next one is added.
    const QSharedPointer<TestMeasurement>& GetMeasurementForIndex(int index) const
    {
        return SharedAt(m_measurements, index);
    }
    /// The first measurement that was added with this id, or null. Constant time.
    QSharedPointer<TestMeasurement> GetMeasurementForID(long id) const;
    /// \return the index of the measurement, -1 for null
    int AddMeasurement(QSharedPointer<TestMeasurement> measurement);

    long GetPosition() const;
    QString GetDescription() const;

    QList<TestComponent*> GetChildren() const override;
    TestProgram* GetTestProgram() const override;
    /// The group that the step belongs to, or null.
    TestGroup* GetTestGroup() const;

private:
    friend class TestGroup;
    QPointer<TestGroup> m_parent;
    QList<QSharedPointer<TestMeasurement>> m_measurements;
    QHash<long, qsizetype> m_indexForID; ///< empty for a step of a few measurements
    long m_position;
    QString m_description;
};

} // namespace ZYN
