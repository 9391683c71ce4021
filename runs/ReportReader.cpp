// The way through the document, and the elements that say what was tested, where and when.

#include "ReportReader.h"

#include "NumberText.h"

#include <algorithm>
#include <cstring>

namespace ZYN {

using namespace ReportTexts;

namespace {

constexpr std::string_view knownVersion = "1.4.0";

/// Mostly a text is the line feed or the indentation between two elements.
bool IsBlank(std::string_view text)
{
    static constexpr std::string_view indentation =
        "                                                                ";
    if (text == "\n" || (text.size() <= indentation.size() && indentation.starts_with(text)))
        return true;
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; });
}

/// A name without the namespace that it is in.
std::string_view LocalName(std::string_view name)
{
    const std::size_t mark = name.rfind(ReportReader::NamespaceMark);
    return mark == std::string_view::npos ? name : name.substr(mark + 1);
}

ReportNames::Element ElementOf(std::string_view name)
{
    const ReportNames::Element element = ReportNames::ElementOf(name);
    return element == ReportNames::Element::Unknown ? ReportNames::ElementOf(LocalName(name)) : element;
}

/// An attribute's value; null where it is missing.
const char* ValueOf(const char* const* attributes, const char* name)
{
    for (; *attributes; attributes += 2)
        if (std::strcmp(attributes[0], name) == 0)
            return attributes[1];
    return nullptr;
}

} // namespace

void ReportReader::Begin()
{
    m_fault.clear();
    m_open.assign(1, Element::TestReport);
    m_atRoot = true;
    m_parameterDepth = 0;
    m_inProperty = false;
    m_header = RunHeader();
    m_test = &m_header.report;
    m_hasStation = false;
    m_stationDescription.clear();
    m_testIndex = 0;
    m_anyGroup = m_anyStep = false;
}

void ReportReader::Start(std::string_view name, const char* const* attributes)
{
    if (m_parameterDepth > 0)
        ++m_parameterDepth;
    if (m_inProperty) {
        const bool isFirst = !m_hasText;
        EndProperty();
        if (isFirst)
            return; // stands where the property's text would be, and counts as one that cannot be read
    }
    const Element element = ElementOf(name);
    if (m_atRoot) {
        m_atRoot = false;
        const char* const version = ValueOf(attributes, "Version");
        if (element != Element::TestReport)
            Refuse(wrongRoot, LocalName(name));
        else if (!version || !*version)
            Refuse(noVersion);
        else if (version != knownVersion)
            Refuse(unknownVersion, version, knownVersion);
    }
    if (m_parameterDepth > 0)
        StartInParameter(element, attributes);
    else if (m_open.back() == Element::TestReport)
        StartTop(element, name);
    else if (element == Element::Property)
        StartProperty(attributes);
    else if (!StartChild(element, attributes))
        Refuse(unexpected, LocalName(name), ReportNames::NameOf(m_open.back()));
}

void ReportReader::StartTop(Element element, std::string_view name)
{
    switch (element) {
    case Element::TestReport:
    case Element::Fixture:
    case Element::Property:
        return;
    case Element::ProductType:
        if (!m_header.product)
            Refuse(productTooEarly);
        break;
    case Element::UUTTest:
    case Element::UnitUnderTest:
    case Element::ProductionLot:
    case Element::TestEnvironment:
    case Element::SubUnitTests:
        break;
    case Element::TestResults:
        m_hasStation = false;
        break;
    default:
        Refuse(unexpectedHere, LocalName(name));
        return;
    }
    Open(element);
}

