/// Outcomes that are derived: of a result from its value, of components from their children, of a unit
/// from its runs and its panel items.

#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/ValidationInterface.h>

#include <QtTest/QTest>

#include <initializer_list>
#include <limits>

using namespace ZYN;

namespace {

using Codes = QList<int>;

constexpr EN_ZYN_RESULT Code(int code)
{
    return static_cast<EN_ZYN_RESULT>(code);
}

QSharedPointer<ValidationInterface> Interval(double lower, double upper)
{
    return QSharedPointer<ValidationInterface>(TestComponentFactory::CreateValidationReal(
        MeasurementUnit::Volt, "<=", "<=", lower, upper, -1, -1, -1, -1, -1, -1, QVariant(),
        std::numeric_limits<double>::quiet_NaN()));
}

/// A program of one group with two steps and a run of it; measurements are added with their code.
struct Run {
    QSharedPointer<TestProgram> program{new TestProgram(1, QStringLiteral("program"), 0)};
    QSharedPointer<TestGroup> group{
        new TestGroup(7, QStringLiteral("group"), nullptr, 0, -1, ZYN_GROUP_USER, nullptr)};
    QSharedPointer<TestStep> step{new TestStep(1, QStringLiteral("step"), nullptr, 0, -1, QString())};
    QSharedPointer<TestStep> other{new TestStep(2, QStringLiteral("other"), nullptr, 0, -1, QString())};
    TestResultSet* set = new TestResultSet(program, nullptr); // owned by the unit

    Run()
    {
        program->AddGroup(group);
        group->AddStep(step);
        group->AddStep(other);
    }

    TestResult* Add(const QSharedPointer<TestComponent>& component) const
    {
        auto* const result = new TestResult(component);
        set->AddResult(result);
        return result;
    }

    void Measure(TestStep* parent, int code) const
    {
        const auto measurement = QSharedPointer<TestMeasurement>::create(
            parent->GetMeasurementCount(), QStringLiteral("m"), ZYN_ADDRESS_REAL, nullptr, 0u, -1);
        parent->AddMeasurement(measurement);
        Add(measurement)->SetResult(Code(code));
    }
};

} // namespace

class VerdictTest : public QObject {
    Q_OBJECT
private slots:
    void ofAValue_data();
    void ofAValue();
    void ofChildren_data();
    void ofChildren();
    void whatWasSetCounts();
    void ofAUnit();
    void texts_data();
    void texts();
};

void VerdictTest::ofAValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("withLimits");
    QTest::addColumn<int>("code");
    QTest::newRow("inside") << QVariant(1.0) << true << 1;
    QTest::newRow("outside") << QVariant(2.5) << true << -1;
    QTest::newRow("no number") << QVariant(std::numeric_limits<double>::quiet_NaN()) << true << -1;
    QTest::newRow("without limits") << QVariant(1.0) << false << 6;
    QTest::newRow("nothing measured") << QVariant() << true << 0;
}

void VerdictTest::ofAValue()
{
    QFETCH(bool, withLimits);
    QFETCH(QVariant, value);
    TestResult result(nullptr);
    if (withLimits)
        result.SetValidation(Interval(0.0, 2.0));
    result.SetValue(value);
    QTEST(int(result.GetResult()), "code");
}

void VerdictTest::ofChildren_data()
{
    QTest::addColumn<Codes>("codes");
    QTest::addColumn<int>("verdict");
    QTest::newRow("none") << Codes{} << 0;
    QTest::newRow("not tested") << Codes{0, 0} << 0;
    QTest::newRow("pass") << Codes{1} << 1;
    QTest::newRow("pass and not tested") << Codes{0, 1, 0} << 1;
    QTest::newRow("pass and done") << Codes{6, 1} << 1;
    QTest::newRow("done") << Codes{6, 0} << 6;
    QTest::newRow("unknown positive code") << Codes{42} << 6;
    QTest::newRow("fail beats pass") << Codes{1, -1, 1} << -1;
    QTest::newRow("error beats fail") << Codes{-1, -3} << -3;
    QTest::newRow("abort beats error") << Codes{-5, -3, -1, 1} << -5;
    QTest::newRow("unknown negative code") << Codes{1, -2, -1} << -2;
}

