// The elements that say what came out: result sets, programs, groups, steps, measurements, parameters.

#include "NumberText.h"
#include "ReportReader.h"
#include "ReportUnits.h"

#include <cmath>
#include <cstring>

namespace ZYN {

using namespace ReportTexts;

bool ReportReader::TakeSetProperty()
{
    switch (m_property) {
    case Property::StationID:
        Integer(m_text, true);
        m_hasStation = true;
        m_stationDescription.clear();
        return true;
    case Property::StationDescription:
        if (!m_hasStation)
            return false;
        m_stationDescription = m_text;
        return true;
    case Property::TestIndex:
        m_testIndex = Integer(m_text, true);
        return true;
    default:
        return m_property == Property::FailedGroups || m_property == Property::FailedSteps;
    }
}

void ReportReader::StartProgram(const char* const* attributes)
{
    StartComponent(attributes, &m_program);
    m_hasProgram = true;
    m_isBegun = false;
    m_version.clear();
    m_programCode.reset();
    m_programComment.clear();
}

bool ReportReader::TakeProgramProperty()
{
    switch (m_property) {
    case Property::Version:
        m_version = m_text;
        return true;
    case Property::Name:
    case Property::File:
    case Property::FileVersion:
    case Property::Creator:
    case Property::Ident:
    case Property::SourceLine:
        return true;
    default:
        return false;
    }
}

void ReportReader::BeginRun()
{
    if (!m_isBegun)
        m_builder.Begin(m_program.name, m_program.ident, m_version);
    m_isBegun = true;
}

void ReportReader::EndResultSet()
{
    if (!m_hasProgram) {
        m_program = Component();
        m_version.clear();
    }
    BeginRun();
    m_builder.SetVersion(m_version);
    RunHeader::SetRun& set = m_test->sets.emplace_back();
    m_builder.Finish(&set.run);
    set.run.testIndex = m_testIndex;
    if (m_hasStation)
        set.run.station = m_stationDescription;
    if (m_programCode) {
        set.hasCode = true;
        set.run.code = *m_programCode;
        if (!std::isnan(m_programSeconds))
            set.run.duration = m_programSeconds;
        set.run.comment = m_programComment;
    }
}

void ReportReader::StartComponent(const char* const* attributes, Component* component)
{
    component->ident.clear();
    component->name.clear();
    std::string_view type;
    for (; *attributes; attributes += 2) {
        if (std::strcmp(attributes[0], "ID") == 0)
            component->ident = attributes[1];
        else if (std::strcmp(attributes[0], "Name") == 0)
            component->name = attributes[1];
        else if (std::strcmp(attributes[0], "Type") == 0)
            type = attributes[1];
    }
    component->type = Integer(type);
}

bool ReportReader::TakeComponentProperty()
{
    switch (m_property) {
    case Property::SourceLine:
        Integer(m_text);
        return true;
    case Property::Enabled:
    case Property::ReportInc:
        Integer(m_text);
        return true;
    case Property::Type:
        if (m_open.back() != Element::TestGroup)
            return false;
        Integer(m_text);
        return true;
    default:
        return m_property == Property::Ident;
    }
}

void ReportReader::StartLimits(const char* const* attributes)
{
    m_limits.notation = {};
    m_limits.unit.clear();
    m_limits.inverted = false;
    for (std::string* const text : {&m_limits.lower, &m_limits.lowerOperator, &m_limits.upper,
                                    &m_limits.upperOperator, &m_limits.nominal})
        text->clear();
    std::string_view type;
    for (; *attributes; attributes += 2)
        if (std::strcmp(attributes[0], "Type") == 0)
            type = attributes[1];
    m_limits.notation.dataType = Integer(type);
}

bool ReportReader::TakeLimitsProperty()
{
    switch (m_property) {
    case Property::Unit:
        if (m_codeAttribute)
            m_limits.notation.unitCode = Integer(*m_codeAttribute);
        if (m_factorAttribute)
            m_limits.notation.factor = Integer(*m_factorAttribute);
        m_limits.unit = m_text;
        return true;
    case Property::InvertResult:
        m_limits.inverted = Integer(m_text) != 0;
        return true;
    case Property::Lower:
        m_limits.lower = m_text;
        return true;
    case Property::CompLower:
        m_limits.lowerOperator = m_text;
        return true;
    case Property::Upper:
        m_limits.upper = m_text;
        return true;
    case Property::CompUpper:
        m_limits.upperOperator = m_text;
        return true;
    case Property::Nominal:
        m_limits.nominal = m_text;
        return true;
    default:
        return false;
    }
}

void ReportReader::EndLimits()
{
    using ReportValues::Kind;
    m_hasLimits = true;
    m_itemLimits = {};
    m_itemLimits.inverted = m_limits.inverted;
    const ReportValues::Notation& notation = m_limits.notation;
    const Kind kind = ReportValues::KindOf(notation.dataType);
    if (kind == Kind::None)
        return; // nothing is known about such limits
    bool isGood = ReportValues::ReadOperator(m_limits.lowerOperator, &m_itemLimits.lowerOperator);
    isGood = ReportValues::ReadOperator(m_limits.upperOperator, &m_itemLimits.upperOperator) && isGood;
    if (kind == Kind::Text) {
        m_itemLimits.upperOperator = {};
        if (!m_itemLimits.lowerOperator.empty())
            m_itemLimits.lowerText = m_limits.lower;
    } else {
        const auto read = [&](const std::string& text, RunValue* value) {
            isGood = ReportValues::ReadNumber(text, notation, kind == Kind::Integer, value) && isGood;
        };
        const auto take = [&](const std::string& text, std::string_view& limitOperator, RunValue* value,
                              double& number, std::optional<std::string_view>& exact) {
            read(text, value);
            if (text.empty())
                limitOperator = {};
            if (limitOperator.empty())
                return;
            number = value->Nearest();
            if (!value->text.empty())
                exact = value->text;
        };
        take(m_limits.lower, m_itemLimits.lowerOperator, &m_lower, m_itemLimits.lower,
             m_itemLimits.lowerText);
        take(m_limits.upper, m_itemLimits.upperOperator, &m_upper, m_itemLimits.upper,
             m_itemLimits.upperText);
        RunValue nominal;
        const bool wasGood = isGood;
        read(m_limits.nominal, &nominal);
        m_itemLimits.nominal = nominal.number;
        if (kind == Kind::Integer)
            isGood = wasGood; // the report import does not look at that of an integer
    }
    if (!isGood)
        Refuse(noLimits);
}

void ReportReader::StartResult(const char* const* attributes)
{
    std::string_view code;
    for (; *attributes; attributes += 2)
        if (std::strcmp(attributes[0], "Code") == 0)
            code = attributes[1];
    m_result.code = Integer(code);
    m_result.seconds = RunItemLimits::None;
    m_result.value.SetNone();
    m_result.unit.clear();
    m_result.comment.clear();
    m_result.attribute.clear();
}

bool ReportReader::TakeResultProperty()
{
    switch (m_property) {
    case Property::Value:
        TakeValue();
        return true;
    case Property::Duration:
        m_result.seconds = Milliseconds(m_text);
        return true;
    case Property::Comment:
        m_result.comment = m_text;
        return true;
    case Property::Attribute:
        m_result.attribute = m_text;
        return true;
    case Property::Unit:
        if (!m_hasLimits)
            m_result.unit = m_text;
        return true;
    default:
        return false;
    }
}

void ReportReader::TakeValue()
{
    const Element owner = m_open[m_open.size() - 2];
    const bool isValue = owner == Element::TestMeasurement || owner == Element::TestParameter;
    ReportValues::Notation notation;
    if (isValue && m_hasLimits)
        notation = m_limits.notation;
    else if (isValue)
        notation.dataType = m_value.type;
    if (ReportValues::ReadValue(m_text, notation, isValue ? m_value.type : 0, &m_result.value))
        return;
    Refuse(noNumber, m_text);
    m_result.value.text = m_text;
}

void ReportReader::EndResult()
{
    switch (m_open.back()) {
    case Element::TestMeasurement:
        AddValue(ComponentKind::Measurement);
        break;
    case Element::TestParameter:
        AddValue(ComponentKind::Parameter);
        break;
    case Element::TestStep:
        if (!m_anyGroup)
            Refuse(stepWithoutGroup, m_step.name);
        m_anyStep = true;
        AddGroup(ComponentKind::Step, m_step);
        break;
    case Element::TestGroup:
        m_anyGroup = true;
        AddGroup(ComponentKind::Group, m_group);
        break;
    default:
        m_programCode = m_result.code;
        m_programSeconds = m_result.seconds;
        m_programComment = m_result.comment;
        break;
    }
}

void ReportReader::AddGroup(ComponentKind kind, const Component& component)
{
    RunItem item;
    item.kind = kind;
    item.ident = component.ident;
    item.name = component.name;
    item.code = m_result.code;
    item.seconds = m_result.seconds;
    item.comment = m_result.comment;
    item.attribute = m_result.attribute;
    BeginRun();
    m_builder.Add(item);
}

void ReportReader::AddValue(ComponentKind kind)
{
    if (kind == ComponentKind::Measurement && !m_anyStep)
        Refuse(valueWithoutStep, m_value.name);
    RunItem item;
    item.kind = kind;
    item.ident = m_value.ident;
    item.name = m_value.name;
    item.dataType = m_value.type;
    item.code = m_result.code;
    item.seconds = m_result.seconds;
    item.number = m_result.value.number;
    item.text = m_result.value.text;
    item.comment = m_result.comment;
    item.attribute = m_result.attribute;
    item.unit = m_result.unit;
    if (m_hasLimits) {
        item.unit = ReportUnits::WithoutPrefix(m_limits.unit, m_limits.notation.factor);
        item.unitCode = m_limits.notation.unitCode;
        item.factor = m_limits.notation.factor;
        item.limits = &m_itemLimits;
    }
    BeginRun();
    m_builder.Add(item);
}

} // namespace ZYN
