#include <ZYNCommon/RunRecorder.h>

#include "RecordedRun.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>

#include <QtCore/QLoggingCategory>

#include <vector>

namespace ZYN {

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(logRecorder, "zyn.recorder")

namespace {

enum class ValueKind { None, Number, Text };

ValueKind KindOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return ValueKind::Text;
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Float:
    case QMetaType::Double:
        return ValueKind::Number;
    default:
        return ValueKind::None;
    }
}

/// The type of a measurement or parameter that is planned by its first value.
EN_ZYN_ADDRESS TypeOf(const QVariant& value)
{
    if (KindOf(value) == ValueKind::Text)
        return ZYN_ADDRESS_STRING;
    const bool isReal = value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
    return isReal ? ZYN_ADDRESS_REAL : ZYN_ADDRESS_INTEGER;
}

} // namespace

class RunRecorder::Private {
public:
    Private(QSharedPointer<UnitUnderTest> unit, QSharedPointer<TestProgram> planned, bool grows)
        : program(std::move(planned))
        , mayGrow(grows)
        , test(QSharedPointer<UUTTest>::create(0, program ? program->GetNameView() : QString()))
    {
        test->SetUnitUnderTest(std::move(unit));
        test->SetStartTime(QDateTime::currentDateTime());
    }

    bool Refuse(const QString& why)
    {
        error = why;
        qCWarning(logRecorder, "%ls", qUtf16Printable(why));
        return false;
    }

    /// The run in the making, the first one included; null where nothing can be recorded.
    RecordedRun* Run(const QString& what)
    {
        if (!test)
            Refuse(u"'%1' comes after the end of the test"_s.arg(what));
        else if (!program)
            Refuse(u"'%1' has no program to be recorded in"_s.arg(what));
        else if (!run)
            run = std::make_unique<RecordedRun>(program, station, ++runs, mayGrow);
        return test ? run.get() : nullptr;
    }

    /// The run's own component, where a result may be filed for it; else null.
    QSharedPointer<TestComponent> Free(const QSharedPointer<TestComponent>& component)
    {
        if (!component) {
            Refuse(u"nothing was given to be recorded"_s);
            return nullptr;
        }
        const QString name = component->GetName();
        RecordedRun* const current = Run(name);
        if (!current)
            return nullptr;
        QSharedPointer<TestComponent> own = current->Own(component);
        if (!own)
            Refuse(u"'%1' is not of the program '%2'"_s.arg(name, program->GetNameView()));
        else if (current->HasResult(own.data()))
            Refuse(u"'%1' has a result in this run already; another one is a retest"_s.arg(name));
        else if (current->IsStopped() && !IsCleanUp(*own))
            Refuse(u"'%1' comes after the run was stopped; only clean-up follows"_s.arg(name));
        else
            return own;
        return nullptr;
    }

    static bool IsCleanUp(const TestComponent& component)
    {
        const auto* const measurement = qobject_cast<const TestMeasurement*>(&component);
        const auto* const step =
            measurement ? measurement->GetTestStep() : qobject_cast<const TestStep*>(&component);
        const auto* const parameter = qobject_cast<const TestParameter*>(&component);
        const auto* const group = step        ? step->GetTestGroup()
                                  : parameter ? parameter->GetTestGroup()
                                              : qobject_cast<const TestGroup*>(&component);
        return group && group->GetGroupKind() == ZYN_GROUP_CLEANUP;
    }

    /// Files a component's result; null, refused, where that is not possible.
    TestResult* File(const QSharedPointer<TestComponent>& component)
    {
        const QSharedPointer<TestComponent> own = Free(component);
        TestResult* const result = own ? run->File(own) : nullptr;
        if (own && !result)
            Refuse(u"'%1' is in no step or group of the program"_s.arg(own->GetName()));
        return result;
    }

    bool FileValue(const QSharedPointer<TestComponent>& component, const QVariant& value,
                   const QSharedPointer<ValidationInterface>& validation)
    {
        const ValueKind kind = KindOf(value);
        if (component && kind == ValueKind::None)
            return Refuse(u"the value of '%1' is no number, truth value or text"_s.arg(component->GetName()));
        const bool takesText = component && component->type == ZYN_ADDRESS_STRING;
        const bool takesAny = component && component->type != ZYN_ADDRESS_INTEGER &&
                              component->type != ZYN_ADDRESS_REAL && !takesText;
        if (component && !takesAny && takesText != (kind == ValueKind::Text))
            return Refuse(u"'%1' is a %2, and '%3' is none"_s.arg(
                component->GetName(), takesText ? u"text"_s : u"number"_s, value.toString()));
        TestResult* const result = File(component);
        if (!result)
            return false;
        result->SetValidation(validation);
        result->SetValue(value);
        result->GetComponent()->SetResult(result);
        if (result->GetResult() < 0)
            run->Describe(NameOf(*result->GetComponent()));
        return true;
    }

