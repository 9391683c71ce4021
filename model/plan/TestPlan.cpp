#include <ZYNCommon/TestPlan.h>

#include <ZYNCommon/TestPlanData.h>
#include <ZYNCommon/TestProgram.h>

#include "PlanApplication.h"

#include <utility>

namespace ZYN {

namespace {

void Replace(TestPlanData*& place, TestPlanData* data)
{
    delete place;
    place = data;
}

/// All components of a program by their ident.
QHash<QString, QList<TestComponent*>> ComponentsByIdent(TestProgram* program)
{
    QHash<QString, QList<TestComponent*>> components;
    QList<TestComponent*> pending{program};
    while (!pending.isEmpty()) {
        TestComponent* const component = pending.takeLast();
        components[component->GetIdentString()].append(component);
        pending += component->GetChildren();
    }
    return components;
}

} // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers are built with this signature
TestPlan::TestPlan(QFileInfo fileInfo)
    : m_fileInfo(fileInfo)
{
}

TestPlan::~TestPlan()
{
    for (const Entry& entry : std::as_const(m_entries)) {
        delete entry.properties;
        delete entry.validation;
        delete entry.attributes;
    }
}

void TestPlan::AddProperties(const QString& key, TestPlanData* data)
{
    if (data && !std::exchange(data->m_isOwned, true))
        Replace(EntryFor(key).properties, data);
}

void TestPlan::AddValidation(const QString& key, TestPlanData* data)
{
    if (data && !std::exchange(data->m_isOwned, true))
        Replace(EntryFor(key).validation, data);
}

void TestPlan::AddAttributes(const QString& key, TestPlanData* data)
{
    if (data && !std::exchange(data->m_isOwned, true))
        Replace(EntryFor(key).attributes, data);
}

QFileInfo TestPlan::GetFileInfo() const
{
    return m_fileInfo;
}

QStringList TestPlan::GetKeys() const
{
    return m_keys;
}

const TestPlanData* TestPlan::GetProperties(const QString& key) const
{
    return m_entries.value(key).properties;
}

const TestPlanData* TestPlan::GetValidation(const QString& key) const
{
    return m_entries.value(key).validation;
}

const TestPlanData* TestPlan::GetAttributes(const QString& key) const
{
    return m_entries.value(key).attributes;
}

TestPlan::Applied TestPlan::ApplyTo(TestProgram* program) const
{
    Applied applied;
    if (!program)
        return applied;
    const QHash<QString, QList<TestComponent*>> components = ComponentsByIdent(program);
    for (const QString& key : m_keys) {
        const QList<TestComponent*> found = components.value(key);
        if (found.isEmpty()) {
            applied.unknownKeys.append(key);
        } else if (found.size() > 1) {
            applied.problems.append(QStringLiteral("ident '%1': %2 components have it, none was changed")
                                        .arg(key, QString::number(found.size())));
        } else {
            const Entry entry = m_entries.value(key);
            PlanApplication application(found.first(), applied.problems);
            if (entry.validation)
                application.SetValidation(*entry.validation);
            if (entry.attributes)
                application.SetAttributes(*entry.attributes);
            if (entry.properties)
                application.SetSwitches(*entry.properties);
            applied.components += application.HasChanged();
        }
    }
    return applied;
}

TestPlan::Entry& TestPlan::EntryFor(const QString& key)
{
    if (!m_entries.contains(key))
        m_keys.append(key);
    return m_entries[key];
}

} // namespace ZYN
