/// Which component of which run goes where, and what stays in memory afterwards.

#include "support/SampleModels.h"
#include "support/SampleProgram.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/StatisticsCollector.h>
#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/ZYNSession.h>

#include <QtTest/QTest>

#include <memory>

using namespace ZYN;
using namespace Qt::StringLiterals;
using SampleModels::ProgramWriter;
using SampleModels::RunWriter;

namespace {

/// One run of a program of its own, as after reading a report.
struct Run {
    QString programName = u"program"_s;
    QString measurementName = u"rail"_s;
    QList<double> values{5.0};
    double upper = 6.0;

    std::unique_ptr<TestResultSet> Make() const
    {
        ProgramWriter writer(1, programName);
        writer.program->SetVersion(u"1.2"_s);
        writer.Group(2, u"group"_s);
        const auto step = writer.Step(3, u"step"_s, u"what it does"_s);
        RunWriter run(writer.program, nullptr, 1);
        run.Verdict(step, 0.0);
        for (const double value : values) {
            const auto measurement = writer.Measurement(0, measurementName, ZYN_ADDRESS_REAL);
            TestResult* const result = run.Value(measurement, value);
            result->SetValidation(SampleModels::RealLimits(MeasurementUnit::Volt, 4.0, upper, -3));
        }
        return std::unique_ptr<TestResultSet>(run.Take());
    }
};

/// One line an entry: class and name of the component, passes, failures, mean.
QStringList Lines(const StatisticsDataReport* report)
{
    QStringList lines;
    for (const StatisticsData* const entry : report->GetTestData())
        lines << u"%1 %2: %3 %4 %5"_s.arg(
            QLatin1StringView(entry->GetComponent()->metaObject()->className()),
            entry->GetComponent()->GetName(), QString::number(entry->GetNrPass()),
            QString::number(entry->GetNrFail()), QString::number(entry->GetMean()));
    return lines;
}

} // namespace

class CollectorTest : public QObject {
    Q_OBJECT
private slots:
    void sameComponentsMeet();
    void otherNamesAreOtherComponents();
    void namesakesInOneRunStayApart();
    void runsCanBeFreed();
    void unitsAndPanelItems();
    void takingTheReportStartsAnew();
};

void CollectorTest::sameComponentsMeet()
{
    StatisticsCollector collector;
    collector.AddResultSet(Run{.values = {4.5}}.Make().get());
    collector.AddResultSet(Run{.values = {5.5}}.Make().get());
    collector.AddResultSet(Run{.values = {6.5}}.Make().get());
    QCOMPARE(Lines(collector.GetReport()),
             (QStringList{u"ZYN::TestStep step: 2 1 nan"_s, u"ZYN::TestMeasurement rail: 2 1 5.5"_s}));
    QVERIFY(!collector.GetReport()->GetTestData().last()->HaveLimitsChanged());
}

void CollectorTest::otherNamesAreOtherComponents()
{
    StatisticsCollector collector;
    collector.AddResultSet(Run{}.Make().get());
    collector.AddResultSet(Run{.measurementName = u"other rail"_s, .values = {5.25}}.Make().get());
    collector.AddResultSet(Run{.programName = u"other program"_s, .upper = 7.0}.Make().get());
    QCOMPARE(Lines(collector.GetReport()),
             (QStringList{u"ZYN::TestStep step: 2 0 nan"_s, u"ZYN::TestMeasurement rail: 1 0 5"_s,
                          u"ZYN::TestMeasurement other rail: 1 0 5.25"_s, u"ZYN::TestStep step: 1 0 nan"_s,
                          u"ZYN::TestMeasurement rail: 1 0 5"_s}));
}

void CollectorTest::namesakesInOneRunStayApart()
{
    StatisticsCollector collector;
    collector.AddResultSet(Run{.values = {4.0, 5.0}}.Make().get());
    collector.AddResultSet(Run{.values = {4.5, 5.5, 6.0}}.Make().get());
    QCOMPARE(Lines(collector.GetReport()),
             (QStringList{u"ZYN::TestStep step: 2 0 nan"_s, u"ZYN::TestMeasurement rail: 2 0 4.25"_s,
                          u"ZYN::TestMeasurement rail: 2 0 5.25"_s, u"ZYN::TestMeasurement rail: 1 0 6"_s}));
}

void CollectorTest::runsCanBeFreed()
{
    StatisticsCollector collector;
    QWeakPointer<TestProgram> program;
    QWeakPointer<ValidationInterface> limits;
    {
        const auto first = Run{.values = {4.5}}.Make();
        program = first->GetTestProgram();
        limits = first->GetResults().last()->GetValidation();
        collector.AddResultSet(first.get());
        collector.AddResultSet(Run{.values = {5.5}, .upper = 8.0}.Make().get());
    }
    QVERIFY(program.isNull());
    QVERIFY(limits.isNull());

    const StatisticsDataReport* const report = collector.GetReport();
    QCOMPARE(report->GetTestProgram()->GetVersion(), u"1.2"_s);
    const StatisticsData* const rail = report->GetTestData().last();
    QVERIFY(rail->HaveLimitsChanged());
    QCOMPARE(rail->GetComponent()->GetTestProgram(), nullptr);
    // The component's plan is the newest limits, by whose display values are shown.
    const auto plan = rail->GetComponent()->GetValidationCtrl()->GetValidation();
    QCOMPARE(plan->GetUpperLimit().toDouble(), 8.0);
    QCOMPARE(rail->GetResult(0)->GetValueString(plan->GetValueDisplay()), u"4500"_s);
}

void CollectorTest::unitsAndPanelItems()
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

void CollectorTest::takingTheReportStartsAnew()
{
    StatisticsCollector collector;
    collector.AddResultSet(Run{}.Make().get());
    const auto first = collector.TakeReport();
    QCOMPARE(collector.GetRunCount(), 0);
    collector.AddResultSet(Run{.values = {6.0}}.Make().get());
    QCOMPARE(Lines(first.get()).last(), u"ZYN::TestMeasurement rail: 1 0 5"_s);
    QCOMPARE(Lines(collector.GetReport()).last(), u"ZYN::TestMeasurement rail: 1 0 6"_s);
}

QTEST_APPLESS_MAIN(CollectorTest)
#include "CollectorTest.moc"
