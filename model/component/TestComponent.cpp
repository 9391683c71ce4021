#include <ZYNCommon/TestComponent.h>

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ZYNTools.h>

namespace ZYN {

TestComponent::TestComponent(long componentId, const QString& name, EN_ZYN_ADDRESS address, unsigned int line)
    : ManagedObject(componentId, name)
    , type(address)
    , sourceLine(line)
{
}

TestComponent::~TestComponent() = default;

QString TestComponent::GetName() const
{
    return ManagedObject::GetName();
}

QString TestComponent::GetIdentString() const
{
    return HasIdentString() ? m_ident : QString::number(id);
}

void TestComponent::SetIdentString(const QString& ident)
{
    // A null text is as much a choice as an empty one.
    m_ident = ident.isNull() ? QLatin1String("") : ident;
}

QString TestComponent::GetTypeString() const
{
    return ZYNTools::AddressToDataTypeString(type);
}

CtrlEnable* TestComponent::GetEnableCtrl() const
{
    return m_enable.get();
}

CtrlValidation* TestComponent::GetValidationCtrl() const
{
    return nullptr;
}

CtrlAttributes* TestComponent::GetAttributesCtrl() const
{
    return m_attributes.get();
}

CtrlTestPlanValues* TestComponent::GetTestPlanValuesCtrl() const
{
    return m_testPlanValues.get();
}

void TestComponent::SetLogInReportCtrl(CtrlLogInReport* control)
{
    m_logInReport.reset(control);
}

void TestComponent::SetEnableCtrl(CtrlEnable* control)
{
    m_enable.reset(control);
}

void TestComponent::SetAttributesCtrl(CtrlAttributes* control)
{
    m_attributes.reset(control);
}

void TestComponent::SetTestPlanValuesCtrl(CtrlTestPlanValues* control)
{
    m_testPlanValues.reset(control);
}

bool TestComponent::IsTestplanDisabled() const
{
    return m_testplanDisabled;
}

void TestComponent::SetTestplanDisabled(bool disabled)
{
    m_testplanDisabled = disabled;
}

void TestComponent::SetResult(TestResult* result)
{
    // A result withdraws itself from its own component; kept by another one it would dangle.
    if (!result || result->GetComponent() == this)
        m_result = result;
}

QList<TestComponent*> TestComponent::GetChildren() const
{
    return {};
}

TestProgram* TestComponent::GetTestProgram() const
{
    return nullptr;
}

} // namespace ZYN
