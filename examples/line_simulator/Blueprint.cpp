#include "Blueprint.h"

#include "Bins.h"

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>

#include <cmath>

namespace ZYN::Simulation {

namespace {

constexpr unsigned int linesPerComponent = 4; // the imagined source file spends so many on each

ValidationInterface* CreateValidation(const MeasurementDef& def)
{
    const BinIds bins = BinsOfFailure(def.bin);
    if (def.kind == ValueKind::Text)
        return TestComponentFactory::CreateValidationString(
            def.unit, def.text.isEmpty() ? "" : "==", def.text, bins.hard, bins.pass, bins.softLow,
            bins.softPass);
    if (def.kind != ValueKind::Real) {
        const int wanted = int(def.nominal);
        return TestComponentFactory::CreateValidationInt(def.unit, "==", "", wanted, wanted, bins.hard,
                                                         bins.hard, bins.pass, bins.softLow, bins.softHigh,
                                                         bins.softPass);
    }
    return TestComponentFactory::CreateValidationReal(
        def.unit, std::isnan(def.lower) ? "" : "<=", std::isnan(def.upper) ? "" : "<=", def.lower, def.upper,
        bins.hard, bins.hard, bins.pass, bins.softLow, bins.softHigh, bins.softPass, def.scale, def.nominal);
}

EN_ZYN_ADDRESS AddressOf(ValueKind kind)
{
    switch (kind) {
    case ValueKind::Real:
        return ZYN_ADDRESS_REAL;
    case ValueKind::Text:
        return ZYN_ADDRESS_STRING;
    case ValueKind::Integer:
    case ValueKind::Bits:
    case ValueKind::Check:
        break;
    }
    return ZYN_ADDRESS_INTEGER;
}

// How the instrument is to be used: a category within a category, as program authors nest them.
CtrlAttributes* CreateAttributes(const MeasurementDef& def)
{
    auto* const range = new TestComponentAttr(QStringLiteral("Range"), TestComponentAttr::Category);
    range->AddChild(new TestComponentAttr(QStringLiteral("Automatic"), TestComponentAttr::Boolean, true));
    range->AddChild(
        new TestComponentAttr(QStringLiteral("Decimals"), TestComponentAttr::Integer, def.digits));
    auto* const instrument = new TestComponentAttr(QStringLiteral("Instrument"), TestComponentAttr::Category);
    instrument->AddChild(
        new TestComponentAttr(QStringLiteral("Name"), TestComponentAttr::String, def.instrument));
    instrument->AddChild(new TestComponentAttr(QStringLiteral("Settling"), TestComponentAttr::Real,
                                               def.milliseconds / 2000.0));
    instrument->AddChild(range);
    auto* const attributes = new CtrlAttributes;
    attributes->AddAttribute(instrument);
    attributes->AddAttribute(new TestComponentAttr(QStringLiteral("Repeats"), TestComponentAttr::Integer, 1));
    return attributes;
}

QSharedPointer<TestMeasurement> BuildMeasurement(const MeasurementDef& def, const StepDef& step,
                                                 long position, unsigned int line,
                                                 const QSharedPointer<ValidationInterface>& validation)
{
    const auto measurement = QSharedPointer<TestMeasurement>::create(
        def.id, def.id == 0 ? step.name : def.name, AddressOf(def.kind), nullptr, line, position);
    measurement->GetValidationCtrl()->SetValidation(validation);
    measurement->SetTestPlanValuesCtrl(new CtrlTestPlanValues(def.reported, true));
    if (!def.reported)
        measurement->SetLogInReportCtrl(new CtrlLogInReport(false));
    if (!def.instrument.isEmpty())
        measurement->SetAttributesCtrl(CreateAttributes(def));
    // A plan finds its components by ident, and every measurement of this kind has the ident "0".
    measurement->SetTestplanDisabled(def.id == 0);
    return measurement;
}

QSharedPointer<TestStep> BuildStep(const StepDef& def, long position, unsigned int line)
{
    const auto step = QSharedPointer<TestStep>::create(def.id, def.name, nullptr, line, position, QString());
    step->SetTestPlanValuesCtrl(new CtrlTestPlanValues(def.reported, def.enabled));
    if (!def.reported)
        step->GetLogInReportCtrl()->LogInReportOff();
    if (!def.enabled)
        step->GetEnableCtrl()->EnableOff();
    return step;
}

QSharedPointer<TestGroup> BuildGroup(const GroupDef& def, long position, unsigned int* line)
{
    const auto group =
        QSharedPointer<TestGroup>::create(def.id, def.name, nullptr, *line, position, def.kind, nullptr);
    group->SetTestPlanValuesCtrl(new CtrlTestPlanValues(true, true));
    for (const ParameterDef& parameter : def.parameters) {
        *line += linesPerComponent;
        group->AddParameter(QSharedPointer<TestParameter>::create(
            parameter.id, parameter.name, parameter.type, group.data(), *line, group->GetParameterCount()));
    }
    return group;
}

} // namespace

double Resolved(double value, int digits)
{
    if (!std::isfinite(value))
        return value;
    double unit = 1.0;
    for (int i = 0; i < digits; ++i)
        unit *= 10.0;
    return std::round(value * unit) / unit;
}

Blueprint::Blueprint(const QList<GroupDef>& groups)
    : m_groups(groups)
{
    for (const GroupDef& group : groups)
        for (const StepDef& step : group.steps)
            for (const MeasurementDef& def : step.measurements)
                m_validations.append(QSharedPointer<ValidationInterface>(CreateValidation(def)));
}

QSharedPointer<TestProgram> Blueprint::Build() const
{
    const auto program =
        QSharedPointer<TestProgram>::create(4801, QStringLiteral("MCB-48_FCT"), 0x5eed4801ul);
    program->SetDisplayName(QStringLiteral("MCB-48 function test"));
    program->SetCreator(QStringLiteral("Test engineering"));
    program->SetVersion(QStringLiteral("3.2.0"));
    program->SetFileVersion(QStringLiteral("2.0"));
    program->SetFileName("MCB-48_FCT.ztp");

    unsigned int line = 12;
    qsizetype validation = 0;
    for (const GroupDef& groupDef : m_groups) {
        const QSharedPointer<TestGroup> group = BuildGroup(groupDef, program->GetGroupCount(), &line);
        program->AddGroup(group);
        for (const StepDef& stepDef : groupDef.steps) {
            const QSharedPointer<TestStep> step =
                BuildStep(stepDef, group->GetStepCount(), line += linesPerComponent);
            group->AddStep(step);
            for (const MeasurementDef& def : stepDef.measurements)
                step->AddMeasurement(BuildMeasurement(def, stepDef, step->GetMeasurementCount(),
                                                      line += linesPerComponent,
                                                      m_validations.at(validation++)));
        }
        line += linesPerComponent;
    }
    return program;
}

} // namespace ZYN::Simulation
