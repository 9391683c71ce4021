#pragma once

#include <string_view>

/// Names of a report's elements and properties. They are looked up for each one of a document, so by their
/// length first.
namespace ZYN::ReportNames {

enum class Element {
    Unknown,
    Fixture,
    Limits,
    Parameter,
    ProductType,
    ProductionLot,
    Property,
    Result,
    SubUnitTest,
    SubUnitTests,
    TestEnvironment,
    TestGroup,
    TestMeasurement,
    TestParameter,
    TestReport,
    TestResultSet,
    TestResults,
    TestStep,
    Testprogram,
    UUTTest,
    UnitUnderTest,
};

enum class Property {
    Unknown,
    ArticelCode,
    Attribute,
    ClusterLevel,
    Comment,
    CompLower,
    CompUpper,
    Creator,
    Customer,
    DateTime,
    Description,
    Duration,
    Enabled,
    FailedGroups,
    FailedSteps,
    File,
    FileVersion,
    Ident,
    InvertResult,
    LotNumber,
    Lower,
    MachineName,
    MCP,
    MCPItems,
    MCPSplitting,
    MCPSplittingMap,
    Name,
    Nominal,
    OrderCode,
    PanelIndex,
    ProductType,
    ReportInc,
    Result,
    SerialNo,
    SourceLine,
    StationDescription,
    StationID,
    TestIndex,
    TestTime,
    Type,
    Unit,
    Upper,
    User,
    Value,
    Version,
    Workspace,
};

Element ElementOf(std::string_view name);
Property PropertyOf(std::string_view name);
std::string_view NameOf(Element element);
std::string_view NameOf(Property property);

} // namespace ZYN::ReportNames
