#pragma once

#include <ZYNCommon/TestComponent.h>

#include <QtCore/QPointer>

namespace ZYN {

class TestGroup;

/// A parameter of a test group: a value that the program was run with.
class ZYNCOMMON_EXPORT TestParameter : public TestComponent {
    Q_OBJECT
public:
    /// \param type data type of the value, or `ZYN_ADDRESS_PARAMETER`
    /// \param parent the group, borrowed; may be null until `TestGroup::AddParameter`
    /// \param position the author's own numbering, -1 when there is none
    TestParameter(long id, const QString& name, EN_ZYN_ADDRESS type, TestGroup* parent,
                  unsigned int sourceLine, long position);
    ~TestParameter() override;

    long GetPosition() const;
    TestProgram* GetTestProgram() const override;
    /// The group that the parameter belongs to, or null.
    TestGroup* GetTestGroup() const;

private:
    friend class TestGroup;
    QPointer<TestGroup> m_parent;
    long m_position;
};

} // namespace ZYN
