#include "kinds/ReportStructure.h"

#include "terminal/Texts.h"

#include "import/XmlProlog.h"

#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <span>
#include <vector>

namespace ZYN::Tool::ReportStructure {

namespace {

using namespace Qt::StringLiterals;

using Names = std::span<const QLatin1StringView>;

struct Element;

/// One thing that an element holds.
struct Item {
    enum Occurs { Once, Maybe, AnyNumber, WithPrevious };
    QLatin1StringView name;
    Occurs occurs = Once;
    /// Null for a property.
    const Element* element = nullptr;
    /// Beyond the name of a property.
    Names attributes{};
};

struct Element {
    std::span<const Item> items;
    Names attributes{};
};

constexpr QLatin1StringView codeOnly[] = {"Code"_L1};
constexpr QLatin1StringView codeAndFactor[] = {"Code"_L1, "Factor"_L1};
constexpr QLatin1StringView resultOnly[] = {"Result"_L1};
constexpr QLatin1StringView idOnly[] = {"ID"_L1};
constexpr QLatin1StringView engineVersion[] = {"KVAVersion"_L1};
constexpr QLatin1StringView version[] = {"Version"_L1};
constexpr QLatin1StringView ofComponent[] = {"ID"_L1, "Name"_L1, "Type"_L1};
constexpr QLatin1StringView ofLimits[] = {"DataType"_L1, "Type"_L1};
constexpr QLatin1StringView ofResult[] = {"Code"_L1, "Result"_L1, "DataType"_L1};

constexpr Item uutTestItems[] = {{"Result"_L1, Item::Once, nullptr, resultOnly},
                                 {"Description"_L1},
                                 {"DateTime"_L1},
                                 {"Duration"_L1},
                                 {"TestTime"_L1}};
constexpr Element uutTest{uutTestItems};
constexpr Item unitItems[] = {{"Name"_L1},
                              {"SerialNo"_L1},
                              {"Ident"_L1},
                              {"ProductType"_L1, Item::Once, nullptr, codeOnly},
                              {"PanelIndex"_L1}};
constexpr Element unit{unitItems};
constexpr Element productParameter{};
constexpr Item productTypeItems[] = {{"Name"_L1},
                                     {"Description"_L1},
                                     {"ArticelCode"_L1},
                                     {"Customer"_L1},
                                     {"Parameter"_L1, Item::AnyNumber, &productParameter},
                                     {"ClusterLevel"_L1},
                                     {"MCP"_L1, Item::Maybe},
                                     {"MCPItems"_L1, Item::WithPrevious},
                                     {"MCPSplitting"_L1, Item::WithPrevious},
                                     {"MCPSplittingMap"_L1, Item::WithPrevious}};
constexpr Element productType{productTypeItems, idOnly};
constexpr Item lotItems[] = {{"LotNumber"_L1}, {"OrderCode"_L1}};
constexpr Element lot{lotItems};
constexpr Item environmentItems[] = {{"MachineName"_L1}, {"User"_L1}, {"Workspace"_L1}};
constexpr Element environment{environmentItems, engineVersion};
constexpr Item fixtureItems[] = {{"Name"_L1}, {"Ident"_L1}, {"SerialNo"_L1}, {"Description"_L1}};
constexpr Element fixture{fixtureItems};

constexpr Item resultItems[] = {{"Value"_L1}, {"Unit"_L1}, {"Duration"_L1}, {"Comment"_L1}, {"Attribute"_L1}};
constexpr Element result{resultItems, ofResult};
constexpr Item limitsItems[] = {{"Unit"_L1, Item::Once, nullptr, codeAndFactor},
                                {"InvertResult"_L1},
                                {"Lower"_L1, Item::Maybe},
                                {"CompLower"_L1, Item::WithPrevious},
                                {"Upper"_L1, Item::Maybe},
                                {"CompUpper"_L1, Item::WithPrevious},
                                {"Nominal"_L1, Item::Maybe}};
constexpr Element limits{limitsItems, ofLimits};
constexpr Item valueItems[] = {{"Ident"_L1},
                               {"SourceLine"_L1, Item::Maybe},
                               {"Limits"_L1, Item::Maybe, &limits},
                               {"Result"_L1, Item::Once, &result}};
constexpr Element value{valueItems, ofComponent};
constexpr Item stepItems[] = {
    {"Ident"_L1},     {"SourceLine"_L1, Item::Maybe},     {"Enabled"_L1},
    {"ReportInc"_L1}, {"Result"_L1, Item::Once, &result}, {"TestMeasurement"_L1, Item::AnyNumber, &value}};
constexpr Element step{stepItems, ofComponent};
constexpr Item groupItems[] = {{"Ident"_L1},
                               {"SourceLine"_L1, Item::Maybe},
                               {"Enabled"_L1},
                               {"Type"_L1},
                               {"ReportInc"_L1},
                               {"Result"_L1, Item::Once, &result},
                               {"TestParameter"_L1, Item::AnyNumber, &value},
                               {"TestStep"_L1, Item::AnyNumber, &step}};
constexpr Element group{groupItems, ofComponent};
constexpr Item programItems[] = {{"Ident"_L1},
                                 {"SourceLine"_L1, Item::Maybe},
                                 {"Name"_L1},
                                 {"Version"_L1},
                                 {"File"_L1},
                                 {"FileVersion"_L1},
                                 {"Creator"_L1},
                                 {"Result"_L1, Item::Maybe, &result},
                                 {"TestGroup"_L1, Item::AnyNumber, &group}};
constexpr Element program{programItems, ofComponent};
constexpr Item resultSetItems[] = {{"StationID"_L1},   {"StationDescription"_L1},
                                   {"TestIndex"_L1},   {"FailedGroups"_L1},
                                   {"FailedSteps"_L1}, {"Testprogram"_L1, Item::Maybe, &program}};
constexpr Element resultSet{resultSetItems};
constexpr Item resultsItems[] = {{"TestResultSet"_L1, Item::Once, &resultSet},
                                 {"TestResultSet"_L1, Item::AnyNumber, &resultSet}};
constexpr Element results{resultsItems};

constexpr Item panelItemItems[] = {{"UUTTest"_L1, Item::Once, &uutTest},
                                   {"UnitUnderTest"_L1, Item::Maybe, &unit},
                                   {"TestResults"_L1, Item::Maybe, &results}};
constexpr Element panelItem{panelItemItems};
constexpr Item panelItems[] = {{"SubUnitTest"_L1, Item::Once, &panelItem},
                               {"SubUnitTest"_L1, Item::AnyNumber, &panelItem}};
constexpr Element panel{panelItems};
constexpr Item reportItems[] = {{"UUTTest"_L1, Item::Once, &uutTest},
                                {"UnitUnderTest"_L1, Item::Maybe, &unit},
                                {"ProductType"_L1, Item::Maybe, &productType},
                                {"ProductionLot"_L1, Item::Maybe, &lot},
                                {"TestEnvironment"_L1, Item::Maybe, &environment},
                                {"Fixture"_L1, Item::Maybe, &fixture},
                                {"TestResults"_L1, Item::Maybe, &results},
                                {"SubUnitTests"_L1, Item::Maybe, &panel}};
constexpr Element report{reportItems, version};
constexpr Item resultSetReportItems[] = {{"TestResultSet"_L1, Item::Once, &resultSet}};
/// The report of a result set alone.
constexpr Element resultSetReport{resultSetReportItems, version};
constexpr Item documentItems[] = {{"TestReport"_L1, Item::Once, &report}};
constexpr Element wholeDocument{documentItems};
constexpr Element propertyElement{};

/// Goes through a document with the element it is in, and all elements around that.
class Walk {
public:
    explicit Walk(const QByteArray& bytes)
        : m_bytes(bytes)
        , m_reader(bytes)
    {
        m_open.push_back({&wholeDocument, "document"_L1});
    }

