#pragma once

namespace ZYN {

class IExportBuilder;
class StatisticsDataReport;
class TestComponent;
class TestGroup;
class TestProgram;
class TestResultSet;
class TestStep;
class UUTTest;

/// The walks over the model: which builder operation is called when. Writes nothing and keeps nothing;
/// made for one export.
class CExportDirectorBase {
public:
    virtual ~CExportDirectorBase() = default;

    /// The filter: whether a component, with all its children, is reported.
    virtual bool AcceptComponent(TestComponent* component) = 0;

    /// Walks one result set. Opens the builder and closes it again unless it was open before.
    /// \return false for a null argument, a set without a program, a builder that cannot be opened
    bool ExportTestResultSet(TestResultSet* resultSet, IExportBuilder* builder);
    /// Walks a unit's test: header items, result sets, panel items. A result set that fails ends the
    /// walk at once and leaves the builder open.
    bool ExportUUTTest(UUTTest* uutTest, IExportBuilder* builder);
    /// Walks the plan of a program; no results, and groups are not filtered.
    bool ExportTestPlan(TestProgram* program, IExportBuilder* builder);
    /// Walks a statistics report. The builder must not be open.
    static bool ExportStatistics(StatisticsDataReport* report, IExportBuilder* builder);

    /// \param resultSet null walks the plan
    /// \return what the Begin operation of the element returned
    bool ExportTestGroup(TestGroup* group, IExportBuilder* builder, TestResultSet* resultSet);
    bool ExportTestStep(TestStep* step, IExportBuilder* builder, TestResultSet* resultSet);

private:
    bool ExportResultSets(UUTTest* uutTest, IExportBuilder* builder);
    bool ExportSubUnitTests(UUTTest* uutTest, IExportBuilder* builder);
};

} // namespace ZYN
