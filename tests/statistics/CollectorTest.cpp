/// Which component of which run goes where, and what stays in memory afterwards.

#include "support/SampleModels.h"
#include "support/SampleProgram.h"
#include "support/Test.h"

#include <memory>

using namespace ZYN;
using SampleModels::ProgramWriter;
using SampleModels::RunWriter;

namespace {

/// One run of a program of its own, as after reading a report.
struct Run {
    QString programName = "program";
    QString measurementName = "rail";
    QList<double> values{5.0};
    double upper = 6.0;

    std::unique_ptr<TestResultSet> Make() const
    {
        ProgramWriter writer(1, programName);
        writer.program->SetVersion("1.2");
        writer.Group(2, "group");
        const auto step = writer.Step(3, "step", "what it does");
        RunWriter run(writer.program, nullptr, 1);
        run.Verdict(step, 0.0);
        const auto limits = SampleModels::RealLimits(MeasurementUnit::Volt, 4.0, upper, -3);
        for (const double value : values)
            run.Value(writer.Measurement(0, measurementName, ZYN_ADDRESS_REAL, limits), value);
        return std::unique_ptr<TestResultSet>(run.Take());
    }
};

/// Each entry: class and name of the component, passes, failures, mean.
QString Entries(const StatisticsDataReport* report)
{
    QStringList entries;
    for (const StatisticsData* const entry : report->GetTestData()) {
        const TestComponent* const component = entry->GetComponent();
        entries << QString("%1 %2: %3 %4 %5")
                       .arg(component->metaObject()->className() + 5, component->GetName())
                       .arg(entry->GetNrPass())
                       .arg(entry->GetNrFail())
                       .arg(entry->GetMean());
    }
    return entries.join(", ");
}

} // namespace

class CollectorTest : public QObject {
    Q_OBJECT
private slots:
    void RunsAreMatched_data()
    {
        const Rows<QList<Run>, QString> row;
        row("same components meet", QList<Run>{{.values = {4.5}}, {.values = {5.5}}, {.values = {6.5}}},
            "TestStep step: 2 1 nan, TestMeasurement rail: 2 1 5.5");
        row("other names are other components",
            QList<Run>{{},
                       {.measurementName = "other rail", .values = {5.25}},
                       {.programName = "other program", .upper = 7.0}},
            "TestStep step: 2 0 nan, TestMeasurement rail: 1 0 5, TestMeasurement other rail: 1 0 5.25, "
            "TestStep step: 1 0 nan, TestMeasurement rail: 1 0 5");
        row("namesakes in one run stay apart",
            QList<Run>{{.values = {4.0, 5.0}}, {.values = {4.5, 5.5, 6.0}}},
            "TestStep step: 2 0 nan, TestMeasurement rail: 2 0 4.25, TestMeasurement rail: 2 0 5.25, "
            "TestMeasurement rail: 1 0 6");
    }
    void RunsAreMatched()
    {
        const auto [runs, entries] = CurrentRow<QList<Run>, QString>();
        StatisticsCollector collector;
        for (const Run& run : runs)
            collector.AddResultSet(run.Make().get());
        QCOMPARE(Entries(collector.GetReport()), entries);
        QVERIFY(!collector.GetReport()->GetTestData().at(1)->HaveLimitsChanged());
    }

    void RunsCanBeFreed()
    {
        StatisticsCollector collector;
        QWeakPointer<TestProgram> program;
        {
            const auto first = Run{.values = {4.5}}.Make();
            program = first->GetTestProgram();
            collector.AddResultSet(first.get());
            collector.AddResultSet(Run{.values = {5.5}, .upper = 8.0}.Make().get());
        }
        QVERIFY(program.isNull());

        const StatisticsDataReport* const report = collector.GetReport();
        QCOMPARE(report->GetTestProgram()->GetVersion(), "1.2");
        const StatisticsData* const rail = report->GetTestData().last();
        QVERIFY(rail->HaveLimitsChanged());
        QCOMPARE(rail->GetComponent()->GetTestProgram(), nullptr);
        // The component's plan is the newest limits, by whose display values are shown.
        const auto plan = rail->GetComponent()->GetValidationCtrl()->GetValidation();
        QCOMPARE(plan->GetUpperLimit().toDouble(), 8.0);
        QCOMPARE(rail->GetResult(0)->GetValueString(plan->GetValueDisplay()), "4500");
    }

    void UnitsAndPanelItems()
    {
        StatisticsCollector collector;
        collector.AddUnit(nullptr);
        collector.AddResultSet(nullptr);
        const TestResultSet withoutProgram(nullptr, nullptr);
        collector.AddResultSet(&withoutProgram);
        QCOMPARE(collector.GetRunCount(), 0);
        QVERIFY(!collector.GetReport()->GetSession());

        auto panel = SampleModels::Panel();
        qsizetype runs = panel->GetResultSets().size();
        for (const auto& item : panel->GetUUTTests())
            runs += item->GetResultSets().size();
        const QString machine = panel->GetSession()->GetMachineName();
        collector.AddUnit(panel.data());
        panel.reset();
        QCOMPARE(collector.GetRunCount(), int(runs));
        QCOMPARE(collector.GetReport()->GetSession()->GetMachineName(), machine);
    }

    void TakingTheReportStartsAnew()
    {
        StatisticsCollector collector;
        collector.AddResultSet(Run{}.Make().get());
        const auto first = collector.TakeReport();
        QCOMPARE(collector.GetRunCount(), 0);
        collector.AddResultSet(Run{.values = {6.0}}.Make().get());
        QVERIFY(Entries(first.get()).endsWith("rail: 1 0 5"));
        QVERIFY(Entries(collector.GetReport()).endsWith("rail: 1 0 6"));
    }
};

QTEST_APPLESS_MAIN(CollectorTest)
#include "CollectorTest.moc"
