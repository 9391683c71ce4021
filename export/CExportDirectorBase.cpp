#include "CExportDirectorBase.h"

#include "IExportBuilder.h"

#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

#include <QtCore/QLoggingCategory>

namespace ZYN {

namespace {

Q_LOGGING_CATEGORY(logExport, "zyn.export")

/// A header item of a unit's test. Unlike everywhere else its End follows whatever Begin answered.
template <class Item>
void ExportHeaderItem(Item* item, IExportBuilder* builder, bool (IExportBuilder::*begin)(Item*),
                      bool (IExportBuilder::*end)(Item*))
{
    if (!item || !builder->IsOpened())
        return;
    (builder->*begin)(item);
    (builder->*end)(item);
}

void ExportUnitUnderTest(UUTTest* uutTest, IExportBuilder* builder)
{
    ExportHeaderItem(uutTest->GetUnitUnderTest().data(), builder, &IExportBuilder::BeginUnitUnderTest,
                     &IExportBuilder::EndUnitUnderTest);
}

/// What belongs to the whole panel; panel items do not repeat it.
void ExportPanelItems(UUTTest* uutTest, IExportBuilder* builder)
{
    ExportHeaderItem(uutTest->GetProductType().data(), builder, &IExportBuilder::BeginProductType,
                     &IExportBuilder::EndProductType);
    ExportHeaderItem(uutTest->GetProductionLot().data(), builder, &IExportBuilder::BeginProductionLot,
                     &IExportBuilder::EndProductionLot);
    ExportHeaderItem(uutTest->GetSession(), builder, &IExportBuilder::BeginSession,
                     &IExportBuilder::EndSession);
    ExportHeaderItem(uutTest->GetFixture().data(), builder, &IExportBuilder::BeginFixture,
                     &IExportBuilder::EndFixture);
}

/// An item of a statistics report; the builder is asked also where the report has none.
template <class Item>
void ExportStatisticsItem(Item* item, IExportBuilder* builder, bool (IExportBuilder::*begin)(Item*),
                          bool (IExportBuilder::*end)(Item*))
{
    if ((builder->*begin)(item))
        (builder->*end)(item);
}

} // namespace

bool CExportDirectorBase::ExportTestResultSet(TestResultSet* resultSet, IExportBuilder* builder)
{
    if (!resultSet || !builder)
        return false;
    const auto program = resultSet->GetTestProgram();
    if (!program)
        return false;
    const bool wasOpened = builder->IsOpened();
    if (!wasOpened && !builder->Open())
        return false;

    builder->BeginTestResultSet(resultSet);
    TestResult* const result = resultSet->GetResult(program.data());
    if (result && builder->BeginTestProgram(program.data(), result)) {
        for (int index = 0; index < program->GetGroupCount(); ++index) {
            const auto& group = program->GetGroupForIndex(index);
            if (AcceptComponent(group.data()))
                ExportTestGroup(group.data(), builder, resultSet);
        }
        builder->EndTestProgram(program.data());
    }
    if (!result)
        qCWarning(
            logExport,
            "A run of '%ls' has no result for its program and is left out of the report: add one, or record "
            "the run with a RunRecorder.",
            qUtf16Printable(program->GetName()));
    builder->EndTestResultSet(resultSet);

    if (!wasOpened)
        builder->Close();
    return true;
}

bool CExportDirectorBase::ExportTestGroup(TestGroup* group, IExportBuilder* builder, TestResultSet* resultSet)
{
    const bool begun = resultSet ? builder->BeginTestGroup(group, resultSet->GetResult(group))
                                 : builder->BeginTestGroup(group);
    if (!begun)
        return false;

    for (int index = 0; index < group->GetParameterCount(); ++index) {
        const auto& shared = group->GetParameterForIndex(index);
        TestParameter* const parameter = shared.data();
        if (!AcceptComponent(parameter))
            continue;
        if (resultSet ? builder->BeginTestParameter(parameter, resultSet->GetResult(parameter))
                      : builder->BeginTestParameter(parameter))
            builder->EndTestParameter(parameter);
    }
    for (int index = 0; index < group->GetStepCount(); ++index) {
        const auto& step = group->GetStepForIndex(index);
        if (AcceptComponent(step.data()))
            ExportTestStep(step.data(), builder, resultSet);
    }
    builder->EndTestGroup(group);
    return true;
}

bool CExportDirectorBase::ExportTestStep(TestStep* step, IExportBuilder* builder, TestResultSet* resultSet)
{
    const bool begun =
        resultSet ? builder->BeginTestStep(step, resultSet->GetResult(step)) : builder->BeginTestStep(step);
    if (!begun)
        return false;

    for (int index = 0; index < step->GetMeasurementCount(); ++index) {
        const auto& shared = step->GetMeasurementForIndex(index);
        TestMeasurement* const measurement = shared.data();
        if (!AcceptComponent(measurement))
            continue;
        if (resultSet ? builder->BeginTestMeasurement(measurement, resultSet->GetResult(measurement))
                      : builder->BeginTestMeasurement(measurement))
            builder->EndTestMeasurement(measurement);
    }
    builder->EndTestStep(step);
    return true;
}

bool CExportDirectorBase::ExportUUTTest(UUTTest* uutTest, IExportBuilder* builder)
{
    if (!uutTest || !builder)
        return false;
    const bool wasOpened = builder->IsOpened();
    if (!wasOpened && !builder->Open())
        return false;

    // The test ends before its results begin; formats rely on that to finish their header here.
    builder->BeginUUTTest(uutTest);
    ExportUnitUnderTest(uutTest, builder);
    ExportPanelItems(uutTest, builder);
    builder->EndUUTTest(uutTest);

    if (!ExportResultSets(uutTest, builder) || !ExportSubUnitTests(uutTest, builder))
        return false;

    if (!wasOpened)
        builder->Close();
    return true;
}

bool CExportDirectorBase::ExportResultSets(UUTTest* uutTest, IExportBuilder* builder)
{
    const auto resultSets = uutTest->GetResultSets();
    if (resultSets.isEmpty())
        return true;

    builder->BeginTestResults();
    for (TestResultSet* const resultSet : resultSets) {
        if (!ExportTestResultSet(resultSet, builder))
            return false;
    }
    builder->EndTestResults();
    return true;
}

bool CExportDirectorBase::ExportSubUnitTests(UUTTest* uutTest, IExportBuilder* builder)
{
    const auto subTests = uutTest->GetUUTTests();
    if (subTests.isEmpty())
        return true;

    builder->BeginSubUnitTests();
    for (const auto& subTest : subTests) {
        builder->BeginSubUnitTest();
        builder->BeginUUTTest(subTest.data());
        ExportUnitUnderTest(subTest.data(), builder);
        if (!ExportResultSets(subTest.data(), builder))
            return false;
        builder->EndUUTTest(subTest.data());
        builder->EndSubUnitTest();
    }
    builder->EndSubUnitTests();
    return true;
}

bool CExportDirectorBase::ExportTestPlan(TestProgram* program, IExportBuilder* builder)
{
    if (!program || !builder || !builder->Open())
        return false;

    if (builder->BeginTestProgram(program)) {
        for (int index = 0; index < program->GetGroupCount(); ++index)
            ExportTestGroup(program->GetGroupForIndex(index).data(), builder, nullptr);
        builder->EndTestProgram(program);
    }
    builder->Close();
    return true;
}

bool CExportDirectorBase::ExportStatistics(StatisticsDataReport* report, IExportBuilder* builder)
{
    if (!report || !builder || builder->IsOpened() || !builder->Open())
        return false;

    ExportStatisticsItem(report->GetSession(), builder, &IExportBuilder::BeginSession,
                         &IExportBuilder::EndSession);
    ExportStatisticsItem(report->GetProductType().data(), builder, &IExportBuilder::BeginProductType,
                         &IExportBuilder::EndProductType);
    ExportStatisticsItem(report->GetUnitUnderTest().data(), builder, &IExportBuilder::BeginUnitUnderTest,
                         &IExportBuilder::EndUnitUnderTest);
    ExportStatisticsItem<TestProgram>(report->GetTestProgram().data(), builder,
                                      &IExportBuilder::BeginTestProgram, &IExportBuilder::EndTestProgram);
    for (StatisticsData* const entry : report->GetTestData())
        ExportStatisticsItem(entry, builder, &IExportBuilder::BeginStatisticsData,
                             &IExportBuilder::EndStatisticsData);

    builder->Close();
    return true;
}

} // namespace ZYN