/// \return whether the element may stand in the one whose reader is open
bool ReportReader::StartChild(Element element, const char* const* attributes)
{
    const Element parent = m_open.back();
    const auto isIn = [&](Element child, Element in) { return element == child && parent == in; };
    if (isIn(Element::TestMeasurement, Element::TestStep)) {
        StartComponent(attributes, &m_value);
        m_hasLimits = false;
    } else if (isIn(Element::Limits, Element::TestMeasurement)) {
        StartLimits(attributes);
    } else if (element == Element::Result &&
               (parent == Element::TestMeasurement || parent == Element::TestStep ||
                parent == Element::TestGroup || parent == Element::Testprogram)) {
        StartResult(attributes);
    } else if (isIn(Element::TestStep, Element::TestGroup)) {
        StartComponent(attributes, &m_step);
    } else if (isIn(Element::TestParameter, Element::TestGroup)) {
        m_parameterDepth = 1;
        StartComponent(attributes, &m_value);
        m_hasLimits = false;
    } else if (isIn(Element::TestGroup, Element::Testprogram)) {
        StartComponent(attributes, &m_group);
    } else if (isIn(Element::Testprogram, Element::TestResultSet)) {
        StartProgram(attributes);
    } else if (isIn(Element::TestResultSet, Element::TestResults)) {
        m_hasProgram = m_isBegun = false;
        m_programCode.reset();
    } else if (isIn(Element::TestResults, Element::SubUnitTest)) {
        m_hasStation = false;
    } else if (isIn(Element::SubUnitTest, Element::SubUnitTests)) {
        m_test = &m_header.items.emplace_back();
    } else if (isIn(Element::Parameter, Element::ProductType)) {
        return true; // of a product: has no content
    } else if (!isIn(Element::UUTTest, Element::SubUnitTest) &&
               !isIn(Element::UnitUnderTest, Element::SubUnitTest)) {
        return false;
    }
    Open(element);
    return true;
}

void ReportReader::End(std::string_view name)
{
    if (m_inProperty)
        EndProperty();
    const Element element = ElementOf(name);
    if (m_parameterDepth > 0)
        EndInParameter(element);
    else if (element == m_open.back() && m_open.size() > 1)
        Close();
}

/// A test parameter is taken as it is: the report import passes over it, whatever it holds.
void ReportReader::StartInParameter(Element element, const char* const* attributes)
{
    if (element == Element::Property)
        StartProperty(attributes);
    else if (element == Element::Limits && m_open.back() == Element::TestParameter)
        StartLimits(attributes);
    else if (element == Element::Result && m_open.back() == Element::TestParameter)
        StartResult(attributes);
    else
        return;
    if (element != Element::Property)
        Open(element);
}

void ReportReader::EndInParameter(Element element)
{
    --m_parameterDepth;
    if (m_parameterDepth == 0) {
        m_open.erase(std::find(m_open.begin(), m_open.end(), Element::TestParameter), m_open.end());
    } else if (element == m_open.back() && element != Element::TestParameter) {
        Close();
    }
}

void ReportReader::Open(Element element)
{
    m_open.push_back(element);
    m_hasName = false;
    // What stands there twice is what the last one says.
    if (element == Element::TestEnvironment) {
        m_header.machineName.clear();
        m_header.user.clear();
    }
}

void ReportReader::Close()
{
    const Element ended = m_open.back();
    m_open.pop_back();
    switch (ended) {
    case Element::Result:
        EndResult();
        break;
    case Element::Limits:
        EndLimits();
        break;
    case Element::TestResultSet:
        EndResultSet();
        break;
    case Element::UnitUnderTest:
        if (m_hasName)
            m_test->product = m_header.product.value_or(std::string());
        break;
    case Element::SubUnitTest:
        m_test = &m_header.report;
        break;
    default:
        break;
    }
}

void ReportReader::StartProperty(const char* const* attributes)
{
    const char* const name = ValueOf(attributes, "Name");
    const std::string_view text = name ? name : "";
    m_property = ReportNames::PropertyOf(text);
    m_inProperty = true;
    m_hasText = false;
    m_text.clear();
    if (m_property == Property::Unknown) {
        m_propertyName = text;
    } else if (m_property == Property::Unit || m_property == Property::ProductType) {
        const auto keep = [&](const char* attribute) {
            const char* const value = ValueOf(attributes, attribute);
            return value ? std::optional<std::string>(value) : std::nullopt;
        };
        m_codeAttribute = keep("Code");
        m_factorAttribute = keep("Factor");
    }
}

void ReportReader::Text(std::string_view text)
{
    if (m_inProperty) {
        m_hasText = true;
        m_text += text;
    } else if (m_open.back() != Element::TestReport && !IsBlank(text)) {
        Refuse(strayText, ReportNames::NameOf(m_open.back()));
    }
}

void ReportReader::Divide()
{
    if (m_inProperty)
        EndProperty();
}

void ReportReader::StartSection()
{
    if (m_inProperty && m_hasText)
        EndProperty();
    m_hasText = m_inProperty;
}

void ReportReader::EndProperty()
{
    m_inProperty = false;
    if (!TakeProperty())
        Refuse(unknownProperty,
               m_property == Property::Unknown ? std::string_view(m_propertyName)
                                               : ReportNames::NameOf(m_property),
               ReportNames::NameOf(m_open.back()));
}

