#include "ReportNames.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace ZYN::ReportNames {

namespace {

template <class Name>
struct Row {
    std::string_view text;
    Name name;
};

/// Rows by a hash of their texts that is another for each of them.
template <class Name, std::size_t count>
class Table {
public:
    constexpr explicit Table(std::array<Row<Name>, count> rows)
        : m_rows(rows)
    {
        for (std::size_t row = 0; row < count; ++row) {
            std::size_t& place = m_places[HashOf(m_rows[row].text)];
            if (place != 0)
                throw "two names have the same hash: choose other factors";
            place = row + 1;
        }
    }

    Name Find(std::string_view text) const
    {
        const std::size_t place = text.empty() ? 0 : m_places[HashOf(text)];
        return place != 0 && m_rows[place - 1].text == text ? m_rows[place - 1].name : Name::Unknown;
    }

    std::string_view TextOf(Name name) const
    {
        const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                      [name](const Row<Name>& one) { return one.name == name; });
        return row == m_rows.end() ? std::string_view() : row->text;
    }

private:
    static constexpr std::size_t size = 128;

    /// With factors that were found by trying.
    static constexpr std::size_t HashOf(std::string_view text)
    {
        const auto letter = [&](std::size_t at) { return std::size_t(static_cast<unsigned char>(text[at])); };
        return (text.size() * 1 + letter(0) * 27 + letter(text.size() / 2) * 8 +
                letter(text.size() - 1) * 9) %
               size;
    }

    std::array<Row<Name>, count> m_rows;
    std::array<std::size_t, size> m_places{}; ///< row of a hash, from 1
};

constexpr Table elements(std::to_array<Row<Element>>({
    {"Fixture", Element::Fixture},
    {"Limits", Element::Limits},
    {"Parameter", Element::Parameter},
    {"ProductType", Element::ProductType},
    {"ProductionLot", Element::ProductionLot},
    {"Property", Element::Property},
    {"Result", Element::Result},
    {"SubUnitTest", Element::SubUnitTest},
    {"SubUnitTests", Element::SubUnitTests},
    {"TestEnvironment", Element::TestEnvironment},
    {"TestGroup", Element::TestGroup},
    {"TestMeasurement", Element::TestMeasurement},
    {"TestParameter", Element::TestParameter},
    {"TestReport", Element::TestReport},
    {"TestResultSet", Element::TestResultSet},
    {"TestResults", Element::TestResults},
    {"TestStep", Element::TestStep},
    {"Testprogram", Element::Testprogram},
    {"UUTTest", Element::UUTTest},
    {"UnitUnderTest", Element::UnitUnderTest},
}));

constexpr Table properties(std::to_array<Row<Property>>({
    {"ArticelCode", Property::ArticelCode},
    {"Attribute", Property::Attribute},
    {"ClusterLevel", Property::ClusterLevel},
    {"Comment", Property::Comment},
    {"CompLower", Property::CompLower},
    {"CompUpper", Property::CompUpper},
    {"Creator", Property::Creator},
    {"Customer", Property::Customer},
    {"DateTime", Property::DateTime},
    {"Description", Property::Description},
    {"Duration", Property::Duration},
    {"Enabled", Property::Enabled},
    {"FailedGroups", Property::FailedGroups},
    {"FailedSteps", Property::FailedSteps},
    {"File", Property::File},
    {"FileVersion", Property::FileVersion},
    {"Ident", Property::Ident},
    {"InvertResult", Property::InvertResult},
    {"LotNumber", Property::LotNumber},
    {"Lower", Property::Lower},
    {"MachineName", Property::MachineName},
    {"MCP", Property::MCP},
    {"MCPItems", Property::MCPItems},
    {"MCPSplitting", Property::MCPSplitting},
    {"MCPSplittingMap", Property::MCPSplittingMap},
    {"Name", Property::Name},
    {"Nominal", Property::Nominal},
    {"OrderCode", Property::OrderCode},
    {"PanelIndex", Property::PanelIndex},
    {"ProductType", Property::ProductType},
    {"ReportInc", Property::ReportInc},
    {"Result", Property::Result},
    {"SerialNo", Property::SerialNo},
    {"SourceLine", Property::SourceLine},
    {"StationDescription", Property::StationDescription},
    {"StationID", Property::StationID},
    {"TestIndex", Property::TestIndex},
    {"TestTime", Property::TestTime},
    {"Type", Property::Type},
    {"Unit", Property::Unit},
    {"Upper", Property::Upper},
    {"User", Property::User},
    {"Value", Property::Value},
    {"Version", Property::Version},
    {"Workspace", Property::Workspace},
}));

} // namespace

Element ElementOf(std::string_view name)
{
    return elements.Find(name);
}

Property PropertyOf(std::string_view name)
{
    return properties.Find(name);
}

std::string_view NameOf(Element element)
{
    return elements.TextOf(element);
}

std::string_view NameOf(Property property)
{
    return properties.TextOf(property);
}

} // namespace ZYN::ReportNames
