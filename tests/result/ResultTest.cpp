/// Outcomes that are derived: of a result from its value, of components from their children, of a unit
/// from its runs and its panel items. And what a result keeps of the values and times that it is given.

#include "support/SampleProgram.h"
#include "support/Test.h"

#include <limits>

using namespace ZYN;

namespace {

using Codes = QList<int>;

constexpr EN_ZYN_RESULT Code(int code)
{
    return static_cast<EN_ZYN_RESULT>(code);
}

/// A program of one group with two steps and a run of it; measurements are added with their code.
struct Run {
    SampleModels::ProgramWriter writer{1, "program"};
    QSharedPointer<TestProgram> program = writer.program;
    QSharedPointer<TestGroup> group = writer.Group(7, "group");
    QSharedPointer<TestStep> step = writer.Step(1, "step");
    QSharedPointer<TestStep> other = writer.Step(2, "other");
    TestResultSet* set = new TestResultSet(program, nullptr); // owned by the unit

    TestResult* Add(const QSharedPointer<TestComponent>& component) const
    {
        auto* const result = new TestResult(component);
        set->AddResult(result);
        return result;
    }

    void Measure(TestStep* parent, int code) const
    {
        const auto measurement = QSharedPointer<TestMeasurement>::create(parent->GetMeasurementCount(), "m",
                                                                         ZYN_ADDRESS_REAL, nullptr, 0u, -1);
        parent->AddMeasurement(measurement);
        Add(measurement)->SetResult(Code(code));
    }
};

} // namespace

class ResultTest : public QObject {
    Q_OBJECT
private slots:
    void OfAValue_data()
    {
        const Rows<QVariant, bool, int> row;
        row("inside", QVariant(1.0), true, 1);
        row("outside", QVariant(2.5), true, -1);
        row("no number", QVariant(std::numeric_limits<double>::quiet_NaN()), true, -1);
        row("without limits", QVariant(1.0), false, 6);
        row("nothing measured", QVariant(), true, 0);
    }
    void OfAValue()
    {
        const auto [value, withLimits, code] = CurrentRow<QVariant, bool, int>();
        TestResult result(nullptr);
        if (withLimits)
            result.SetValidation(SampleModels::RealLimits(MeasurementUnit::Volt, 0.0, 2.0));
        result.SetValue(value);
        QCOMPARE(int(result.GetResult()), code);
    }

    void OfChildren_data()
    {
        const Rows<Codes, int> row;
        row("none", Codes{}, 0);
        row("pass", Codes{1}, 1);
        row("pass and done", Codes{6, 1}, 1);
        row("done", Codes{6, 0}, 6);
        row("unknown positive code", Codes{42}, 6);
        row("fail beats pass", Codes{1, -1, 1}, -1);
        row("error beats fail", Codes{-1, -3}, -3);
        row("abort beats error", Codes{-5, -3, -1, 1}, -5);
        row("unknown negative code", Codes{1, -2, -1}, -2);
    }
    void OfChildren()
    {
        const auto [codes, verdict] = CurrentRow<Codes, int>();
        Run run;
        UUTTest unit(1, QString());
        unit.AssignResultSet(run.set);
        for (const int code : codes)
            run.Measure(run.step.data(), code);

        // Derived all the way up, whether or not the levels between have a result of their own.
        QCOMPARE(int(unit.GetResult()), verdict);
        const TestResult* const program = run.Add(run.program);
        QCOMPARE(int(program->GetResult()), verdict);
        const TestResult* const step = run.Add(run.step);
        run.Add(run.group);
        QCOMPARE(int(step->GetResult()), verdict);
        QCOMPARE(int(program->GetResult()), verdict);

        const bool failed = verdict < 0;
        QCOMPARE(run.set->GetFaildStepCount(), int(failed));
        QCOMPARE(run.set->GetFailedTestGroups(), failed ? QList<QString>{"7"} : QList<QString>{});
        QCOMPARE(run.set->GetFailedCount(run.group.data()), int(failed));
        QCOMPARE(run.set->GetFailedCount(run.step.data()),
                 int(std::count_if(codes.begin(), codes.end(), [](int code) { return code < 0; })));
    }