    QList<ImportFinding> Run()
    {
        if (!XmlProlog::MoveToRoot(m_reader, m_bytes))
            return {};
        for (; !m_reader.atEnd() && m_findings.size() < mostFindings; m_reader.readNext()) {
            if (m_reader.isStartElement())
                Start();
            else if (m_reader.isEndElement())
                End();
        }
        return m_findings;
    }

private:
    static constexpr qsizetype mostFindings = 1000;

    struct Open {
        const Element* element;
        QString name;
        std::size_t next = 0;     ///< the first item that may come now
        bool previousMet = false; ///< whether the item before that was there
    };

    void Start()
    {
        const QXmlStreamAttributes attributes = m_reader.attributes();
        const bool isProperty = m_reader.name() == "Property"_L1;
        const QString name = isProperty ? attributes.value("Name"_L1).toString() : m_reader.name().toString();
        if (m_open.back().element == &report && m_open.back().next == 0 && name == "TestResultSet"_L1)
            m_open.back().element = &resultSetReport;
        const Item* const item = Take(name, isProperty);
        if (!item) {
            m_reader.skipCurrentElement();
            return;
        }
        for (const QLatin1StringView attribute : item->element ? item->element->attributes : item->attributes)
            if (!attributes.hasAttribute(attribute))
                Add(Texts::tr("attribute '%1' of '%2' is missing").arg(attribute, name));
        // A key is written as it stands: one with a blank in it, or with an attribute or element behind it.
        if (item->element == &productParameter && attributes.size() != 1)
            Add(Texts::tr("'%1' has not one attribute: the parameter's key was no name").arg(name), false);
        m_open.push_back({item->element ? item->element : &propertyElement, name});
    }

