#pragma once

#include <ZYNCommon/ManagedObject.h>
#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QList>

#include <memory>

namespace ZYN {

class CtrlAttributes;
class CtrlEnable;
class CtrlLogInReport;
class CtrlTestPlanValues;
class CtrlValidation;
class TestProgram;
class TestResult;

/// Base of the parts of a test program: program, group, step, parameter, measurement.
///
/// Owns its control objects; a null control means that the component has no such control.
/// The parent is only observed: parents own their children by shared pointers, and a child that outlives
/// its parent has none.
class ZYNCOMMON_EXPORT TestComponent : public ManagedObject {
    Q_OBJECT
public:
    /// \param type address code: kind of component or data type of its value
    /// \param sourceLine line of the test program's source that defines the component; 0 is unknown
    TestComponent(long id, const QString& name, EN_ZYN_ADDRESS type, unsigned int sourceLine);
    ~TestComponent() override;

    QString GetName() const final;
    /// The name, lent until it is changed: copying it costs some formats as much as writing it.
    const QString& GetNameView() const { return StoredName(); }
    /// The ident text: the one that was set or else the decimal of the numeric id.
    QString GetIdentString() const;
    /// Whether an ident text was set.
    bool HasIdentString() const { return m_extras && !m_extras->ident.isNull(); }
    void SetIdentString(const QString& ident);
    /// Text of the address code, as `ZYNTools::AddressToDataTypeString` gives it.
    QString GetTypeString() const;

    /// Whether the component is reported. Null: no such control, the component is reported.
    CtrlLogInReport* GetLogInReportCtrl() const { return m_extras ? m_extras->logInReport.get() : nullptr; }
    CtrlEnable* GetEnableCtrl() const;
    /// The component's own validation (the plan's limits). Null: no such control.
    virtual CtrlValidation* GetValidationCtrl() const;
    CtrlAttributes* GetAttributesCtrl() const;
    CtrlTestPlanValues* GetTestPlanValuesCtrl() const;
    /// Takes ownership and deletes the control that was there; null removes it. The control
    /// that is there already stays. The same for the others.
    void SetLogInReportCtrl(CtrlLogInReport* control);
    void SetEnableCtrl(CtrlEnable* control);
    void SetAttributesCtrl(CtrlAttributes* control);
    void SetTestPlanValuesCtrl(CtrlTestPlanValues* control);

    /// Whether the component is left out of test plans (its children are not).
    bool IsTestplanDisabled() const;
    void SetTestplanDisabled(bool disabled);

    /// Keeps a view on the component's newest result. Not owned: a result set owns its results. A
    /// result that is destroyed withdraws itself. A result of another component is ignored.
    virtual void SetResult(TestResult* result);
    /// The newest result, or null.
    TestResult* GetResult() const { return m_result; }

    /// Direct children in the order of execution; parameters come before steps. Owned by this object.
    virtual QList<TestComponent*> GetChildren() const;
    /// The program that the component belongs to, or null.
    virtual TestProgram* GetTestProgram() const;

    /// Address code; a plain member because the file formats read it as such.
    EN_ZYN_ADDRESS type;
    /// Line in the source of the test program, 0 when unknown.
    unsigned int sourceLine;

private:
    /// What few components have. A program has a million measurements, and a walk over them waits for memory.
    struct Extras {
        Extras();
        ~Extras();

        QString ident;
        std::unique_ptr<CtrlLogInReport> logInReport;
        std::unique_ptr<CtrlEnable> enable;
        std::unique_ptr<CtrlAttributes> attributes;
        std::unique_ptr<CtrlTestPlanValues> testPlanValues;
    };
    Extras& NeedExtras();

    TestResult* m_result = nullptr;
    std::unique_ptr<Extras> m_extras;
    bool m_testplanDisabled = false;
};

} // namespace ZYN
