#include "SamplePlan.h"
#include "support/SampleProgram.h"

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestPlan.h>
#include <ZYNCommon/TestPlanCategory.h>
#include <ZYNCommon/TestPlanData.h>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

using Attr = TestComponentAttr;

using SampleModels::Limits;
using SampleModels::ProgramWriter;

Limits RealValidation()
{
    return Limits(TestComponentFactory::CreateValidationReal(MeasurementUnit::Volt, "<=", "<", 4.75, 5.25, 11,
                                                             12, -1, -1, -1, 21, QVariant(-3), 5.0));
}

Limits IntValidation()
{
    return Limits(TestComponentFactory::CreateValidationInt(MeasurementUnit::Hexadecimal, "==", "", 255, 0,
                                                            -1, -1, -1, -1, -1, -1));
}

CtrlAttributes* AttributesOfEveryType()
{
    auto* const control = new CtrlAttributes;
    control->AddAttribute(new Attr(u"Retries"_s, Attr::Integer, 3));
    control->AddAttribute(new Attr(u"Delay"_s, Attr::Real, 0.1));
    control->AddAttribute(new Attr(u"Note"_s, Attr::String, u"a < b & \"Ω\" \t|\n|"_s));
    control->AddAttribute(new Attr(u"Fast"_s, Attr::Boolean, true));
    control->AddAttribute(new Attr(u"Newer"_s, Attr::TestComponentAttrType(42), 7));
    control->AddAttribute(new Attr(u"Nothing"_s, Attr::String));
    auto* const outer = new Attr(u"Relay"_s, Attr::Category);
    outer->AddChild(new Attr(u"Channel"_s, Attr::Integer, -2147483647 - 1));
    outer->AddChild(new Attr(u"Empty"_s, Attr::Category));
    auto* const inner = new Attr(u"Timing"_s, Attr::Category);
    inner->AddChild(new Attr(u"Settle"_s, Attr::Real, 1e-300));
    outer->AddChild(inner);
    outer->AddChild(new Attr(u"After"_s, Attr::Integer, 1));
    control->AddAttribute(outer);
    return control;
}

QString Value(const QVariant& value)
{
    return u"%1 '%2'"_s.arg(QLatin1StringView(value.typeName()), value.toString());
}

void Describe(const QString& indent, const TestPlanData* data, QString& text)
{
    for (const QString& name : data->GetPropertyNames())
        text += u"%1%2: %3\n"_s.arg(indent, name, Value(data->GetProperty(name)));
    for (const TestPlanCategory* const category : data->GetCategories()) {
        text += u"%1%2/\n"_s.arg(indent, category->GetName());
        Describe(indent + u"  "_s, category->GetAttributes(), text);
    }
}

} // namespace

namespace SamplePlan {

QSharedPointer<TestProgram> Program()
{
    ProgramWriter writer(1, u"Board"_s);
    const auto power = writer.Group(10, u"Power & \"Rails\""_s);
    power->SetTestPlanValuesCtrl(new CtrlTestPlanValues(true, false));
    power->SetAttributesCtrl(AttributesOfEveryType());
    writer.Parameter(11, u"Load"_s, ZYN_ADDRESS_REAL)
        ->SetTestPlanValuesCtrl(new CtrlTestPlanValues(false, true));

    const auto step = writer.Step(20, u"5 V"_s);
    step->SetIdentString(u"S-<20>"_s);
    step->SetAttributesCtrl(new CtrlAttributes); // an empty list leaves the element out
    writer.Measurement(21, u"Output"_s, ZYN_ADDRESS_REAL, RealValidation())
        ->SetTestPlanValuesCtrl(new CtrlTestPlanValues(true, true));
    writer.Measurement(22, u"Mask"_s, ZYN_ADDRESS_INTEGER, IntValidation());
    writer.Measurement(23, u"Text"_s, ZYN_ADDRESS_STRING, SampleModels::TextLimit(u"A<B"_s));

    // Disabled: itself left out, its children not.
    const auto disabled = writer.Group(30, u"Disabled"_s);
    disabled->SetTestplanDisabled(true);
    disabled->SetTestPlanValuesCtrl(new CtrlTestPlanValues);
    disabled->SetAttributesCtrl(AttributesOfEveryType());
    writer.Step(31, u"Child"_s)->SetTestPlanValuesCtrl(new CtrlTestPlanValues);
    writer.Measurement(32, u"Hidden"_s, ZYN_ADDRESS_REAL, RealValidation())->SetTestplanDisabled(true);
    return writer.program;
}

QSharedPointer<TestProgram> ProgramWithoutPlan()
{
    ProgramWriter writer(1, u"Board"_s);
    writer.Group(10, u"Group"_s);
    writer.Step(20, u"Step"_s);
    writer.Measurement(21, u"Free"_s, ZYN_ADDRESS_REAL);
    writer.Measurement(22, u"Hidden"_s, ZYN_ADDRESS_REAL, RealValidation())->SetTestplanDisabled(true);
    return writer.program;
}

QSharedPointer<TestProgram> DeepProgram(int depth)
{
    ProgramWriter writer(1, u"Board"_s);
    auto* const control = new CtrlAttributes;
    writer.Group(10, u"Group"_s)->SetAttributesCtrl(control);
    auto* innermost = new Attr(u"0"_s, Attr::Category);
    control->AddAttribute(innermost);
    for (int level = 1; level < depth; ++level) {
        auto* const next = new Attr(QString::number(level), Attr::Category);
        innermost->AddChild(next);
        innermost = next;
    }
    innermost->AddChild(new Attr(u"Depth"_s, Attr::Integer, depth));
    return writer.program;
}

QSharedPointer<TestProgram> ProgramWith(const QSharedPointer<ValidationInterface>& validation)
{
    ProgramWriter writer(1, u"Board"_s);
    writer.Group(10, u"Group"_s);
    writer.Step(20, u"Step"_s);
    writer.Measurement(21, u"M"_s, ZYN_ADDRESS_INTEGER, validation);
    return writer.program;
}

QString Describe(const TestPlan& plan)
{
    QString text;
    for (const QString& key : plan.GetKeys()) {
        const std::pair<const char*, const TestPlanData*> sets[] = {
            {"Validation", plan.GetValidation(key)},
            {"Attributes", plan.GetAttributes(key)},
            {"Properties", plan.GetProperties(key)},
        };
        for (const auto& [kind, data] : sets) {
            if (!data)
                continue;
            text += u"%1 %2\n"_s.arg(QLatin1StringView(kind), key);
            ::Describe(u"  "_s, data, text);
        }
    }
    return text;
}

} // namespace SamplePlan