    static QString NameOf(const TestComponent& component)
    {
        const auto* const measurement = qobject_cast<const TestMeasurement*>(&component);
        const TestStep* const step = measurement ? measurement->GetTestStep() : nullptr;
        return step ? step->GetNameView() + u": "_s + component.GetNameView() : component.GetName();
    }

    bool Stop(EN_ZYN_RESULT code, const QString& reason)
    {
        if (!Run(reason))
            return false;
        if (run->IsStopped())
            return Refuse(u"the run was stopped before '%1'"_s.arg(reason));
        run->Stop(code, reason);
        return true;
    }

    void EndRun()
    {
        if (!run)
            return;
        description = run->Description();
        seconds += run->Seconds();
        lastResult = run->Result();
        if (mayGrow)
            program = run->Program();
        test->AssignResultSet(run->Take().release());
        run.reset();
    }

    QSharedPointer<UUTTest> End()
    {
        if (!test) {
            Refuse(u"the test was finished before"_s);
            return nullptr;
        }
        // A unit of which nothing is known was not tested, and its report says so.
        if (items.empty() && runs == 0)
            Run(test->GetName());
        EndRun();
        for (const auto& item : items)
            test->AddUUTTest(item->d->End());
        // A retest replaces the runs before it.
        if (runs > 1)
            test->SetResult(lastResult);
        if (test->GetResultDescription().isEmpty())
            test->SetResultDescription(description);
        if (test->GetStopTimeString().isEmpty())
            test->SetStopTime(QDateTime::currentDateTime());
        if (test->GetDuration_ms() == 0)
            test->SetDuration(seconds);
        return std::exchange(test, nullptr);
    }

    QSharedPointer<TestProgram> program; ///< as it was planned, or as far as it was built
    bool mayGrow;
    bool isItem = false;
    QSharedPointer<UUTTest> test; ///< null after the end
    QSharedPointer<Station> station;
    std::unique_ptr<RecordedRun> run;
    long runs = 0;
    double seconds = 0.0;
    EN_ZYN_RESULT lastResult = ZYN_RESULT_NOT_TESTED;
    QString description;
    QString error;
    std::vector<std::unique_ptr<RunRecorder>> items;
};

RunRecorder::RunRecorder(QSharedPointer<UnitUnderTest> unit, QSharedPointer<TestProgram> program)
    : d(std::make_unique<Private>(std::move(unit), std::move(program), false))
{
}

RunRecorder::RunRecorder(QSharedPointer<UnitUnderTest> unit, const QString& programName)
    : d(std::make_unique<Private>(std::move(unit), QSharedPointer<TestProgram>::create(1, programName, 0UL),
                                  true))
{
}

RunRecorder::RunRecorder(std::unique_ptr<Private> item)
    : d(std::move(item))
{
}

RunRecorder::~RunRecorder() = default;

UUTTest* RunRecorder::GetTest() const
{
    return d->test.data();
}

void RunRecorder::SetStation(QSharedPointer<Station> station)
{
    d->station = std::move(station);
}

bool RunRecorder::BeginGroup(const QString& name, EN_ZYN_GROUP kind)
{
    RecordedRun* const run = d->Run(name);
    if (!run)
        return false;
    const auto group = run->FindGroup(name, kind);
    return (group && run->Begin(group.data())) ||
           d->Refuse(u"the program '%1' has no group '%2'"_s.arg(d->program->GetNameView(), name));
}

bool RunRecorder::BeginStep(const QString& name)
{
    RecordedRun* const run = d->Run(name);
    if (!run)
        return false;
    if (!run->Group())
        return d->Refuse(u"step '%1' is in no group: begin one before"_s.arg(name));
    const auto step = run->FindStep(name);
    return (step && run->Enter(step.data())) ||
           d->Refuse(u"the group '%1' has no step '%2'"_s.arg(run->Group()->GetNameView(), name));
}

bool RunRecorder::Measure(const QSharedPointer<TestMeasurement>& measurement, const QVariant& value)
{
    return d->FileValue(measurement, value,
                        measurement ? measurement->GetValidationCtrl()->GetValidation() : nullptr);
}

