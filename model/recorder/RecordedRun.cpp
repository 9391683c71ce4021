#include "RecordedRun.h"

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/MeasurementLimits.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>

#include <cmath>

namespace ZYN {

namespace {

/// The place of the first of `count` children for which something holds, looked for from a place on and then
/// from the first: who works in the order of the program finds each at once. -1 where there is none.
template <typename Holds>
int PlaceFrom(int start, int count, Holds holds)
{
    for (int i = 0; i < count; ++i) {
        const int place = (start + i) % count;
        if (holds(place))
            return place;
    }
    return -1;
}

/// No clock of a tester is better, and a sum does not end in noise.
double WholeMicroseconds(double seconds)
{
    return std::round(seconds * 1e6) / 1e6;
}

} // namespace

RecordedRun::RecordedRun(QSharedPointer<TestProgram> program, QSharedPointer<Station> station, long index,
                         bool mayGrow)
    : m_program(program)
    , m_mayGrow(mayGrow)
    , m_start(QDateTime::currentDateTime())
{
    m_clock.start();
    if (program->GetResult()) {
        ProgramCopy copy = CopyProgram(program.data());
        m_program = copy.program;
        m_copyOf = std::move(copy.copyOf);
    }
    m_results = std::make_unique<TestResultSet>(m_program, std::move(station));
    m_results->SetTestIndex(index);
    m_programResult = Need(m_program);
    m_program->SetResult(m_programResult); // from now on the program is in use
}

RecordedRun::~RecordedRun() = default;

QSharedPointer<TestComponent> RecordedRun::Own(const QSharedPointer<TestComponent>& planned) const
{
    if (const auto copy = m_copyOf.constFind(planned.data()); copy != m_copyOf.constEnd())
        return *copy;
    return planned && planned->GetTestProgram() == m_program.data() ? planned : nullptr;
}

QSharedPointer<TestGroup> RecordedRun::FindGroup(const QString& name, EN_ZYN_GROUP kind)
{
    for (int g = 0; g < m_program->GetGroupCount(); ++g) {
        if (m_program->GetGroupForIndex(g)->GetNameView() == name)
            return m_program->GetGroupForIndex(g);
    }
    if (!m_mayGrow)
        return nullptr;
    const int place = m_program->GetGroupCount();
    const auto group =
        QSharedPointer<TestGroup>::create(place + 1, name, m_program.data(), 0U, place, kind, nullptr);
    m_program->AddGroup(group);
    return group;
}

QSharedPointer<TestStep> RecordedRun::FindStep(const QString& name)
{
    for (int s = 0; s < m_group->GetStepCount(); ++s) {
        if (m_group->GetStepForIndex(s)->GetNameView() == name)
            return m_group->GetStepForIndex(s);
    }
    if (!m_mayGrow)
        return nullptr;
    long steps = 0;
    for (int g = 0; g < m_program->GetGroupCount(); ++g)
        steps += m_program->GetGroupForIndex(g)->GetStepCount();
    const auto step = QSharedPointer<TestStep>::create(steps + 1, name, m_group.data(), 0U,
                                                       m_group->GetStepCount(), QString());
    m_group->AddStep(step);
    return step;
}

QSharedPointer<TestMeasurement> RecordedRun::FindMeasurement(const QString& name, EN_ZYN_ADDRESS type,
                                                             const MeasurementLimits& limits)
{
    const int count = m_step->GetMeasurementCount();
    const int found = PlaceFrom(m_nextMeasurement, count, [&](int place) {
        return m_step->GetMeasurementForIndex(place)->GetNameView() == name;
    });
    m_nextMeasurement = (found < 0 ? count : found) + 1;
    if (found >= 0)
        return m_step->GetMeasurementForIndex(found);
    if (!m_mayGrow)
        return nullptr;
    const auto measurement =
        QSharedPointer<TestMeasurement>::create(count + 1, name, type, m_step.data(), 0U, count);
    measurement->GetValidationCtrl()->SetValidation(limits.GetValidation());
    m_step->AddMeasurement(measurement);
    return measurement;
}

QSharedPointer<TestParameter> RecordedRun::FindParameter(const QString& name, EN_ZYN_ADDRESS type)
{
    const int count = m_group->GetParameterCount();
    for (int p = 0; p < count; ++p) {
        if (m_group->GetParameterForIndex(p)->GetNameView() == name)
            return m_group->GetParameterForIndex(p);
    }
    if (!m_mayGrow)
        return nullptr;
    const auto parameter =
        QSharedPointer<TestParameter>::create(count + 1, name, type, m_group.data(), 0U, count);
    m_group->AddParameter(parameter);
    return parameter;
}

bool RecordedRun::Begin(const TestGroup* group)
{
    LeaveStep();
    return Enter(group);
}

bool RecordedRun::Enter(const TestGroup* group)
{
    if (m_group == group)
        return group;
    const int place = PlaceFrom(m_nextGroup, m_program->GetGroupCount(),
                                [&](int at) { return m_program->GetGroupForIndex(at) == group; });
    if (place < 0)
        return false;
    m_nextGroup = place + 1;
    m_group = m_program->GetGroupForIndex(place);
    m_groupResult = nullptr;
    LeaveStep();
    m_nextStep = 0;
    return true;
}

bool RecordedRun::Enter(const TestStep* step)
{
    if (m_step == step)
        return step;
    if (!step || !Enter(step->GetTestGroup()))
        return false;
    const int place = PlaceFrom(m_nextStep, m_group->GetStepCount(),
                                [&](int at) { return m_group->GetStepForIndex(at) == step; });
    LeaveStep();
    if (place < 0)
        return false;
    m_nextStep = place + 1;
    m_step = m_group->GetStepForIndex(place);
    return true;
}

void RecordedRun::LeaveStep()
{
    m_step.reset();
    m_stepResult = nullptr;
    m_nextMeasurement = 0;
}

bool RecordedRun::EnterParent(const TestComponent* component)
{
    if (const auto* const measurement = qobject_cast<const TestMeasurement*>(component))
        return Enter(measurement->GetTestStep());
    if (const auto* const step = qobject_cast<const TestStep*>(component))
        return Enter(step);
    const auto* const parameter = qobject_cast<const TestParameter*>(component);
    return Begin(parameter ? parameter->GetTestGroup() : qobject_cast<const TestGroup*>(component));
}

TestResult* RecordedRun::File(const QSharedPointer<TestComponent>& component)
{
    if (!EnterParent(component.data()))
        return nullptr;
    if (!m_groupResult)
        m_groupResult = Need(m_group);
    if (m_step && !m_stepResult)
        m_stepResult = Need(m_step);
    m_last = Need(component);
    const qint64 now = m_clock.nsecsElapsed();
    Add(double(now - m_moment) / 1e9);
    m_moment = now;
    return m_last;
}

bool RecordedRun::HasResult(const TestComponent* component) const
{
    return m_results->GetResult(component);
}

/// The component's result in this run; a new one where there is none.
TestResult* RecordedRun::Need(const QSharedPointer<TestComponent>& component)
{
    if (TestResult* const result = m_results->GetResult(component.data()))
        return result;
    auto result = std::make_unique<TestResult>(component);
    result->SetTime(m_start.addMSecs(m_moment / 1'000'000));
    m_results->AddResult(result.get());
    return result.release();
}

/// Time that the last one took.
void RecordedRun::Add(double seconds)
{
    TestResult* const taking[] = {m_last, m_stepResult == m_last ? nullptr : m_stepResult,
                                  m_groupResult == m_last ? nullptr : m_groupResult, m_programResult};
    for (TestResult* const result : taking) {
        if (result)
            result->SetDuration(WholeMicroseconds(result->GetDuration() + seconds));
    }
}

void RecordedRun::SetDuration(double seconds)
{
    Add(seconds - m_last->GetDuration());
}

void RecordedRun::Stop(EN_ZYN_RESULT code, const QString& reason)
{
    if (m_step) {
        TestResult* const result = File(m_step);
        result->SetResult(code);
        result->SetComment(reason);
    }
    m_programResult->SetResult(code);
    m_programResult->SetComment(reason);
    m_stopCode = code;
    Describe(reason);
}

void RecordedRun::Describe(const QString& description)
{
    if (m_description.isEmpty())
        m_description = description;
}

double RecordedRun::Seconds() const
{
    return m_programResult->GetDuration();
}

EN_ZYN_RESULT RecordedRun::Result() const
{
    return m_programResult->GetResult();
}

std::unique_ptr<TestResultSet> RecordedRun::Take()
{
    for (TestResult* const result : m_results->GetResults())
        result->GetComponent()->SetResult(result);
    return std::move(m_results);
}

} // namespace ZYN
