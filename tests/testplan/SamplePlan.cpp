#include "SamplePlan.h"
#include "support/SampleProgram.h"

using namespace ZYN;

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
    control->AddAttribute(new Attr("Retries", Attr::Integer, 3));
    control->AddAttribute(new Attr("Delay", Attr::Real, 0.1));
    control->AddAttribute(new Attr("Note", Attr::String, "a < b & \"Ω\" \t|\n|"));
    control->AddAttribute(new Attr("Fast", Attr::Boolean, true));
    control->AddAttribute(new Attr("Newer", Attr::TestComponentAttrType(42), 7));
    control->AddAttribute(new Attr("Nothing", Attr::String));
    auto* const outer = new Attr("Relay", Attr::Category);
    outer->AddChild(new Attr("Channel", Attr::Integer, -2147483647 - 1));
    outer->AddChild(new Attr("Empty", Attr::Category));
    auto* const inner = new Attr("Timing", Attr::Category);
    inner->AddChild(new Attr("Settle", Attr::Real, 1e-300));
    outer->AddChild(inner);
    outer->AddChild(new Attr("After", Attr::Integer, 1));
    control->AddAttribute(outer);
    return control;
}

QString Value(const QVariant& value)
{
    return QString("%1 '%2'").arg(QLatin1StringView(value.typeName()), value.toString());
}

void Describe(const QString& indent, const TestPlanData* data, QString& text)
{
    for (const QString& name : data->GetPropertyNames())
        text += QString("%1%2: %3\n").arg(indent, name, Value(data->GetProperty(name)));
    for (const TestPlanCategory* const category : data->GetCategories()) {
        text += QString("%1%2/\n").arg(indent, category->GetName());
        Describe(indent + "  ", category->GetAttributes(), text);
    }
}

} // namespace

namespace SamplePlan {

QSharedPointer<TestProgram> Program()
{
    ProgramWriter writer(1, "Board");
    const auto power = writer.Group(10, "Power & \"Rails\"");
    power->SetTestPlanValuesCtrl(new CtrlTestPlanValues(true, false));
    power->SetAttributesCtrl(AttributesOfEveryType());
    writer.Parameter(11, "Load", ZYN_ADDRESS_REAL)
        ->SetTestPlanValuesCtrl(new CtrlTestPlanValues(false, true));

    const auto step = writer.Step(20, "5 V");
    step->SetIdentString("S-<20>");
    step->SetAttributesCtrl(new CtrlAttributes); // an empty list leaves the element out
    writer.Measurement(21, "Output", ZYN_ADDRESS_REAL, RealValidation())
        ->SetTestPlanValuesCtrl(new CtrlTestPlanValues(true, true));
    writer.Measurement(22, "Mask", ZYN_ADDRESS_INTEGER, IntValidation());
    writer.Measurement(23, "Text", ZYN_ADDRESS_STRING, SampleModels::TextLimit("A<B"));

    // Disabled: itself left out, its children not.
    const auto disabled = writer.Group(30, "Disabled");
    disabled->SetTestplanDisabled(true);
    disabled->SetTestPlanValuesCtrl(new CtrlTestPlanValues);
    disabled->SetAttributesCtrl(AttributesOfEveryType());
    writer.Step(31, "Child")->SetTestPlanValuesCtrl(new CtrlTestPlanValues);
    writer.Measurement(32, "Hidden", ZYN_ADDRESS_REAL, RealValidation())->SetTestplanDisabled(true);
    return writer.program;
}

QSharedPointer<TestProgram> DeepProgram(int depth)
{
    ProgramWriter writer(1, "Board");
    auto* const control = new CtrlAttributes;
    writer.Group(10, "Group")->SetAttributesCtrl(control);
    auto* innermost = new Attr("0", Attr::Category);
    control->AddAttribute(innermost);
    for (int level = 1; level < depth; ++level) {
        auto* const next = new Attr(QString::number(level), Attr::Category);
        innermost->AddChild(next);
        innermost = next;
    }
    innermost->AddChild(new Attr("Depth", Attr::Integer, depth));
    return writer.program;
}

QSharedPointer<TestProgram> ProgramWith(const QSharedPointer<ValidationInterface>& validation)
{
    ProgramWriter writer(1, "Board");
    writer.Group(10, "Group");
    writer.Step(20, "Step");
    writer.Measurement(21, "M", ZYN_ADDRESS_INTEGER, validation);
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
            text += QString("%1 %2\n").arg(QLatin1StringView(kind), key);
            ::Describe("  ", data, text);
        }
    }
    return text;
}

} // namespace SamplePlan
