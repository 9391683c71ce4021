#include "ModelRuns.h"

#include "export/ModelAdapter.h"
#include "runs/RunHeader.h"
#include "runs/RunValue.h"
#include "text/DecimalText.h"

#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

namespace ZYN {

using ModelAdapter::ValueKind;

namespace {

RunValue NumberOf(const QVariant& value)
{
    RunValue number;
    number.SetNone();
    switch (value.typeId()) {
    case QMetaType::Double:
        number.SetReal(value.toDouble());
        break;
    case QMetaType::Float:
        // The number that its shortest decimal says, as a report has it.
        number.SetReal(DecimalText::ToReal(DecimalText::FromSingle(value.toFloat())));
        break;
    case QMetaType::UChar:
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        number.SetWhole(std::to_string(value.toULongLong()));
        break;
    case QMetaType::Bool:
    case QMetaType::SChar:
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::Long:
    case QMetaType::LongLong:
        number.SetInteger(value.toLongLong());
        break;
    default:
        number.text = value.toString().toStdString();
        break;
    }
    return number;
}

/// Texts and limits of one value, to be borrowed by an item.
class ItemOfValue {
public:
    ItemOfValue(ComponentKind kind, const TestComponent& component, const TestResult& result);

    const RunItem& Get() const { return m_item; }

protected:
    void TakeValue(const TestResult& result, int unitCode);
    void TakeLimits(const ValidationInterface& validation);
    void TakeLimit(const QVariant& value, LimitOperator::Code code, RunValue* kept, std::string* operatorText,
                   double* number, std::string_view* limitOperator, std::optional<std::string_view>* text);

    RunItem m_item;
    RunItemLimits m_limits;
    std::string m_ident, m_name, m_unit, m_comment, m_attribute;
    RunValue m_value, m_lower, m_upper;
    std::string m_lowerOperator, m_upperOperator;
};

ItemOfValue::ItemOfValue(ComponentKind kind, const TestComponent& component, const TestResult& result)
    : m_ident(component.GetIdentString().toStdString())
    , m_name(component.GetName().toStdString())
    , m_comment(result.GetComment().toStdString())
    , m_attribute(result.GetAttribute().toStdString())
{
    m_item.kind = kind;
    m_item.ident = m_ident;
    m_item.name = m_name;
    m_item.code = result.GetResult();
    m_item.seconds = result.GetDuration();
    m_item.comment = m_comment;
    m_item.attribute = m_attribute;
    if (kind != ComponentKind::Measurement && kind != ComponentKind::Parameter)
        return;
    m_item.dataType = ModelAdapter::TypeCode(&component);
    const auto& validation = result.GetValidation();
    if (validation)
        TakeLimits(*validation);
    TakeValue(result, m_item.unitCode);
}

void ItemOfValue::TakeValue(const TestResult& result, int unitCode)
{
    const QVariant& value = result.GetValue();
    m_value.SetNone();
    const bool isText = ModelAdapter::KindOfValue(m_item.dataType) == ValueKind::Text;
    if (isText && !ModelAdapter::DigitBase(unitCode))
        m_value.text = ValueDisplay::StaticToString(value).toStdString();
    else if (!value.isNull())
        m_value = NumberOf(value);
    m_item.number = m_value.number;
    m_item.text = m_value.text;
}

void ItemOfValue::TakeLimit(const QVariant& value, LimitOperator::Code code, RunValue* kept,
                            std::string* operatorText, double* number, std::string_view* limitOperator,
                            std::optional<std::string_view>* text)
{
    *operatorText = LimitOperator(code).ToString().toStdString();
    *limitOperator = *operatorText;
    *kept = NumberOf(value);
    *number = kept->Nearest();
    if (value.typeId() == QMetaType::QString)
        *number = RunItemLimits::None;
    if (value.typeId() == QMetaType::QString || !kept->text.empty())
        *text = kept->text;
}

void ItemOfValue::TakeLimits(const ValidationInterface& validation)
{
    const MeasurementUnit unit = ModelAdapter::Unit(&validation);
    m_unit = unit.ToString().toStdString();
    m_item.unit = m_unit;
    m_item.unitCode = ModelAdapter::UnitCode(unit);
    const ValidationInterface::Limits limits = ModelAdapter::Limits(&validation);
    if (limits.display)
        m_item.factor = limits.display->GetScaleFactor();
    if (limits.lower)
        TakeLimit(*limits.lower, limits.lowerOperator, &m_lower, &m_lowerOperator, &m_limits.lower,
                  &m_limits.lowerOperator, &m_limits.lowerText);
    if (limits.upper)
        TakeLimit(*limits.upper, limits.upperOperator, &m_upper, &m_upperOperator, &m_limits.upper,
                  &m_limits.upperOperator, &m_limits.upperText);
    if (ModelAdapter::HasNominal(&validation))
        m_limits.nominal = NumberOf(ModelAdapter::Nominal(&validation)).Nearest();
    m_limits.inverted = ModelAdapter::IsResultInverted(&validation);
    m_item.limits = &m_limits;
}

/// One result set.
class SetWalk {
public:
    SetWalk(const TestResultSet& set, RunBuilder& builder)
        : m_set(set)
        , m_builder(builder)
    {
    }