    void End()
    {
        Open& open = m_open.back();
        Miss(open, open.element->items.size(), QString());
        m_open.pop_back();
    }

    /// The item of the innermost element that has this name, if it may come now.
    const Item* Take(const QString& name, bool isProperty)
    {
        Open& open = m_open.back();
        const auto items = open.element->items;
        const auto isIt = [&](const Item& item) { return item.name == name && isProperty == !item.element; };
        const auto found = std::find_if(items.begin() + std::ptrdiff_t(open.next), items.end(), isIt);
        if (found == items.end()) {
            const bool isKnown = std::any_of(items.begin(), items.end(), isIt);
            Add((isKnown ? Texts::tr("'%1' in '%2' is not in its place")
                         : Texts::tr("'%1' in '%2' is unknown"))
                    .arg(name, open.name));
            return nullptr;
        }
        const auto place = std::size_t(found - items.begin());
        Miss(open, place, name);
        open.next = found->occurs == Item::AnyNumber ? place : place + 1;
        open.previousMet = true;
        return &*found;
    }

    /// Reports the items that should have come up to a place.
    void Miss(Open& open, std::size_t end, const QString& before)
    {
        for (; open.next < end; ++open.next) {
            const Item& item = open.element->items[open.next];
            const bool isMissing =
                item.occurs == Item::Once || (item.occurs == Item::WithPrevious && open.previousMet);
            if (isMissing)
                Add(before.isEmpty() ? Texts::tr("'%1' is missing in '%2'").arg(item.name, open.name)
                                     : Texts::tr("'%1' is missing before '%2'").arg(item.name, before));
            open.previousMet = isMissing;
        }
    }

    void Add(const QString& text, bool isError = true)
    {
        m_findings.append({m_reader.lineNumber(), m_reader.columnNumber() + 1, text, isError});
    }

    const QByteArray& m_bytes;
    QXmlStreamReader m_reader;
    std::vector<Open> m_open;
    QList<ImportFinding> m_findings;
};

} // namespace

QList<ImportFinding> Findings(const QByteArray& document)
{
    return Walk(document).Run();
}

} // namespace ZYN::Tool::ReportStructure
