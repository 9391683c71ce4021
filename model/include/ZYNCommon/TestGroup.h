#pragma once

#include <ZYNCommon/TestComponent.h>

#include <QtCore/QPointer>
#include <QtCore/QSharedPointer>

namespace ZYN {

class TestParameter;
class TestStep;

/// A group of a test program: parameters and steps. Groups are not nested.
/// A new group has an enable control and a log-in-report control, both on.
class ZYNCOMMON_EXPORT TestGroup : public TestComponent {
    Q_OBJECT
public:
    /// \param parent the program, borrowed; may be null until `TestProgram::AddGroup`
    /// \param sourceLine line in the program's source, 0 when unknown
    /// \param position the author's own numbering, -1 when there is none
    /// \param userData opaque to the model, neither used nor freed
    TestGroup(long id, const QString& name, TestProgram* parent, unsigned int sourceLine, long position,
              EN_ZYN_GROUP kind, void* userData);
    ~TestGroup() override;

    int GetParameterCount() const;
    /// The parameter at an index from 0; null outside the range. Valid until the next one is added.
    const QSharedPointer<TestParameter>& GetParameterForIndex(int index) const;
    /// \return the index of the parameter, -1 for null
    int AddParameter(QSharedPointer<TestParameter> parameter);
    int GetStepCount() const;
    /// The step at an index from 0; null outside the range. Valid until the next one is added.
    const QSharedPointer<TestStep>& GetStepForIndex(int index) const;
    /// \return the index of the step, -1 for null
    int AddStep(QSharedPointer<TestStep> step);

    bool IsUserGroup() const;
    EN_ZYN_GROUP GetGroupKind() const;
    long GetPosition() const;
    void* GetUserData() const;

    QList<TestComponent*> GetChildren() const override;
    TestProgram* GetTestProgram() const override;

private:
    friend class TestProgram;
    QPointer<TestProgram> m_parent;
    QList<QSharedPointer<TestParameter>> m_parameters;
    QList<QSharedPointer<TestStep>> m_steps;
    long m_position;
    EN_ZYN_GROUP m_kind;
    void* m_userData;
};

} // namespace ZYN