    RunHeader::SetRun Walk()
    {
        RunHeader::SetRun set;
        const auto program = m_set.GetTestProgram();
        if (program)
            m_builder.Begin(program->GetName().toStdString(), program->GetIdentString().toStdString(),
                            program->GetVersion().toStdString());
        else
            m_builder.Begin({}, {}, {});
        for (int index = 0; program && index < program->GetGroupCount(); ++index)
            AddGroup(*program->GetGroupForIndex(index));
        m_builder.Finish(&set.run);
        set.run.testIndex = int(m_set.GetTestIndex());
        set.run.station = m_set.GetStationDescription().toStdString();
        if (const TestResult* const result = m_set.GetResult(program.data())) {
            set.hasCode = true;
            set.run.code = result->GetResult();
            set.run.duration = result->GetDuration();
            set.run.comment = result->GetComment().toStdString();
        }
        return set;
    }

private:
    void AddGroup(const TestGroup& group)
    {
        if (!Add(ComponentKind::Group, group))
            return;
        for (int index = 0; index < group.GetParameterCount(); ++index)
            Add(ComponentKind::Parameter, *group.GetParameterForIndex(index));
        for (int index = 0; index < group.GetStepCount(); ++index) {
            const TestStep& step = *group.GetStepForIndex(index);
            if (!Add(ComponentKind::Step, step))
                continue;
            for (int place = 0; place < step.GetMeasurementCount(); ++place)
                Add(ComponentKind::Measurement, *step.GetMeasurementForIndex(place));
        }
    }

    bool Add(ComponentKind kind, const TestComponent& component)
    {
        const TestResult* const result = m_set.GetResult(&component);
        if (result)
            m_builder.Add(ItemOfValue(kind, component, *result).Get());
        return result;
    }

    const TestResultSet& m_set;
    RunBuilder& m_builder;
};

void TakeTest(const UUTTest& test, RunBuilder& builder, RunHeader::Test* taken)
{
    taken->result = test.GetResult();
    taken->description = test.GetResultDescription().toStdString();
    taken->startText = test.GetStartTimeString().toStdString();
    taken->seconds = DecimalText::ToReal(test.GetDurationString(), -3);
    if (const auto unit = test.GetUnitUnderTest()) {
        taken->hasUnit = true;
        taken->serial = unit->GetSerialNo().toStdString();
        taken->ident = unit->GetIdentString().toStdString();
        taken->panelIndex = int(unit->GetPanelIndex());
        if (const auto product = unit->GetProductType())
            taken->product = product->GetName().toStdString();
    }
    for (const TestResultSet* const set : test.GetResultSets())
        taken->sets.push_back(SetWalk(*set, builder).Walk());
}

} // namespace

void AddRunsOfModel(const UUTTest& test, const std::string& source, RunBuilder& builder,
                    std::vector<Run>* runs)
{
    RunHeader header;
    TakeTest(test, builder, &header.report);
    for (const auto& item : test.GetUUTTests())
        TakeTest(*item, builder, &header.items.emplace_back());
    if (const auto lot = test.GetProductionLot())
        header.lot = lot->GetName().toStdString();
    if (const ZYNSession* const session = test.GetSession()) {
        header.machineName = session->GetMachineName().toStdString();
        header.user = session->GetCurrentUserName().toStdString();
    }
    header.TakeRuns(source, builder, runs);
}

} // namespace ZYN
