#include <ZYNCommon/TestResultSet.h>

#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>

#include "WorstResult.h"

#include <algorithm>

namespace ZYN {

TestResultSet::TestResultSet(QSharedPointer<TestProgram> program, QSharedPointer<Station> station)
    : m_program(std::move(program))
    , m_station(std::move(station))
{
}

TestResultSet::~TestResultSet()
{
    qDeleteAll(m_results);
}

QSharedPointer<TestProgram> TestResultSet::GetTestProgram() const
{
    return m_program;
}

QSharedPointer<Station> TestResultSet::GetStation() const
{
    return m_station;
}

void TestResultSet::AddResult(TestResult* result)
{
    if (!result || result->m_set)
        return;
    result->m_set = this;
    m_results.append(result);
    if (const TestComponent* const component = result->m_component.get()) {
        TestResult*& current = m_resultForComponent[component];
        if (current)
            current->m_superseded = true;
        current = result;
    }
}

const QList<TestResult*>& TestResultSet::GetResults() const
{
    return m_results;
}

EN_ZYN_RESULT TestResultSet::GetVerdict(const TestComponent* component) const
{
    if (!component)
        return ZYN_RESULT_NOT_TESTED;
    if (const TestResult* const result = GetResult(component))
        return result->GetResult();
    WorstResult worst;
    for (const TestComponent* const child : component->GetChildren())
        worst.Add(GetVerdict(child));
    return worst.Get();
}

long TestResultSet::GetTestIndex() const
{
    return m_testIndex;
}

void TestResultSet::SetTestIndex(long index)
{
    m_testIndex = index;
}

long TestResultSet::GetStationID() const
{
    return m_station ? m_station->id : 0;
}

QString TestResultSet::GetStationDescription() const
{
    return m_station ? m_station->GetDescription() : QString();
}

int TestResultSet::GetFaildStepCount() const
{
    int failed = 0;
    for (int index = 0; m_program && index < m_program->GetGroupCount(); ++index) {
        const auto& group = m_program->GetGroupForIndex(index);
        for (int place = 0; place < group->GetStepCount(); ++place)
            failed += GetVerdict(group->GetStepForIndex(place).data()) < 0;
    }
    return failed;
}

QList<QString> TestResultSet::GetFailedTestGroups() const
{
    QList<QString> idents;
    for (int index = 0; m_program && index < m_program->GetGroupCount(); ++index) {
        const auto& group = m_program->GetGroupForIndex(index);
        if (GetVerdict(group.data()) < 0)
            idents.append(group->GetIdentString());
    }
    return idents;
}

int TestResultSet::GetFailedCount(const TestComponent* component) const
{
    const QList<TestComponent*> children = component ? component->GetChildren() : QList<TestComponent*>();
    return int(std::count_if(children.begin(), children.end(),
                             [this](const TestComponent* child) { return GetVerdict(child) < 0; }));
}

} // namespace ZYN
