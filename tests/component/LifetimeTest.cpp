/// Who owns what, in every order of destruction. The sanitizers are the judge.

#include "support/Model.h"
#include "support/Test.h"

#include <memory>

using namespace ZYN;

namespace {

/// A program with one component of each kind.
struct Components {
    QSharedPointer<TestProgram> program{new TestProgram(1, "program", 0)};
    QSharedPointer<TestGroup> group{new TestGroup(2, "group", nullptr, 0, -1, ZYN_GROUP_USER, nullptr)};
    QSharedPointer<TestParameter> parameter{
        new TestParameter(3, "parameter", ZYN_ADDRESS_REAL, nullptr, 0, -1)};
    QSharedPointer<TestStep> step{new TestStep(4, "step", nullptr, 0, -1, QString())};
    QSharedPointer<TestMeasurement> measurement{
        new TestMeasurement(5, "measurement", ZYN_ADDRESS_REAL, nullptr, 0, -1)};

    Components()
    {
        program->AddGroup(group);
        group->AddParameter(parameter);
        group->AddStep(step);
        step->AddMeasurement(measurement);
    }
};

} // namespace

class LifetimeTest : public QObject {
    Q_OBJECT
private slots:
    void AddingAChildMakesItPartOfTheProgram()
    {
        const Components c;
        QCOMPARE(c.measurement->GetTestProgram(), c.program.data());
        QCOMPARE(c.parameter->GetTestProgram(), c.program.data());
        QCOMPARE(c.group->GetChildren(), (QList<TestComponent*>{c.parameter.data(), c.step.data()}));
        QVERIFY(c.program->GetGroupForIndex(1).isNull());
        QVERIFY(c.program->GetGroupForIndex(-1).isNull());
        QCOMPARE(c.step->AddMeasurement(nullptr), -1);
    }

    void MeasurementsAreFoundByTheirId()
    {
        TestStep step(1, QString(), nullptr, 0, -1, QString());
        for (int count = 0; count < 40; ++count) {
            // Each id twice: the first one added counts.
            const auto measurement = QSharedPointer<TestMeasurement>::create(
                count / 2, QString(), ZYN_ADDRESS_REAL, nullptr, 0u, count);
            QCOMPARE(step.AddMeasurement(measurement), count);
            for (int id = 0; id <= count / 2; ++id)
                QCOMPARE(step.GetMeasurementForID(id)->GetPosition(), 2L * id);
            QVERIFY(step.GetMeasurementForID(count / 2 + 1).isNull());
        }
    }

    void AChildOutlivesItsParents()
    {
        Components c;
        auto parent = std::make_unique<TestStep>(1, "step", nullptr, 0, -1, QString());
        const TestMeasurement neverAdded(2, "m", ZYN_ADDRESS_REAL, parent.get(), 0, -1);
        parent.reset();
        QCOMPARE(neverAdded.GetTestProgram(), nullptr);
        c.step.reset();
        c.group.reset();
        QCOMPARE(c.measurement->GetTestProgram(), c.program.data());
        c.program.reset();
        QCOMPARE(c.measurement->GetTestProgram(), nullptr);
        QCOMPARE(c.parameter->GetTestProgram(), nullptr);
    }

    void AResultWithdrawsItselfFromItsComponent()
    {
        const Components c;
        auto first = std::make_unique<TestResult>(c.measurement);
        auto second = std::make_unique<TestResult>(c.measurement);
        second->SetResult(ZYN_RESULT_FAILED);
        c.measurement->SetResult(first.get());
        c.measurement->SetResult(second.get());
        first.reset();
        QCOMPARE(c.measurement->GetResult(), second.get());
        second.reset();
        QCOMPARE(c.measurement->GetResult(), nullptr);
        QCOMPARE(c.measurement->resultState, ZYN_RESULT_FAILED);
    }

    void AResultKeepsItsComponent()
    {
        TestResultSet set(nullptr, nullptr);
        {
            const Components c;
            set.AddResult(new TestResult(c.measurement));
            c.measurement->SetResult(set.GetResults().first());
        }
        QCOMPARE(set.GetResults().first()->GetComponent()->GetName(), "measurement");
    }

