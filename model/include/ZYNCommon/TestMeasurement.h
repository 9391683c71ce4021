#pragma once

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/TestComponent.h>

#include <QtCore/QPointer>

namespace ZYN {

class TestStep;

/// A measurement of a test step: one value with its validation.
class ZYNCOMMON_EXPORT TestMeasurement : public TestComponent {
    Q_OBJECT
public:
    /// \param type data type of the value
    /// \param parent the step, borrowed; may be null until `TestStep::AddMeasurement`
    /// \param position the author's own numbering, -1 when there is none
    TestMeasurement(long id, const QString& name, EN_ZYN_ADDRESS type, TestStep* parent,
                    unsigned int sourceLine, long position);
    ~TestMeasurement() override;

    /// Never null; the control holds a null validation until one is set.
    CtrlValidation* GetValidationCtrl() const override;
    QList<TestComponent*> GetChildren() const override;
    TestProgram* GetTestProgram() const override;
    /// The step that the measurement belongs to, or null.
    TestStep* GetTestStep() const;
    /// Also copies the result's code to `resultState`.
    void SetResult(TestResult* result) override;

    long GetPosition() const;

    /// The measurement's own result state, as of the newest `SetResult`; a plain member because the
    /// file formats read it as such.
    EN_ZYN_RESULT resultState = ZYN_RESULT_NOT_TESTED;

private:
    friend class TestStep;
    QPointer<TestStep> m_parent;
    long m_position;
    mutable CtrlValidation m_validation;
};

} // namespace ZYN
