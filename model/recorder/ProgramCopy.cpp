#include "ProgramCopy.h"

#include "../statistics/ComponentCopy.h"

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestStep.h>

#include <utility>

namespace ZYN {

namespace {

/// Without recursion, however deep the tree is.
CtrlAttributes* CopyAttributes(const CtrlAttributes& attributes)
{
    auto* const copy = new CtrlAttributes;
    QList<std::pair<const TestComponentAttr*, TestComponentAttr*>> open;
    const auto copyOf = [&open](const TestComponentAttr* attribute) {
        auto* const made =
            new TestComponentAttr(attribute->GetName(), attribute->GetType(), attribute->GetValue());
        open.append({attribute, made});
        return made;
    };
    for (const TestComponentAttr* const attribute : attributes.GetAttributes())
        copy->AddAttribute(copyOf(attribute));
    while (!open.isEmpty()) {
        const auto [attribute, made] = open.takeLast();
        for (const TestComponentAttr* const child : attribute->GetChildren())
            made->AddChild(copyOf(child));
    }
    return copy;
}

void CopyControls(const TestComponent* from, TestComponent* to)
{
    to->SetTestplanDisabled(from->IsTestplanDisabled());
    to->sourceLine = from->sourceLine;
    const auto* const report = from->GetLogInReportCtrl();
    to->SetLogInReportCtrl(report ? new CtrlLogInReport(*report) : nullptr);
    const auto* const enable = from->GetEnableCtrl();
    to->SetEnableCtrl(enable ? new CtrlEnable(*enable) : nullptr);
    const auto* const plan = from->GetTestPlanValuesCtrl();
    to->SetTestPlanValuesCtrl(plan ? new CtrlTestPlanValues(*plan) : nullptr);
    const auto* const attributes = from->GetAttributesCtrl();
    to->SetAttributesCtrl(attributes ? CopyAttributes(*attributes) : nullptr);
    to->SetParameters(from->GetParameters());
}

class Copier {
public:
    explicit Copier(const TestProgram* program)
        : m_made{ComponentCopy::OfProgram(program), {}}
    {
        CopyControls(program, m_made.program.data());
        for (int g = 0; g < program->GetGroupCount(); ++g)
            m_made.program->AddGroup(Copy(*program->GetGroupForIndex(g)));
    }

    ProgramCopy Take() { return std::move(m_made); }

private:
    QSharedPointer<TestGroup> Copy(const TestGroup& group)
    {
        auto copy = Single(&group);
        for (int p = 0; p < group.GetParameterCount(); ++p)
            copy->AddParameter(Single(group.GetParameterForIndex(p).data()));
        for (int s = 0; s < group.GetStepCount(); ++s)
            copy->AddStep(Copy(*group.GetStepForIndex(s)));
        return copy;
    }

    QSharedPointer<TestStep> Copy(const TestStep& step)
    {
        auto copy = Single(&step);
        for (int m = 0; m < step.GetMeasurementCount(); ++m) {
            const TestMeasurement* const measurement = step.GetMeasurementForIndex(m).data();
            const auto made = Single(measurement);
            made->GetValidationCtrl()->SetValidation(measurement->GetValidationCtrl()->GetValidation());
            copy->AddMeasurement(made);
        }
        return copy;
    }

    template <typename Component>
    QSharedPointer<Component> Single(const Component* component)
    {
        auto copy = ComponentCopy::Of(component).template staticCast<Component>();
        CopyControls(component, copy.data());
        m_made.copyOf.insert(component, copy);
        return copy;
    }

    ProgramCopy m_made;
};

} // namespace

ProgramCopy CopyProgram(const TestProgram* program)
{
    return Copier(program).Take();
}

} // namespace ZYN
