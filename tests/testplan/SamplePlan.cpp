#include "SamplePlan.h"

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/MeasurementUnit.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestPlan.h>
#include <ZYNCommon/TestPlanCategory.h>
#include <ZYNCommon/TestPlanData.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>

using namespace ZYN;

namespace {

using Attr = TestComponentAttr;

QSharedPointer<TestProgram> NewProgram()
{
    return QSharedPointer<TestProgram>::create(1, QStringLiteral("Board"), 0UL);
}

QSharedPointer<TestGroup> AddGroup(TestProgram* program, long id, const char* name)
{
    const auto group = QSharedPointer<TestGroup>::create(id, QString::fromUtf8(name), program, 0U, -1L,
                                                         ZYN_GROUP_USER, nullptr);
    program->AddGroup(group);
    return group;
}

QSharedPointer<TestStep> AddStep(TestGroup* group, long id, const char* name)
{
    const auto step =
        QSharedPointer<TestStep>::create(id, QString::fromUtf8(name), group, 0U, -1L, QString());
    group->AddStep(step);
    return step;
}

QSharedPointer<TestMeasurement> AddMeasurement(TestStep* step, long id, const QString& name,
                                               EN_ZYN_ADDRESS type, ValidationInterface* validation)
{
    const auto measurement = QSharedPointer<TestMeasurement>::create(id, name, type, step, 0U, -1L);
    measurement->GetValidationCtrl()->SetValidation(QSharedPointer<ValidationInterface>(validation));
    step->AddMeasurement(measurement);
    return measurement;
}

ValidationInterface* RealValidation()
{
    return TestComponentFactory::CreateValidationReal(MeasurementUnit::Volt, "<=", "<", 4.75, 5.25, 11, 12,
                                                      -1, -1, -1, 21, QVariant(-3), 5.0);
}

ValidationInterface* IntValidation()
{
    return TestComponentFactory::CreateValidationInt(MeasurementUnit::Hexadecimal, "==", "", 255, 0, -1, -1,
                                                     -1, -1, -1, -1);
}

ValidationInterface* StringValidation()
{
    return TestComponentFactory::CreateValidationString(MeasurementUnit::None, "==", QStringLiteral("A<B"),
                                                        -1, -1, -1, -1);
}

CtrlAttributes* AttributesOfEveryType()
{
    auto* const control = new CtrlAttributes;
    control->AddAttribute(new Attr(QStringLiteral("Retries"), Attr::Integer, 3));
    control->AddAttribute(new Attr(QStringLiteral("Delay"), Attr::Real, 0.1));
    control->AddAttribute(
        new Attr(QStringLiteral("Note"), Attr::String, QStringLiteral("a < b & \"Ω\" \t|\n|")));
    control->AddAttribute(new Attr(QStringLiteral("Fast"), Attr::Boolean, true));
    control->AddAttribute(new Attr(QStringLiteral("Newer"), Attr::TestComponentAttrType(42), 7));
    control->AddAttribute(new Attr(QStringLiteral("Nothing"), Attr::String));
    auto* const outer = new Attr(QStringLiteral("Relay"), Attr::Category);
    outer->AddChild(new Attr(QStringLiteral("Channel"), Attr::Integer, -2147483647 - 1));
    outer->AddChild(new Attr(QStringLiteral("Empty"), Attr::Category));
    auto* const inner = new Attr(QStringLiteral("Timing"), Attr::Category);
    inner->AddChild(new Attr(QStringLiteral("Settle"), Attr::Real, 1e-300));
    outer->AddChild(inner);
    outer->AddChild(new Attr(QStringLiteral("After"), Attr::Integer, 1));
    control->AddAttribute(outer);
    return control;
}

QString Value(const QVariant& value)
{
    return QStringLiteral("%1 '%2'").arg(QLatin1StringView(value.typeName()), value.toString());
}

void Describe(const QString& indent, const TestPlanData* data, QString& text)
{
    for (const QString& name : data->GetPropertyNames())
        text += QStringLiteral("%1%2: %3\n").arg(indent, name, Value(data->GetProperty(name)));
    for (const TestPlanCategory* const category : data->GetCategories()) {
        text += QStringLiteral("%1%2/\n").arg(indent, category->GetName());
        Describe(indent + QStringLiteral("  "), category->GetAttributes(), text);
    }
}

} // namespace

