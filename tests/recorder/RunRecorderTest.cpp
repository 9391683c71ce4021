#include "support/Test.h"

#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/RunRecorder.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <functional>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

const RealLimits fiveVolts{.lower = 4.85, .upper = 5.15, .unit = MeasurementUnit::Volt};

/// One group "Supply" with a parameter and a step of two measurements, and a group for clean-up.
struct Planned {
    QSharedPointer<TestProgram> program = QSharedPointer<TestProgram>::create(1, u"Final"_s, 0UL);
    QSharedPointer<TestParameter> limit =
        QSharedPointer<TestParameter>::create(5, u"Mode"_s, ZYN_ADDRESS_STRING, nullptr, 0U, 0);
    QSharedPointer<TestStep> rails = Step(10, u"Rails"_s);
    QSharedPointer<TestMeasurement> rail = Real(1, u"5 V"_s, rails, fiveVolts);
    QSharedPointer<TestMeasurement> current = Real(2, u"Current"_s, rails, RealLimits{.upper = 0.25});
    QSharedPointer<TestStep> off = Step(20, u"Off"_s);
    QSharedPointer<TestMeasurement> rest = Real(3, u"Rest"_s, off, RealLimits{.upper = 0.1});

    Planned()
    {
        const auto supply = Group(1, u"Supply"_s, ZYN_GROUP_USER);
        supply->AddParameter(limit);
        supply->AddStep(rails);
        Group(2, u"Clean-up"_s, ZYN_GROUP_CLEANUP)->AddStep(off);
        current->SetLogInReportCtrl(new CtrlLogInReport(false));
    }

    QSharedPointer<TestGroup> Group(long id, const QString& name, EN_ZYN_GROUP kind)
    {
        program->AddGroup(QSharedPointer<TestGroup>::create(id, name, nullptr, 0U, 0L, kind, nullptr));
        return program->GetGroupForIndex(program->GetGroupCount() - 1);
    }

    static QSharedPointer<TestStep> Step(long id, const QString& name)
    {
        return QSharedPointer<TestStep>::create(id, name, nullptr, 0U, 0L, QString());
    }

    static QSharedPointer<TestMeasurement>
    Real(long id, const QString& name, const QSharedPointer<TestStep>& step, const MeasurementLimits& limits)
    {
        const auto made =
            QSharedPointer<TestMeasurement>::create(id, name, ZYN_ADDRESS_REAL, nullptr, 0U, 0L);
        made->GetValidationCtrl()->SetValidation(limits.GetValidation());
        step->AddMeasurement(made);
        return made;
    }
};

/// All results of a test, a line a run: names with verdict, value and duration in ms.
QString Text(const UUTTest& test)
{
    QStringList runs;
    for (const TestResultSet* const set : test.GetResultSets()) {
        QStringList texts;
        for (const TestResult* const result : set->GetResults()) {
            const TestComponent* const component = result->GetComponent().data();
            const auto* const measurement = qobject_cast<const TestMeasurement*>(component);
            if (measurement && measurement->resultState != result->GetResult())
                texts.append(u"WRONG STATE"_s);
            const QString value =
                result->GetValue().isValid() ? u"="_s + result->GetValueString(nullptr) : QString();
            texts.append(component->GetName() + value + u' ' + result->GetResultString());
        }
        runs.append(QString::number(set->GetTestIndex()) + u": "_s + texts.join(u", "_s));
    }
    for (const auto& item : test.GetUUTTests())
        runs.append(u"item "_s + QString::number(item->GetUnitUnderTest()->GetPanelIndex()) + u' ' +
                    Text(*item));
    return test.GetResultString() + u" | "_s + runs.join(u" | "_s);
}

using Steps = std::function<void(RunRecorder&, Planned&)>;

} // namespace

