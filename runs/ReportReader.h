#pragma once

#include "ReportNames.h"
#include "ReportTexts.h"
#include "ReportValues.h"
#include "RunHeader.h"

#include "runs/Run.h"
#include "runs/RunBuilder.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ZYN {

/// Makes runs of the elements, attributes and texts of a report, as an XML parser tells them. What is wrong
/// with a report ends it: there is a fault, and nothing that follows counts.
///
/// An element is told apart by the one whose reader it is met in, and a reader ends with the end of an
/// element of its name. So the report import reads, and both take and refuse the same.
class ReportReader {
public:
    /// Stands between the name of a namespace and that of an element in it.
    static constexpr char NamespaceMark = '\n';

    explicit ReportReader(RunBuilder& builder)
        : m_builder(builder)
    {
    }

    void Begin();
    /// \param attributes names and values in turn, then null
    void Start(std::string_view name, const char* const* attributes);
    void End(std::string_view name);
    void Text(std::string_view text);
    /// What divides a text: a comment, an instruction, the end of a section.
    void Divide();
    /// A section of text begins.
    void StartSection();
    /// Ends the report.
    /// \param runs receives its runs
    void Finish(const std::string& source, std::vector<Run>* runs);

    bool HasFault() const { return !m_fault.empty(); }
    const std::string& Fault() const { return m_fault; }
    template <class... Text>
    void SetFault(const ReportTexts::Pattern& pattern, const Text&... texts)
    {
        if (m_fault.empty())
            m_fault = ReportTexts::Filled(pattern, texts...);
    }

private:
    /// Something is wrong with the content, which is of no matter in a test parameter.
    template <class... Text>
    void Refuse(const ReportTexts::Pattern& pattern, const Text&... texts)
    {
        if (m_parameterDepth == 0)
            SetFault(pattern, texts...);
    }

    using Element = ReportNames::Element;
    using Property = ReportNames::Property;

    /// What the elements of components have in common.
    struct Component {
        std::string ident;
        std::string name;
        int type = 0;
    };
    /// What a `Result` element says.
    struct Result {
        int code = 0;
        double seconds = 0;
        RunValue value;
        std::string unit;
        std::string comment;
        std::string attribute;
    };
    /// The texts of a `Limits` element.
    struct Limits {
        ReportValues::Notation notation;
        std::string unit;
        bool inverted = false;
        std::string lower;
        std::string lowerOperator;
        std::string upper;
        std::string upperOperator;
        std::string nominal;
    };

    // The way through the document.
    void StartTop(Element element, std::string_view name);
    bool StartChild(Element element, const char* const* attributes);
    void StartProperty(const char* const* attributes);
    void StartInParameter(Element element, const char* const* attributes);
    void EndInParameter(Element element);
    void Open(Element element);
    void Close();
    void EndProperty();
    bool TakeProperty();

    // Headers.
    bool TakeTestProperty();
    bool TakeUnitProperty();
    bool TakeProductProperty();
    bool TakeLotProperty();
    bool TakeEnvironmentProperty();
    bool TakeSetProperty();
    bool TakeProgramProperty();
    bool TakeComponentProperty();

    // Results.
    void StartComponent(const char* const* attributes, Component* component);
    void StartProgram(const char* const* attributes);
    void StartLimits(const char* const* attributes);
    void StartResult(const char* const* attributes);
    bool TakeLimitsProperty();
    bool TakeResultProperty();
    void TakeValue();
    void EndLimits();
    void EndResult();
    void EndResultSet();
    void BeginRun();
    void AddGroup(ComponentKind kind, const Component& component);
    void AddValue(ComponentKind kind);

    int Integer(std::string_view text, bool emptyIsGood = false);
    double Milliseconds(std::string_view text);

    RunBuilder& m_builder;
    std::string m_fault;
    std::vector<Element> m_open; ///< whose readers are open; the document's is the first
    bool m_atRoot = true;
    bool m_hasName = false;   ///< the unit or lot whose element is open
    int m_parameterDepth = 0; ///< elements that are open in a test parameter, itself among them; 0 outside

    // The property that is being read.
    bool m_inProperty = false;
    bool m_hasText = false;
    Property m_property = Property::Unknown;
    std::string m_propertyName;
    std::string m_text;
    std::optional<std::string> m_codeAttribute;
    std::optional<std::string> m_factorAttribute;

    RunHeader m_header;
    RunHeader::Test* m_test = nullptr; ///< the report's or that of a panel item

    // Of the current result set.
    bool m_hasStation = false;
    std::string m_stationDescription;
    int m_testIndex = 0;
    bool m_hasProgram = false;
    bool m_isBegun = false;
    Component m_program;
    std::string m_version;
    std::optional<int> m_programCode;
    double m_programSeconds = 0;
    std::string m_programComment;

    // Of the current component.
    bool m_anyGroup = false;
    bool m_anyStep = false;
    Component m_group;
    Component m_step;
    Component m_value;
    bool m_hasLimits = false;
    Limits m_limits;
    RunValue m_lower;
    RunValue m_upper;
    RunItemLimits m_itemLimits;
    Result m_result;
};

} // namespace ZYN