namespace SamplePlan {

QSharedPointer<TestProgram> Program()
{
    const auto program = NewProgram();
    const auto power = AddGroup(program.get(), 10, "Power & \"Rails\"");
    power->SetTestPlanValuesCtrl(new CtrlTestPlanValues(true, false));
    power->SetAttributesCtrl(AttributesOfEveryType());

    const auto parameter = QSharedPointer<TestParameter>::create(11, QStringLiteral("Load"), ZYN_ADDRESS_REAL,
                                                                 power.get(), 0U, -1L);
    parameter->SetTestPlanValuesCtrl(new CtrlTestPlanValues(false, true));
    power->AddParameter(parameter);

    const auto step = AddStep(power.get(), 20, "5 V");
    step->SetIdentString(QStringLiteral("S-<20>"));
    step->SetAttributesCtrl(new CtrlAttributes); // an empty list leaves the element out
    const auto voltage =
        AddMeasurement(step.get(), 21, QStringLiteral("Output"), ZYN_ADDRESS_REAL, RealValidation());
    voltage->SetTestPlanValuesCtrl(new CtrlTestPlanValues(true, true));
    AddMeasurement(step.get(), 22, QStringLiteral("Mask"), ZYN_ADDRESS_INTEGER, IntValidation());
    AddMeasurement(step.get(), 23, QStringLiteral("Text"), ZYN_ADDRESS_STRING, StringValidation());

    // Disabled: itself left out, its children not.
    const auto disabled = AddGroup(program.get(), 30, "Disabled");
    disabled->SetTestplanDisabled(true);
    disabled->SetTestPlanValuesCtrl(new CtrlTestPlanValues);
    disabled->SetAttributesCtrl(AttributesOfEveryType());
    const auto child = AddStep(disabled.get(), 31, "Child");
    child->SetTestPlanValuesCtrl(new CtrlTestPlanValues);
    const auto hidden =
        AddMeasurement(child.get(), 32, QStringLiteral("Hidden"), ZYN_ADDRESS_REAL, RealValidation());
    hidden->SetTestplanDisabled(true);
    return program;
}

QSharedPointer<TestProgram> ProgramWithoutPlan()
{
    const auto program = NewProgram();
    const auto step = AddStep(AddGroup(program.get(), 10, "Group").get(), 20, "Step");
    AddMeasurement(step.get(), 21, QStringLiteral("Free"), ZYN_ADDRESS_REAL, nullptr);
    const auto hidden =
        AddMeasurement(step.get(), 22, QStringLiteral("Hidden"), ZYN_ADDRESS_REAL, RealValidation());
    hidden->SetTestplanDisabled(true);
    return program;
}

QSharedPointer<TestProgram> DeepProgram(int depth)
{
    const auto program = NewProgram();
    auto* const control = new CtrlAttributes;
    auto* innermost = new Attr(QStringLiteral("0"), Attr::Category);
    control->AddAttribute(innermost);
    for (int level = 1; level < depth; ++level) {
        auto* const next = new Attr(QString::number(level), Attr::Category);
        innermost->AddChild(next);
        innermost = next;
    }
    innermost->AddChild(new Attr(QStringLiteral("Depth"), Attr::Integer, depth));
    AddGroup(program.get(), 10, "Group")->SetAttributesCtrl(control);
    return program;
}

QSharedPointer<TestProgram> LargeProgram(int measurements)
{
    const auto program = NewProgram();
    const auto group = AddGroup(program.get(), 10, "Group");
    QSharedPointer<TestStep> step;
    for (int index = 0; index < measurements; ++index) {
        if (index % 100 == 0)
            step = AddStep(group.get(), 1000000 + index, "Step");
        AddMeasurement(step.get(), 100 + index, QStringLiteral("M"), ZYN_ADDRESS_REAL, RealValidation());
    }
    return program;
}

QSharedPointer<TestProgram> ProgramWith(QSharedPointer<ValidationInterface> validation)
{
    const auto program = NewProgram();
    const auto step = AddStep(AddGroup(program.get(), 10, "Group").get(), 20, "Step");
    AddMeasurement(step.get(), 21, QStringLiteral("M"), ZYN_ADDRESS_INTEGER, nullptr)
        ->GetValidationCtrl()
        ->SetValidation(validation);
    return program;
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
            text += QStringLiteral("%1 %2\n").arg(QLatin1StringView(kind), key);
            ::Describe(QStringLiteral("  "), data, text);
        }
    }
    return text;
}

} // namespace SamplePlan