class RunRecorderTest : public QObject {
    Q_OBJECT

private slots:
    /// What is recorded is what a test holds; what is refused says why and changes nothing.
    void records_data()
    {
        QTest::addColumn<Steps>("steps");
        QTest::addColumn<QString>("recorded");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* name, const QString& recorded, const QString& error, Steps steps) {
            QTest::newRow(name) << steps << recorded << error;
        };
        const QString above = u"Final %1, Supply %1, Rails %1, "_s;
        const QString failed = u"FAIL | 1: "_s + above.arg(u"FAIL"_s) + u"5 V=5.21 FAIL"_s;
        row("in any order",
            u"FAIL | 1: Final FAIL, Clean-up PASS, Off PASS, Rest=0.05 PASS, Supply FAIL, "
            "Rails FAIL, Current=0.2 PASS, 5 V=5.21 FAIL"_s,
            {}, [](RunRecorder& recorder, Planned& planned) {
                recorder.Measure(planned.rest, 0.05);
                recorder.Measure(planned.current, 0.2);
                recorder.Measure(planned.rail, 5.21);
            });
        row("by name", u"PASS | 1: Final PASS, Supply PASS, Mode=fast DONE, Rails PASS, Current=0.2 PASS"_s,
            u"the step 'Rails' has no measurement 'Voltage'"_s, [](RunRecorder& recorder, Planned&) {
                recorder.BeginGroup(u"Supply"_s);
                recorder.SetParameter(u"Mode"_s, u"fast"_s);
                recorder.BeginStep(u"Rails"_s);
                recorder.Measure(u"Current"_s, 0.2);
                recorder.Measure(u"Voltage"_s, 5.0);
            });
        row("retest",
            QString(failed).replace(0, 4, u"PASS"_s) + u" | 2: "_s + above.arg(u"PASS"_s) + u"5 V=5 PASS"_s,
            {}, [](RunRecorder& recorder, Planned& planned) {
                recorder.Measure(planned.rail, 5.21);
                recorder.Retest();
                recorder.Measure(planned.rail, 5.0);
            });
        row("aborted",
            u"ABORTED | 1: "_s + above.arg(u"ABORTED"_s) +
                u"5 V=5 PASS, Clean-up PASS, Off PASS, Rest=0 PASS"_s,
            u"'Current' comes after the run was stopped; only clean-up follows"_s,
            [](RunRecorder& recorder, Planned& planned) {
                recorder.Measure(planned.rail, 5.0);
                recorder.Abort(u"emergency stop"_s);
                recorder.Measure(planned.rest, 0.0);
                recorder.Measure(planned.current, 0.1);
            });
        row("error before anything", u"ERROR | 1: Final ERROR"_s, {},
            [](RunRecorder& recorder, Planned&) { recorder.Error(u"no instrument"_s); });
        row("nothing at all", u"NOT TESTED | 1: Final NOT TESTED"_s, {}, [](RunRecorder&, Planned&) {});
        row("skipped", u"NOT TESTED | 1: "_s + above.arg(u"NOT TESTED"_s).chopped(2), {},
            [](RunRecorder& recorder, Planned& planned) { recorder.Skip(planned.rails); });
        row("panel",
            u"FAIL | item 1 "_s + failed + u" | item 2 PASS | 1: "_s + above.arg(u"PASS"_s) + u"5 V=5 PASS"_s,
            {}, [](RunRecorder& recorder, Planned& planned) {
                RunRecorder* const first = recorder.AddItem(QSharedPointer<UnitUnderTest>::create(1, u"A"_s));
                RunRecorder* const second =
                    recorder.AddItem(QSharedPointer<UnitUnderTest>::create(2, u"B"_s));
                second->Measure(planned.rail, 5.0);
                first->Measure(planned.rail, 5.21);
                if (first->Finish())
                    qFatal("an item ended before its panel");
            });
        row("twice", failed, u"'5 V' has a result in this run already; another one is a retest"_s,
            [](RunRecorder& recorder, Planned& planned) {
                recorder.Measure(planned.rail, 5.21);
                recorder.Measure(planned.rail, 5.0);
            });
        row("of another program", failed, u"'5 V' is not of the program 'Final'"_s,
            [](RunRecorder& recorder, Planned& planned) {
                recorder.Measure(planned.rail, 5.21);
                recorder.Measure(Planned().rail, 5.0);
            });
        row("another kind of value", failed, u"'Current' is a number, and 'low' is none"_s,
            [](RunRecorder& recorder, Planned& planned) {
                recorder.Measure(planned.rail, 5.21);
                recorder.Measure(planned.current, u"low"_s);
            });
        row("no value", failed, u"the value of 'Current' is no number, truth value or text"_s,
            [](RunRecorder& recorder, Planned& planned) {
                recorder.Measure(planned.rail, 5.21);
                recorder.Measure(planned.current, QVariant());
            });
    }

    void records()
    {
        QFETCH(Steps, steps);
        QFETCH(QString, recorded);
        QFETCH(QString, error);
        if (!error.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, qPrintable(error));
        Planned planned;
        RunRecorder recorder(QSharedPointer<UnitUnderTest>::create(7, u"Board"_s), planned.program);
        if (qstrcmp(QTest::currentDataTag(), "panel") == 0)
            QTest::ignoreMessage(QtWarningMsg, "an item of a panel is finished with its panel");
        steps(recorder, planned);
        QCOMPARE(recorder.GetErrorText(), error);
        const QSharedPointer<UUTTest> test = recorder.Finish();
        QCOMPARE(Text(*test), recorded);
        QTest::ignoreMessage(QtWarningMsg, "the test was finished before");
        QVERIFY(!recorder.Finish() && !recorder.GetTest());
        QTest::ignoreMessage(QtWarningMsg, "'5 V' comes after the end of the test");
        QVERIFY(!recorder.Measure(planned.rail, 5.0));
    }

    /// A copy of the program has all that reports show of it, and one test does not change another.
    void nextUnit()
    {
        Planned planned;
        QList<QSharedPointer<UUTTest>> tests;
        for (const double volts : {5.21, 5.0}) {
            RunRecorder recorder(nullptr, planned.program);
            QVERIFY(recorder.Measure(planned.rail, volts) && recorder.SetDuration(0.25));
            QVERIFY(recorder.Measure(planned.current, 0.1) && recorder.SetDuration(0.5));
            tests.append(recorder.Finish());
        }
        QVERIFY(Text(*tests.at(0)).startsWith(u"FAIL"_s) && Text(*tests.at(1)).startsWith(u"PASS"_s));
        QCOMPARE(tests.at(0)->GetResultDescription(), u"Rails: 5 V"_s);
        QCOMPARE(tests.at(1)->GetDuration_ms(), 750);
        const auto program = tests.at(1)->GetResultSets().constFirst()->GetTestProgram();
        QVERIFY(program != planned.program);
        const auto copy = program->GetGroupForIndex(0)->GetStepForIndex(0)->GetMeasurementForID(2);
        QVERIFY(copy && !copy->GetLogInReportCtrl()->GetLogInReport());
    }

    /// Without a recorder a result is easily forgotten: the library says so.
    void byHand()
    {
        const Planned planned;
        TestResultSet results(planned.program, nullptr);
        results.AddResult(new TestResult(planned.rail));
        const QTemporaryDir folder;
        CExportServiceReport report;
        report.SetFormat(u"CSV"_s);
        report.SetOutputFileName(folder.filePath(u"a.csv"_s));
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^A run of 'Final' has no result for its program"_s));
        QVERIFY(report.Export(&results));
    }

    /// A program that grows has the same components for each unit, whatever the units' values are.
    void withoutProgram()
    {
        RunRecorder recorder(nullptr, u"Growing"_s);
        QTest::ignoreMessage(QtWarningMsg, "measurement 'Early' is in no step: begin one before");
        QVERIFY(!recorder.Measure(u"Early"_s, 1));
        recorder.BeginGroup(u"All"_s);
        recorder.BeginStep(u"Kinds"_s);
        QVERIFY(recorder.Measure(u"Whole"_s, 3, IntegerLimits{.lower = 1, .upper = 2}));
        QVERIFY(recorder.Measure(u"Bits"_s, 0xA5, HexadecimalLimit{0xA5}));
        QVERIFY(recorder.Measure(u"Truth"_s, true, BooleanLimit{}));
        QVERIFY(recorder.Measure(u"Text"_s, u"2.4.1"_s, TextLimit{u"2.4.1"_s}));
        QVERIFY(recorder.Measure(u"Free"_s, 1.5));
        recorder.BeginStep(u"Left out"_s);
        QVERIFY(recorder.SkipStep());
        QCOMPARE(Text(*recorder.Finish()),
                 u"FAIL | 1: Growing FAIL, All FAIL, Kinds FAIL, Whole=3 FAIL, Bits=a5 PASS, Truth=1 PASS, "
                 "Text=2.4.1 PASS, Free=1.5 DONE, Left out NOT TESTED"_s);
    }
};

QTEST_GUILESS_MAIN(RunRecorderTest)
#include "RunRecorderTest.moc"