void VerdictTest::ofChildren()
{
    QFETCH(Codes, codes);
    Run run;
    UUTTest unit(1, QString());
    unit.AssignResultSet(run.set);
    for (const int code : codes)
        run.Measure(run.step.data(), code);

    // Derived all the way up, whether or not the levels between have a result of their own.
    QTEST(int(unit.GetResult()), "verdict");
    const TestResult* const program = run.Add(run.program);
    QTEST(int(program->GetResult()), "verdict");
    const TestResult* const step = run.Add(run.step);
    run.Add(run.group);
    QTEST(int(step->GetResult()), "verdict");
    QTEST(int(program->GetResult()), "verdict");

    QFETCH(int, verdict);
    const bool failed = verdict < 0;
    QCOMPARE(run.set->GetFaildStepCount(), int(failed));
    QCOMPARE(run.set->GetFailedTestGroups(), failed ? QList<QString>{QStringLiteral("7")} : QList<QString>{});
    QCOMPARE(run.set->GetFailedCount(run.group.data()), int(failed));
    QCOMPARE(run.set->GetFailedCount(run.step.data()),
             int(std::count_if(codes.begin(), codes.end(), [](int code) { return code < 0; })));
}

void VerdictTest::whatWasSetCounts()
{
    Run run;
    UUTTest unit(1, QString());
    unit.AssignResultSet(run.set);
    run.Measure(run.step.data(), -1);
    run.Measure(run.other.data(), 1);
    run.Add(run.step)->SetResult(ZYN_RESULT_PASSED);
    QCOMPARE(unit.GetResult(), ZYN_RESULT_PASSED);
    QCOMPARE(run.set->GetFaildStepCount(), 0);
    unit.SetResult(Code(-77));
    QCOMPARE(unit.GetResult(), Code(-77));
    QCOMPARE(unit.GetResultString(), QStringLiteral("CODE -77"));
}

void VerdictTest::ofAUnit()
{
    UUTTest panel(1, QString());
    QCOMPARE(panel.GetResult(), ZYN_RESULT_NOT_TESTED);
    Run run;
    panel.AssignResultSet(run.set);
    panel.AssignResultSet(new TestResultSet(nullptr, nullptr)); // a set without a program says nothing
    run.Measure(run.step.data(), 1);
    QCOMPARE(panel.GetResult(), ZYN_RESULT_PASSED);
    for (const int code : {1, -1, -5}) {
        const auto item = QSharedPointer<UUTTest>::create(2, QString());
        item->SetResult(Code(code));
        panel.AddUUTTest(item);
    }
    panel.AddUUTTest(nullptr);
    QCOMPARE(panel.GetUUTTests().size(), 3);
    QCOMPARE(panel.GetResultString(), QStringLiteral("ABORTED"));
}

void VerdictTest::texts_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("aborted") << -5 << QStringLiteral("ABORTED");
    QTest::newRow("error") << -3 << QStringLiteral("ERROR");
    QTest::newRow("fail") << -1 << QStringLiteral("FAIL");
    QTest::newRow("not tested") << 0 << QStringLiteral("NOT TESTED");
    QTest::newRow("pass") << 1 << QStringLiteral("PASS");
    QTest::newRow("done") << 6 << QStringLiteral("DONE");
    QTest::newRow("unknown") << 42 << QStringLiteral("CODE 42");
}

void VerdictTest::texts()
{
    QFETCH(int, code);
    QTEST(TestResult::ResultToString(Code(code)), "text");
}

QTEST_APPLESS_MAIN(VerdictTest)
#include "VerdictTest.moc"
