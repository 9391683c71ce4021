#include <ZYNCommon/TestComponent.h>

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ZYNTools.h>

namespace ZYN {

namespace {

// Given once more, the control that is there stays.
template <typename Control>
void Replace(std::unique_ptr<Control>& place, Control* control)
{
    if (control != place.get())
        place.reset(control);
}

} // namespace

TestComponent::TestComponent(long componentId, const QString& name, EN_ZYN_ADDRESS address, unsigned int line)
    : ManagedObject(componentId, name)
    , type(address)
    , sourceLine(line)
{
}

TestComponent::~TestComponent() = default;

TestComponent::Extras::Extras() = default;
TestComponent::Extras::~Extras() = default;

TestComponent::Extras& TestComponent::NeedExtras()
{
    if (!m_extras)
        m_extras = std::make_unique<Extras>();
    return *m_extras;
}

QString TestComponent::GetName() const
{
    return StoredName();
}

QString TestComponent::GetIdentString() const
{
    return HasIdentString() ? m_extras->ident : QString::number(id);
}

void TestComponent::SetIdentString(const QString& ident)
{
    // A null text is as much a choice as an empty one.
    NeedExtras().ident = ident.isNull() ? QLatin1String("") : ident;
}

QString TestComponent::GetTypeString() const
{
    return ZYNTools::AddressToDataTypeString(type);
}

CtrlEnable* TestComponent::GetEnableCtrl() const
{
    return m_extras ? m_extras->enable.get() : nullptr;
}

CtrlValidation* TestComponent::GetValidationCtrl() const
{
    return nullptr;
}

CtrlAttributes* TestComponent::GetAttributesCtrl() const
{
    return m_extras ? m_extras->attributes.get() : nullptr;
}

CtrlTestPlanValues* TestComponent::GetTestPlanValuesCtrl() const
{
    return m_extras ? m_extras->testPlanValues.get() : nullptr;
}

void TestComponent::SetLogInReportCtrl(CtrlLogInReport* control)
{
    Replace(NeedExtras().logInReport, control);
}

void TestComponent::SetEnableCtrl(CtrlEnable* control)
{
    Replace(NeedExtras().enable, control);
}

void TestComponent::SetAttributesCtrl(CtrlAttributes* control)
{
    Replace(NeedExtras().attributes, control);
}

void TestComponent::SetTestPlanValuesCtrl(CtrlTestPlanValues* control)
{
    Replace(NeedExtras().testPlanValues, control);
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