    void WhatWasSetCounts()
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
        QCOMPARE(unit.GetResultString(), "CODE -77");
    }

    void OfAUnit()
    {
        UUTTest panel(1, QString());
        QCOMPARE(panel.GetResult(), ZYN_RESULT_NOT_TESTED);
        Run run;
        panel.AssignResultSet(run.set);
        panel.AssignResultSet(new TestResultSet(nullptr, nullptr)); // a set without a program says nothing
        run.Measure(run.step.data(), 1);
        QCOMPARE(panel.GetResult(), ZYN_RESULT_PASSED);
        for (const int code : {1, -1, -5}) {
            panel.AddUUTTest(QSharedPointer<UUTTest>::create(2, QString()));
            panel.GetUUTTests().last()->SetResult(Code(code));
        }
        panel.AddUUTTest(nullptr);
        QCOMPARE(panel.GetResultString(), "ABORTED");
    }

    void KeptValues_data()
    {
        const Rows<int, QVariant, QVariant> row;
        constexpr double infinity = std::numeric_limits<double>::infinity();
        const qlonglong large = 9007199254740993; // no double
        row("whole real as integer", ZYN_ADDRESS_INTEGER, 255.0, 255ll);
        row("negative", ZYN_ADDRESS_INTEGER, -1.0, -1ll);
        row("fraction", ZYN_ADDRESS_INTEGER, 2.5, 2.5);
        row("too large for 64 bits", ZYN_ADDRESS_INTEGER, 9223372036854775808.0, 9223372036854775808.0);
        row("infinite", ZYN_ADDRESS_INTEGER, infinity, infinity);
        row("integer", ZYN_ADDRESS_INTEGER, large, large);
        row("boolean", ZYN_ADDRESS_INTEGER, true, 1);
        row("whole real as real", ZYN_ADDRESS_REAL, 255.0, 255.0);
    }
    void KeptValues()
    {
        const auto [type, given, kept] = CurrentRow<int, QVariant, QVariant>();
        SampleModels::ProgramWriter writer(1, QString());
        const QSharedPointer<TestComponent> parents[] = {writer.program, writer.Group(2, QString()),
                                                         writer.Step(3, QString())};
        for (const auto& parent : parents) {
            TestResult result(parent);
            result.SetValue(given);
            QVERIFY(!result.GetValue().isValid());
        }
        TestResult result(writer.Measurement(4, QString(), static_cast<EN_ZYN_ADDRESS>(type)));
        result.SetValue(given);
        QCOMPARE(result.GetValue(), kept);
        QCOMPARE(result.GetValue().typeId(), kept.typeId());
    }

    void Times()
    {
        const QDate day(2024, 2, 29);
        TestResult result(nullptr);
        result.SetTime(QDateTime(day, QTime(23, 59, 1), Qt::OffsetFromUTC, 5400));
        QCOMPARE(result.GetTimeString(), "2024-02-29T23:59:01+01:30");
        result.SetTime(QDateTime(day, QTime(1, 2, 3), QTimeZone("UTC-05:00")));
        QCOMPARE(result.GetTimeString(), "2024-02-29T01:02:03-05:00");
        result.SetTime(QDateTime(day, QTime(1, 2, 3, 40), Qt::UTC));
        QCOMPARE(result.GetTimeString(), "2024-02-29T01:02:03.040Z");
        result.SetTime(QDateTime());
        QCOMPARE(result.GetTimeString(), QString());
        result.SetTimeString(" yesterday ");
        QCOMPARE(result.GetTimeString(), " yesterday ");
    }
};

QTEST_APPLESS_MAIN(ResultTest)
#include "ResultTest.moc"