bool RunRecorder::Measure(const QString& name, const QVariant& value, const MeasurementLimits& limits)
{
    RecordedRun* const run = d->Run(name);
    if (!run)
        return false;
    if (!run->Step())
        return d->Refuse(u"measurement '%1' is in no step: begin one before"_s.arg(name));
    const EN_ZYN_ADDRESS type = limits.GetValidation() ? limits.GetType() : TypeOf(value);
    const auto measurement = run->FindMeasurement(name, type, limits);
    if (!measurement)
        return d->Refuse(u"the step '%1' has no measurement '%2'"_s.arg(run->Step()->GetNameView(), name));
    return d->FileValue(measurement, value,
                        limits.GetValidation() ? limits.GetValidation()
                                               : measurement->GetValidationCtrl()->GetValidation());
}

bool RunRecorder::SetParameter(const QSharedPointer<TestParameter>& parameter, const QVariant& value)
{
    return d->FileValue(parameter, value, nullptr);
}

bool RunRecorder::SetParameter(const QString& name, const QVariant& value)
{
    RecordedRun* const run = d->Run(name);
    if (!run)
        return false;
    if (!run->Group())
        return d->Refuse(u"parameter '%1' is in no group: begin one before"_s.arg(name));
    const auto parameter = run->FindParameter(name, TypeOf(value));
    if (!parameter)
        return d->Refuse(u"the group '%1' has no parameter '%2'"_s.arg(run->Group()->GetNameView(), name));
    return SetParameter(parameter, value);
}

bool RunRecorder::Skip(const QSharedPointer<TestComponent>& component)
{
    TestResult* const result = d->File(component);
    if (result)
        result->SetResult(ZYN_RESULT_NOT_TESTED);
    return result;
}

bool RunRecorder::SkipStep()
{
    if (!d->run || !d->run->Step())
        return d->Refuse(u"there is no step to be skipped: begin one before"_s);
    return Skip(d->run->Step());
}

EN_ZYN_RESULT RunRecorder::GetLastResult() const
{
    const TestResult* const last = d->run ? d->run->Last() : nullptr;
    return last ? last->GetResult() : ZYN_RESULT_NOT_TESTED;
}

bool RunRecorder::SetComment(const QString& comment)
{
    if (!d->run || !d->run->Last())
        return d->Refuse(u"comment '%1' belongs to nothing that was recorded"_s.arg(comment));
    d->run->Last()->SetComment(comment);
    return true;
}

bool RunRecorder::SetAttribute(const QString& attribute)
{
    if (!d->run || !d->run->Last())
        return d->Refuse(u"attribute '%1' belongs to nothing that was recorded"_s.arg(attribute));
    d->run->Last()->SetAttribute(attribute);
    return true;
}

bool RunRecorder::SetDuration(double seconds)
{
    if (!d->run || !d->run->Last())
        return d->Refuse(u"a duration of %1 s belongs to nothing that was recorded"_s.arg(seconds));
    if (!(seconds >= 0.0))
        return d->Refuse(u"%1 s is no duration"_s.arg(seconds));
    d->run->SetDuration(seconds);
    return true;
}

bool RunRecorder::Abort(const QString& reason)
{
    return d->Stop(ZYN_RESULT_ABORTED, reason);
}

bool RunRecorder::Error(const QString& reason)
{
    return d->Stop(ZYN_RESULT_ERROR, reason);
}

bool RunRecorder::Retest()
{
    if (!d->run)
        return d->Refuse(d->test ? u"there is no run to be repeated yet"_s
                                 : u"the test was finished before"_s);
    d->EndRun();
    return true;
}

RunRecorder* RunRecorder::AddItem(QSharedPointer<UnitUnderTest> unit)
{
    if (!d->test) {
        d->Refuse(u"the test was finished before"_s);
        return nullptr;
    }
    if (unit && unit->GetPanelIndex() == 0)
        unit->SetPanelIndex(long(d->items.size()) + 1);
    auto item = std::make_unique<Private>(std::move(unit), d->program, d->mayGrow);
    item->isItem = true;
    item->station = d->station;
    d->items.push_back(std::unique_ptr<RunRecorder>(new RunRecorder(std::move(item))));
    return d->items.back().get();
}

QSharedPointer<UUTTest> RunRecorder::Finish()
{
    if (!d->isItem)
        return d->End();
    d->Refuse(u"an item of a panel is finished with its panel"_s);
    return nullptr;
}

QString RunRecorder::GetErrorText() const
{
    return d->error;
}

} // namespace ZYN
