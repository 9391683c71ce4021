#pragma once

#include "support/SampleModels.h"
#include "support/SampleProgram.h"

#include "export/CExportDirectorReport.h"
#include "export/CExportDirectorTestPlan.h"
#include "export/Environment.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"
#include "export/IOutputState.h"

#include <ZYNCommon/StatisticsCollector.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNPersistence/CExportServiceReport.h>
#include <ZYNPersistence/CExportServiceStatistics.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>

#include <functional>
#include <memory>
#include <utility>

namespace ZYN {

/// All that the library writes.
constexpr const char* FaultKinds[] = {
    "XML", "TXT", "CSV", "HTML", "PDF", "JSON", "STDF", "statistics XML", "statistics CSV", "plan"};

struct Outcome {
    bool exported = false;
    bool complete = false;
};

/// A unit whose report has many pages.
inline QSharedPointer<UUTTest> LongUnit()
{
    SampleModels::ProgramWriter writer(1, QStringLiteral("Long"));
    const auto group = writer.Group(2, QStringLiteral("Group"));
    const auto step = writer.Step(3, QStringLiteral("Step"));
    QList<QSharedPointer<TestMeasurement>> measurements;
    for (int id = 10; id < 310; ++id)
        measurements.append(
            writer.Measurement(id, QStringLiteral("Measurement %1").arg(id), ZYN_ADDRESS_REAL));
    SampleModels::RunWriter run(writer.program, nullptr, 0);
    run.Verdict(writer.program, 1);
    run.Verdict(group, 1);
    run.Verdict(step, 1);
    for (const QSharedPointer<TestMeasurement>& measurement : measurements)
        run.Value(measurement, static_cast<double>(measurement->GetID()) / 7.0);
    auto unit = QSharedPointer<UUTTest>::create(1, QStringLiteral("Unit"));
    unit->AssignResultSet(run.Take());
    return unit;
}

/// What is exported: a unit, its statistics, its plan.
class Models {
public:
    explicit Models(QSharedPointer<UUTTest> tested = SampleModels::Panel())
        : unit(std::move(tested))
        , program(unit->GetResultSets().constFirst()->GetTestProgram())
    {
        StatisticsCollector collector;
        collector.AddUnit(unit.data());
        statistics = collector.TakeReport();
    }

    Outcome ExportTo(const QString& kind, const QString& fileName)
    {
        if (kind == u"plan")
            return Run(plan, program.data(), fileName);
        if (kind.startsWith(u"statistics ")) {
            CExportServiceStatistics service;
            service.SetFormat(kind.mid(11));
            return Run(service, statistics.get(), fileName);
        }
        CExportServiceReport service;
        service.SetFormat(kind);
        return Run(service, unit.data(), fileName);
    }

    Outcome ExportTo(const QString& kind, QIODevice& device)
    {
        const std::unique_ptr<IExportBuilder> builder = MakeBuilder(kind);
        builder->SetDevice(&device);
        return Walk(kind, *builder);
    }

    /// \param happens what befalls the file when it is open and nothing is written
    Outcome ExportTo(const QString& kind, const QString& fileName, const std::function<void()>& happens)
    {
        const std::unique_ptr<IExportBuilder> builder = MakeBuilder(kind);
        if (!builder->OpenFile(fileName))
            return {};
        happens();
        return Walk(kind, *builder);
    }

private:
    static std::unique_ptr<IExportBuilder> MakeBuilder(const QString& kind)
    {
        if (kind == u"plan")
            return std::unique_ptr<IExportBuilder>(FormatRegistry::CreateTestPlanBuilder({}, false));
        if (kind.startsWith(u"statistics "))
            return std::unique_ptr<IExportBuilder>(FormatRegistry::CreateStatisticsBuilder(kind.mid(11)));
        return std::unique_ptr<IExportBuilder>(FormatRegistry::CreateReportBuilder(kind));
    }

    Outcome Walk(const QString& kind, IExportBuilder& builder)
    {
        bool exported = false;
        if (kind == u"plan")
            exported = CExportDirectorTestPlan().ExportTestPlan(program.data(), &builder);
        else if (kind.startsWith(u"statistics "))
            exported = CExportDirectorBase::ExportStatistics(statistics.get(), &builder);
        else
            exported = CExportDirectorReport().ExportUUTTest(unit.data(), &builder);
        return {exported, dynamic_cast<IOutputState&>(builder).OutputComplete()};
    }

    template <class Service, class Model>
    static Outcome Run(Service& service, Model* model, const QString& fileName)
    {
        service.SetOutputFileName(fileName);
        const bool exported = service.Export(model);
        return {exported, service.OutputComplete()};
    }

    QSharedPointer<UUTTest> unit;
    QSharedPointer<TestProgram> program;
    std::unique_ptr<StatisticsDataReport> statistics;
    CExportServiceTestPlan plan{false};
};

} // namespace ZYN
