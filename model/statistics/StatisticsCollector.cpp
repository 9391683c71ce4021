#include <ZYNCommon/StatisticsCollector.h>

#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>

#include "ComponentCopy.h"

#include <QtCore/QStringBuilder>

namespace ZYN {

namespace {

/// The limits of a run: what the value was judged with, else what the component was planned with.
QSharedPointer<ValidationInterface> ValidationOf(const TestResult* result, const TestComponent* component)
{
    if (const auto& validation = result->GetValidation())
        return validation;
    const CtrlValidation* const control = component->GetValidationCtrl();
    return control ? control->GetValidation() : nullptr;
}

/// With the whole path in it, the keys of a report with one long name would take its length times its
/// components.
QString PlaceOf(const QString& parentKey, const TestComponent* component)
{
    return parentKey % QLatin1Char(':') % QString::number(component->id) % QLatin1Char(':') %
           component->GetName();
}

template <class Places>
auto& PlaceAt(Places& places, const QString& name)
{
    auto& place = places[name];
    if (place.key.isEmpty())
        place.key = QString::number(places.size());
    return place;
}

ZYNSession* CopyOf(const ZYNSession* session)
{
    auto* const copy = new ZYNSession;
    copy->SetMachineName(session->GetMachineName());
    copy->SetWorkSpace(session->GetWorkSpace());
    return copy;
}

} // namespace

/// A component on the way from the program down to the one that is added.
struct StatisticsCollector::Branch {
    const Branch* parent;
    const TestComponent* component;
    QString place;

    QStringList Names() const
    {
        QStringList names = parent ? parent->Names() : QStringList();
        names.append(component->GetName());
        return names;
    }
};

StatisticsCollector::StatisticsCollector()
    : m_report(std::make_unique<StatisticsDataReport>())
{
}

StatisticsCollector::~StatisticsCollector() = default;

void StatisticsCollector::AddUnit(const UUTTest* unit)
{
    AddUnit(unit, {});
}

void StatisticsCollector::AddUnit(const UUTTest* unit, const QSet<const TestResultSet*>& without)
{
    if (!unit)
        return;
    if (!m_report->GetSession() && unit->GetSession())
        m_report->SetSession(CopyOf(unit->GetSession()));
    if (!m_report->GetUnitUnderTest())
        m_report->SetUnitUnderTest(unit->GetUnitUnderTest());
    if (!m_report->GetProductType())
        m_report->SetProductType(unit->GetProductType());
    for (const TestResultSet* const resultSet : unit->GetResultSets())
        if (!without.contains(resultSet))
            AddResultSet(resultSet);
    for (const auto& item : unit->GetUUTTests())
        AddUnit(item.data(), without);
}

void StatisticsCollector::AddResultSet(const TestResultSet* resultSet)
{
    const auto program = resultSet ? resultSet->GetTestProgram() : nullptr;
    if (!program)
        return;
    if (!m_report->GetTestProgram())
        m_report->SetTestProgram(ComponentCopy::OfProgram(program.data()));
    ++m_runs;
    AddComponent(resultSet, {nullptr, program.data(), PlaceOf(QString(), program.data())});
}

int StatisticsCollector::GetRunCount() const
{
    return m_runs;
}

StatisticsDataReport* StatisticsCollector::GetReport() const
{
    return m_report.get();
}

std::unique_ptr<StatisticsDataReport> StatisticsCollector::TakeReport()
{
    m_places.clear();
    m_runs = 0;
    return std::exchange(m_report, std::make_unique<StatisticsDataReport>());
}

void StatisticsCollector::AddComponent(const TestResultSet* resultSet, const Branch& branch)
{
    const TestComponent* const component = branch.component;
    if (const TestResult* const result = resultSet->GetResult(component)) {
        StatisticsData* const entry = EntryFor(branch);
        entry->AddValue(result->GetResult(), result->GetValue(), ValidationOf(result, component));
        if (CtrlValidation* const control = entry->GetComponent()->GetValidationCtrl())
            control->SetValidation(entry->GetValidation());
    }
    const QList<TestComponent*> children = component->GetChildren();
    if (children.isEmpty())
        return;
    const QString key = PlaceAt(m_places, branch.place).key; // a copy: places move while others are added
    for (const TestComponent* const child : children)
        AddComponent(resultSet, {&branch, child, PlaceOf(key, child)});
}

StatisticsData* StatisticsCollector::EntryFor(const Branch& branch)
{
    Place& place = PlaceAt(m_places, branch.place);
    if (place.run != m_runs) {
        place.run = m_runs;
        place.met = 0;
    }
    if (place.met == place.entries.size()) {
        auto* const entry = new StatisticsData(ComponentCopy::Of(branch.component));
        place.entries.append(entry);
        entry->SetPath(branch.Names(), int(place.entries.size()));
        m_report->AddTestData(entry);
    }
    return place.entries.at(place.met++);
}

} // namespace ZYN
