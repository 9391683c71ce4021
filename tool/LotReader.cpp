#include "LotReader.h"

#include "Parallel.h"
#include "ReportFile.h"
#include "Texts.h"

#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>

#include <algorithm>

namespace ZYN::Tool {

namespace {

constexpr qsizetype PresenceShown = 5;

QString NameOf(const TestComponent* component)
{
    return QStringLiteral("%1 %2").arg(component->GetIdentString(), component->GetName());
}

} // namespace

void LotReader::Read(const QList<Input>& inputs, Progress& progress)
{
    m_next = 0;
    ForEachIndex(inputs.size(), AllCores(), [&](qsizetype index) {
        const Input& input = inputs.at(index);
        std::optional<Problem> problem;
        const std::unique_ptr<UUTTest> test = ReadReport(input.path, input.name, &problem);
        TakeOver(index, test.get(), problem);
        progress.Step();
    });
}

// Waiting for the turn bounds the memory: no thread is further ahead than one report.
void LotReader::TakeOver(qsizetype index, UUTTest* test, const std::optional<Problem>& problem)
{
    std::unique_lock lock(m_mutex);
    m_turnTaken.wait(lock, [&] { return m_next == index; });
    if (problem) {
        m_problems.append(*problem);
    } else {
        m_collector.AddUnit(test);
        m_summary.AddReport(test);
        CountVersions(test);
        ++m_reports;
    }
    ++m_next;
    m_turnTaken.notify_all();
}

void LotReader::CountVersions(const UUTTest* test)
{
    const QList<TestResultSet*> sets = test->GetResultSets();
    for (const TestResultSet* const set : sets) {
        if (const auto program = set->GetTestProgram())
            ++m_runsOfProgram[Texts::tr("'%1' version '%2'")
                                  .arg(program->GetDisplayName(), program->GetVersion())];
    }
    const QList<QSharedPointer<UUTTest>> items = test->GetUUTTests();
    for (const auto& item : items)
        CountVersions(item.get());
}

QStringList LotReader::GetRemarks(bool all) const
{
    return RemarksOnPrograms() + RemarksOnPresence(all) + RemarksOnLimits();
}

QStringList LotReader::RemarksOnPrograms() const
{
    QStringList remarks;
    if (m_runsOfProgram.size() > 1) {
        for (auto it = m_runsOfProgram.cbegin(); it != m_runsOfProgram.cend(); ++it)
            remarks += Texts::tr("program %1 in %n runs", nullptr, it.value()).arg(it.key());
    }
    return remarks;
}

QStringList LotReader::RemarksOnPresence(bool all) const
{
    QList<const StatisticsData*> partial;
    for (const StatisticsData* const entry : GetReport()->GetTestData()) {
        if (entry->Size() < m_collector.GetRunCount())
            partial.append(entry);
    }
    const QString runs = QString::number(m_collector.GetRunCount());
    if (!all && partial.size() > PresenceShown) {
        // A program that stops at the first failure leaves all that follows behind.
        const StatisticsData* const fewest = *std::min_element(
            partial.begin(), partial.end(),
            [](const StatisticsData* a, const StatisticsData* b) { return a->Size() < b->Size(); });
        return {Texts::tr("%n components are in some of %1 runs only, %2 in %3; -v lists them", nullptr,
                          int(partial.size()))
                    .arg(runs, NameOf(fewest->GetComponent()), QString::number(fewest->Size()))};
    }
    QStringList remarks;
    for (const StatisticsData* const entry : std::as_const(partial))
        remarks += Texts::tr("%1 is in %2 of %3 runs only")
                       .arg(NameOf(entry->GetComponent()), QString::number(entry->Size()), runs);
    return remarks;
}

QStringList LotReader::RemarksOnLimits() const
{
    QStringList remarks;
    for (const StatisticsData* const entry : GetReport()->GetTestData()) {
        if (entry->HaveLimitsChanged())
            remarks += Texts::tr("the limits of %1 changed within the lot; the newest count")
                           .arg(NameOf(entry->GetComponent()));
    }
    return remarks;
}

} // namespace ZYN::Tool
