#include <ZYNCommon/TestResultSet.h>

#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>

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

TestResult* TestResultSet::GetResult(const TestComponent* component) const
{
    return m_resultForComponent.value(component);
}

void TestResultSet::AddResult(TestResult* result)
{
    if (!result)
        return;
    result->m_set = this;
    m_results.append(result);
    if (const TestComponent* const component = result->m_component.get())
        m_resultForComponent.insert(component, result);
}

const QList<TestResult*>& TestResultSet::GetResults() const
{
    return m_results;
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
        const auto group = m_program->GetGroupForIndex(index);
        for (int place = 0; place < group->GetStepCount(); ++place) {
            const TestResult* const result = GetResult(group->GetStepForIndex(place).data());
            failed += result && result->GetResult() < 0;
        }
    }
    return failed;
}

QList<QString> TestResultSet::GetFailedTestGroups() const
{
    QList<QString> idents;
    for (int index = 0; m_program && index < m_program->GetGroupCount(); ++index) {
        const auto group = m_program->GetGroupForIndex(index);
        const TestResult* const result = GetResult(group.data());
        if (result && result->GetResult() < 0)
            idents.append(group->GetIdentString());
    }
    return idents;
}

int TestResultSet::GetFailedCount(const TestComponent* component) const
{
    int failed = 0;
    if (!component)
        return failed;
    for (const TestComponent* const child : component->GetChildren()) {
        const TestResult* const result = GetResult(child);
        failed += result && result->GetResult() < 0;
    }
    return failed;
}

} // namespace ZYN
