/// Outcomes that are derived: of a result from its value, of components from their children, of a unit
/// from its runs and its panel items. And what a result keeps of the values and times that it is given.

#include "support/SampleProgram.h"

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QTimeZone>
#include <QtTest/QTest>

#include <limits>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

using Codes = QList<int>;

constexpr EN_ZYN_RESULT Code(int code)
{
    return static_cast<EN_ZYN_RESULT>(code);
}

/// A program of one group with two steps and a run of it; measurements are added with their code.
struct Run {
    SampleModels::ProgramWriter writer{1, u"program"_s};
    QSharedPointer<TestProgram> program = writer.program;
    QSharedPointer<TestGroup> group = writer.Group(7, u"group"_s);
    QSharedPointer<TestStep> step = writer.Step(1, u"step"_s);
    QSharedPointer<TestStep> other = writer.Step(2, u"other"_s);
    TestResultSet* set = new TestResultSet(program, nullptr); // owned by the unit

    TestResult* Add(const QSharedPointer<TestComponent>& component) const
    {
        auto* const result = new TestResult(component);
        set->AddResult(result);
        return result;
    }

    void Measure(TestStep* parent, int code) const
    {
        const auto measurement = QSharedPointer<TestMeasurement>::create(
            parent->GetMeasurementCount(), u"m"_s, ZYN_ADDRESS_REAL, nullptr, 0u, -1);
        parent->AddMeasurement(measurement);
        Add(measurement)->SetResult(Code(code));
    }
};

} // namespace

class ResultTest : public QObject {
    Q_OBJECT
private slots:
    void ofAValue_data();
    void ofAValue();
    void ofChildren_data();
    void ofChildren();
    void whatWasSetCounts();
    void ofAUnit();
    void keptValues_data();
    void keptValues();
    void times();
};

void ResultTest::ofAValue_data()
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

void ResultTest::ofAValue()
{
    QFETCH(bool, withLimits);
    QFETCH(QVariant, value);
    TestResult result(nullptr);
    if (withLimits)
        result.SetValidation(SampleModels::RealLimits(MeasurementUnit::Volt, 0.0, 2.0));
    result.SetValue(value);
    QTEST(int(result.GetResult()), "code");
}

void ResultTest::ofChildren_data()
{
    QTest::addColumn<Codes>("codes");
    QTest::addColumn<int>("verdict");
    QTest::newRow("none") << Codes{} << 0;
    QTest::newRow("pass") << Codes{1} << 1;
    QTest::newRow("pass and done") << Codes{6, 1} << 1;
    QTest::newRow("done") << Codes{6, 0} << 6;
    QTest::newRow("unknown positive code") << Codes{42} << 6;
    QTest::newRow("fail beats pass") << Codes{1, -1, 1} << -1;
    QTest::newRow("error beats fail") << Codes{-1, -3} << -3;
    QTest::newRow("abort beats error") << Codes{-5, -3, -1, 1} << -5;
    QTest::newRow("unknown negative code") << Codes{1, -2, -1} << -2;
}

void ResultTest::ofChildren()
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
    QCOMPARE(run.set->GetFailedTestGroups(), failed ? QList<QString>{u"7"_s} : QList<QString>{});
    QCOMPARE(run.set->GetFailedCount(run.group.data()), int(failed));
    QCOMPARE(run.set->GetFailedCount(run.step.data()),
             int(std::count_if(codes.begin(), codes.end(), [](int code) { return code < 0; })));
}

void ResultTest::whatWasSetCounts()
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
    QCOMPARE(unit.GetResultString(), u"CODE -77"_s);
}

void ResultTest::ofAUnit()
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
    QCOMPARE(panel.GetResultString(), u"ABORTED"_s);
}

void ResultTest::keptValues_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("given");
    QTest::addColumn<QVariant>("kept");
    const auto row = [](const char* name, int type, const QVariant& given, const QVariant& kept) {
        QTest::newRow(name) << type << given << kept;
    };
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

void ResultTest::keptValues()
{
    QFETCH(int, type);
    QFETCH(QVariant, given);
    QFETCH(QVariant, kept);
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

void ResultTest::times()
{
    const QDate day(2024, 2, 29);
    TestResult result(nullptr);
    result.SetTime(QDateTime(day, QTime(23, 59, 1), Qt::OffsetFromUTC, 5400));
    QCOMPARE(result.GetTimeString(), u"2024-02-29T23:59:01+01:30"_s);
    result.SetTime(QDateTime(day, QTime(1, 2, 3), QTimeZone("UTC-05:00")));
    QCOMPARE(result.GetTimeString(), u"2024-02-29T01:02:03-05:00"_s);
    result.SetTime(QDateTime(day, QTime(1, 2, 3, 40), Qt::UTC));
    QCOMPARE(result.GetTimeString(), u"2024-02-29T01:02:03.040Z"_s);
    result.SetTime(QDateTime());
    QCOMPARE(result.GetTimeString(), QString());
    result.SetTimeString(u" yesterday "_s);
    QCOMPARE(result.GetTimeString(), u" yesterday "_s);
}

QTEST_APPLESS_MAIN(ResultTest)
#include "ResultTest.moc"