    void ComponentsKeepOnlyTheirOwnResults()
    {
        const Components c;
        auto foreign = std::make_unique<TestResult>(c.step);
        foreign->SetResult(ZYN_RESULT_PASSED);
        c.measurement->SetResult(foreign.get());
        foreign.reset();
        QCOMPARE(c.measurement->GetResult(), nullptr);
        QCOMPARE(c.measurement->resultState, ZYN_RESULT_NOT_TESTED);
    }

    void WhatIsGivenTwiceIsFreedOnce()
    {
        UUTTest test(1, "unit");
        UUTTest other(2, "other unit");
        TestPlan plan{QFileInfo()};
        TestPlanData more;
        StatisticsDataReport statistics;
        CtrlAttributes attributes;
        const Components c;
        auto* const set = new TestResultSet(c.program, nullptr);
        auto* const item = new TestComponentAttr("category", TestComponentAttr::Category);
        auto* const category = new TestPlanCategory("category");
        auto* const data = new TestPlanData;
        auto* const entry = new StatisticsData(c.measurement);
        auto* const controls = new CtrlLogInReport(false);
        for (int time = 0; time < 2; ++time) {
            test.AssignResultSet(set);
            other.AssignResultSet(set);
            attributes.AddAttribute(item);
            item->AddChild(item);
            data->AddCategory(category);
            more.AddCategory(category);
            plan.AddProperties("ident", data);
            plan.AddProperties("other ident", data);
            plan.AddAttributes("ident", data);
            statistics.AddTestData(entry);
            c.step->SetLogInReportCtrl(controls);
        }
        QCOMPARE(test.GetResultSets(), QList<TestResultSet*>{set});
        QVERIFY(other.GetResultSets().isEmpty());
        QCOMPARE(attributes.GetAttributes().size() + statistics.GetTestData().size(), 2);
        QVERIFY(item->GetChildren().isEmpty());
        QVERIFY(!c.step->GetLogInReportCtrl()->GetLogInReport());
    }

    void ATestDoesNotContainItself()
    {
        const auto panel = QSharedPointer<UUTTest>::create(1, "panel");
        const auto item = QSharedPointer<UUTTest>::create(2, "item");
        panel->AddUUTTest(item);
        panel->AddUUTTest(panel);
        item->AddUUTTest(panel);
        QCOMPARE(panel->GetUUTTests(), QList<QSharedPointer<UUTTest>>{item});
        QVERIFY(item->GetUUTTests().isEmpty());
        QCOMPARE(panel->GetResult(), ZYN_RESULT_NOT_TESTED);
    }

    void AResultIsOwnedByOneSet()
    {
        const Components c;
        TestResultSet first(c.program, nullptr);
        TestResultSet second(c.program, nullptr);
        auto* const result = new TestResult(c.measurement);
        first.AddResult(result);
        first.AddResult(result);
        second.AddResult(result);
        QCOMPARE(first.GetResults().size(), 1);
        QVERIFY(second.GetResults().isEmpty());

        // Of several results of one component the last one counts, all are freed with the set.
        auto* const repeated = new TestResult(c.measurement);
        first.AddResult(repeated);
        QCOMPARE(first.GetResult(c.measurement.data()), repeated);
        // Whatever the component calls its newest one: an earlier one, that of another component.
        for (TestResult* const newest : {repeated, result}) {
            c.measurement->SetResult(newest);
            QCOMPARE(first.GetResult(c.measurement.data()), repeated);
            QCOMPARE(second.GetResult(c.measurement.data()), nullptr);
            c.step->SetResult(newest);
            QCOMPARE(first.GetResult(c.step.data()), nullptr);
        }
        c.step->SetResult(nullptr);
        first.AddResult(new TestResult(nullptr));
        first.AddResult(nullptr);
        QCOMPARE(first.GetResults().size(), 3);
        QCOMPARE(first.GetResult(nullptr), nullptr);
    }
};

QTEST_APPLESS_MAIN(LifetimeTest)
#include "LifetimeTest.moc"
