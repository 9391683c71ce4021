#include "PlanApplication.h"

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestPlanCategory.h>
#include <ZYNCommon/TestPlanData.h>
#include <ZYNCommon/ValidationInterface.h>

#include "model/value/PropertyValue.h"

#include <algorithm>
#include <memory>

namespace ZYN {

namespace {

using AttrType = TestComponentAttr::TestComponentAttrType;

/// Takes the first attribute or category of a name out of a list; null when there is none.
const TestComponentAttr* Take(QList<TestComponentAttr*>& attributes, const QString& name, bool category)
{
    const auto found = std::find_if(attributes.begin(), attributes.end(), [&](const TestComponentAttr* item) {
        return item->GetName() == name && (item->GetType() == TestComponentAttr::Category) == category;
    });
    if (found == attributes.end())
        return nullptr;
    const TestComponentAttr* const taken = *found;
    attributes.erase(found);
    return taken;
}

AttrType TypeOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        return TestComponentAttr::Integer;
    case QMetaType::Double:
        return TestComponentAttr::Real;
    case QMetaType::Bool:
        return TestComponentAttr::Boolean;
    default:
        return TestComponentAttr::String;
    }
}

/// The value as an attribute of that type holds it; invalid when it does not fit.
QVariant Converted(const QVariant& value, AttrType type)
{
    switch (type) {
    case TestComponentAttr::Integer: {
        // More than 32 bits would not come back from the plan that is written next.
        const auto number = PropertyValue::ToInteger(value);
        return number && *number == qint32(*number) ? QVariant(qlonglong(*number)) : QVariant();
    }
    case TestComponentAttr::Real: {
        const auto number = PropertyValue::ToReal(value);
        return number ? QVariant(*number) : QVariant();
    }
    case TestComponentAttr::Boolean: {
        bool flag = false;
        return value.isValid() && PropertyValue::ReadBool(value, flag) ? QVariant(flag) : QVariant();
    }
    default:
        return value.toString();
    }
}

} // namespace

PlanApplication::PlanApplication(TestComponent* component, QStringList& problems)
    : m_component(component)
    , m_problems(problems)
{
}

void PlanApplication::SetValidation(const TestPlanData& data)
{
    const CtrlValidation* const control = m_component->GetValidationCtrl();
    const auto validation = control ? control->GetValidation() : nullptr;
    if (!validation) {
        Report(QStringLiteral("has no validation that could take the plan's limits"));
        return;
    }
    for (const QString& name : data.GetPropertyNames()) {
        if (name == QLatin1StringView("Name"))
            continue;
        if (validation->SetProperty(name, data.GetProperty(name)))
            m_changed = true;
        else
            ReportValue(name, data.GetProperty(name));
    }
}

void PlanApplication::SetAttributes(const TestPlanData& data)
{
    /// One level of the plan's tree, what the component had there, and the new category (none at the top).
    struct Level {
        const TestPlanData* data;
        QList<TestComponentAttr*> former;
        TestComponentAttr* category;
    };

    const CtrlAttributes* const formerControl = m_component->GetAttributesCtrl();
    auto control = std::make_unique<CtrlAttributes>();
    QList<Level> pending{
        {&data, formerControl ? formerControl->GetAttributes() : QList<TestComponentAttr*>(), nullptr}};
    while (!pending.isEmpty()) {
        Level level = pending.takeLast();
        const auto add = [&](TestComponentAttr* attribute) {
            level.category ? level.category->AddChild(attribute) : control->AddAttribute(attribute);
        };
        for (const QString& name : level.data->GetPropertyNames())
            add(MakeAttribute(name, level.data->GetProperty(name), Take(level.former, name, false)));
        for (const TestPlanCategory* const category : level.data->GetCategories()) {
            // Of several categories of one name each has its own former one: the second "Axis" takes over
            // from the second.
            const TestComponentAttr* const former = Take(level.former, category->GetName(), true);
            auto* const made = new TestComponentAttr(category->GetName(), TestComponentAttr::Category);
            add(made);
            if (category->GetAttributes())
                pending.append({category->GetAttributes(),
                                former ? former->GetChildren() : QList<TestComponentAttr*>(), made});
        }
    }
    m_component->SetAttributesCtrl(control.release());
    m_changed = true;
}

TestComponentAttr* PlanApplication::MakeAttribute(const QString& name, const QVariant& value,
                                                  const TestComponentAttr* known)
{
    const AttrType type = known ? known->GetType() : TypeOf(value);
    const QVariant converted = Converted(value, type);
    if (converted.isValid())
        return new TestComponentAttr(name, type, converted);
    ReportValue(name, value);
    return new TestComponentAttr(name, type, known ? known->GetValue() : QVariant());
}

void PlanApplication::SetSwitches(const TestPlanData& data)
{
    const auto logInReport = Switch(data, QStringLiteral("LogInReport"));
    const auto enabled = Switch(data, QStringLiteral("Enabled"));
    if (!logInReport && !enabled)
        return;
    if (!m_component->GetTestPlanValuesCtrl())
        m_component->SetTestPlanValuesCtrl(new CtrlTestPlanValues);
    if (logInReport) {
        m_component->GetTestPlanValuesCtrl()->SetLogInReport(*logInReport);
        m_component->SetLogInReportCtrl(new CtrlLogInReport(*logInReport));
    }
    if (enabled) {
        m_component->GetTestPlanValuesCtrl()->SetEnabled(*enabled);
        m_component->SetEnableCtrl(new CtrlEnable(*enabled));
    }
    m_changed = true;
}

std::optional<bool> PlanApplication::Switch(const TestPlanData& data, const QString& name)
{
    const QVariant value = data.GetProperty(name);
    bool on = false;
    if (value.isValid() && PropertyValue::ReadBool(value, on))
        return on;
    if (data.HasProperty(name))
        ReportValue(name, value);
    return std::nullopt;
}

void PlanApplication::Report(const QString& problem)
{
    m_problems.append(QStringLiteral("ident '%1' (%2): %3")
                          .arg(m_component->GetIdentString(), m_component->GetName(), problem));
}

void PlanApplication::ReportValue(const QString& name, const QVariant& value)
{
    Report(QStringLiteral("'%1' does not take the value '%2'").arg(name, value.toString()));
}

} // namespace ZYN