/// \return false for a property that the element does not have
bool ReportReader::TakeProperty()
{
    switch (m_open.back()) {
    case Element::Result:
        return TakeResultProperty();
    case Element::Limits:
        return TakeLimitsProperty();
    case Element::TestMeasurement:
    case Element::TestParameter:
    case Element::TestStep:
    case Element::TestGroup:
        return TakeComponentProperty();
    case Element::Testprogram:
        return TakeProgramProperty();
    case Element::TestResultSet:
        return TakeSetProperty();
    case Element::UUTTest:
        return TakeTestProperty();
    case Element::UnitUnderTest:
        return TakeUnitProperty();
    case Element::ProductType:
        return TakeProductProperty();
    case Element::ProductionLot:
        return TakeLotProperty();
    case Element::TestEnvironment:
        return TakeEnvironmentProperty();
    default:
        return false;
    }
}

bool ReportReader::TakeTestProperty()
{
    switch (m_property) {
    case Property::Result:
        m_test->result = Integer(m_text);
        return true;
    case Property::Description:
        m_test->description = m_text;
        return true;
    case Property::Duration:
        m_test->seconds = Milliseconds(m_text);
        return true;
    case Property::TestTime:
        m_test->startText = m_text;
        return true;
    default:
        return m_property == Property::DateTime; // the end, which follows from start and duration
    }
}

bool ReportReader::TakeUnitProperty()
{
    RunHeader::Test& test = *m_test;
    switch (m_property) {
    case Property::Name:
        m_hasName = test.hasUnit = true;
        test.serial.clear();
        test.ident.clear();
        test.panelIndex = 0;
        return true;
    case Property::ProductType:
        Integer(m_codeAttribute.value_or(std::string()));
        m_header.product = m_text;
        return true;
    case Property::SerialNo:
    case Property::Ident:
    case Property::PanelIndex:
        break;
    default:
        return false;
    }
    if (!m_hasName)
        Refuse(unitWithoutName, ReportNames::NameOf(m_property));
    else if (m_property == Property::SerialNo)
        test.serial = m_text;
    else if (m_property == Property::Ident)
        test.ident = m_text;
    else
        test.panelIndex = Integer(m_text);
    return true;
}

bool ReportReader::TakeProductProperty()
{
    switch (m_property) {
    case Property::ClusterLevel:
        Integer(m_text, true);
        return true;
    case Property::MCP:
    case Property::MCPItems:
    case Property::MCPSplitting:
        Integer(m_text);
        return true;
    case Property::MCPSplittingMap:
        for (std::string_view map = m_text; !map.empty();) {
            const std::string_view part = map.substr(0, map.find(' '));
            if (const std::size_t end = part.find('_'); end != std::string_view::npos)
                Integer(part.substr(0, end));
            map.remove_prefix(std::min(map.size(), part.size() + 1));
        }
        return true;
    default:
        return m_property == Property::Name || m_property == Property::Description ||
               m_property == Property::ArticelCode || m_property == Property::Customer;
    }
}

bool ReportReader::TakeLotProperty()
{
    if (m_property == Property::LotNumber) {
        m_header.lot = m_text;
        m_hasName = true;
    } else if (m_property != Property::OrderCode) {
        return false;
    } else if (!m_hasName) {
        Refuse(lotWithoutNumber);
    }
    return true;
}

bool ReportReader::TakeEnvironmentProperty()
{
    if (m_property == Property::MachineName)
        m_header.machineName = m_text;
    else if (m_property == Property::User)
        m_header.user = m_text;
    else
        return m_property == Property::Workspace;
    return true;
}

int ReportReader::Integer(std::string_view text, bool emptyIsGood)
{
    const std::optional<int> number = NumberText::ToInteger(text);
    if (!number && !(emptyIsGood && text.empty()))
        Refuse(noInteger, text);
    return number.value_or(0);
}

double ReportReader::Milliseconds(std::string_view text)
{
    const std::optional<double> seconds = NumberText::ToReal(text, -3);
    if (!seconds)
        Refuse(noDuration, text);
    return seconds.value_or(0);
}

void ReportReader::Finish(const std::string& source, std::vector<Run>* runs)
{
    m_header.TakeRuns(source, m_builder, runs);
}

} // namespace ZYN
