#include "lots/LotReader.h"

#include "files/Parallel.h"
#include "kinds/ReportFile.h"
#include "terminal/Texts.h"

#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/UUTTest.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace ZYN::Tool {

namespace {

constexpr qsizetype PresenceShown = 5;

QString NameOf(const StatisticsData* entry)
{
    const QString path = entry->GetPath().isEmpty() ? entry->GetProgramName() : entry->GetPath();
    return QStringLiteral("%1 %2").arg(entry->GetComponent()->GetIdentString(), path);
}

} // namespace

// Calls `take` for one report after the other, in their order. Waiting for the turn bounds the memory: no
// thread is further ahead than one report.
template <typename Take>
void LotReader::ForEachReport(const Take& take)
{
    std::mutex mutex;
    std::condition_variable turnTaken;
    qsizetype next = 0; // index of the input whose turn it is
    ForEachIndex(m_inputs.size(), AllCores(), [&](qsizetype index) {
        const Input& input = m_inputs.at(index);
        std::optional<Problem> problem;
        const std::unique_ptr<UUTTest> test = ReadReport(input.path, input.name, &problem);
        const QList<LotRun> runs = test ? RunsOf(test.get(), input.path) : QList<LotRun>();
        std::unique_lock lock(mutex);
        turnTaken.wait(lock, [&] { return next == index; });
        take(index, test.get(), runs, problem);
        ++next;
        turnTaken.notify_all();
    });
}

void LotReader::Read(Progress& progress)
{
    ForEachReport([&](qsizetype index, const UUTTest* test, const QList<LotRun>& runs,
                      const std::optional<Problem>& problem) {
        if (problem) {
            m_problems.append(*problem);
        } else {
            m_runs.Add(runs, index);
            m_collector.AddUnit(test, m_runs.CountedElsewhere(runs, index));
            ++m_reports;
        }
        progress.Step();
    });
    if (!m_runs.HasRevisions())
        return;
    // Values of runs that are replaced by later reports have been collected: once more, now that this is
    // known.
    m_collector.TakeReport();
    ForEachReport(
        [&](qsizetype index, const UUTTest* test, const QList<LotRun>& runs, const std::optional<Problem>&) {
            m_collector.AddUnit(test, m_runs.CountedElsewhere(runs, index));
        });
}

QStringList LotReader::GetRemarks(bool all) const
{
    return m_runs.GetRemarks() + RemarksOnPresence(all) + RemarksOnLimits();
}

QStringList LotReader::RemarksOnPresence(bool all) const
{
    QStringList remarks;
    for (const QString& program : m_runs.GetPrograms())
        remarks += RemarksOnPresence(program, all);
    return remarks;
}

QStringList LotReader::RemarksOnPresence(const QString& program, bool all) const
{
    const int runCount = m_runs.GetRunCount(program);
    QList<const StatisticsData*> partial;
    for (const StatisticsData* const entry : GetReport()->GetTestData()) {
        if (entry->GetProgramName() == program && entry->Size() < runCount)
            partial.append(entry);
    }
    const QString runs = QString::number(runCount);
    if (!all && partial.size() > PresenceShown) {
        // A program that stops at the first failure leaves all that follows behind.
        const StatisticsData* const fewest = *std::min_element(
            partial.begin(), partial.end(),
            [](const StatisticsData* a, const StatisticsData* b) { return a->Size() < b->Size(); });
        return {Texts::tr("%n components are in some of %1 runs only, %2 in %3; -v lists them", nullptr,
                          int(partial.size()))
                    .arg(runs, NameOf(fewest), QString::number(fewest->Size()))};
    }
    QStringList remarks;
    for (const StatisticsData* const entry : std::as_const(partial))
        remarks +=
            Texts::tr("%1 is in %2 of %3 runs only").arg(NameOf(entry), QString::number(entry->Size()), runs);
    return remarks;
}

QStringList LotReader::RemarksOnLimits() const
{
    QStringList remarks;
    for (const StatisticsData* const entry : GetReport()->GetTestData()) {
        if (entry->HaveLimitsChanged())
            remarks +=
                Texts::tr("the limits of %1 changed within the lot; the file's figures are by the newest")
                    .arg(NameOf(entry));
    }
    return remarks;
}

} // namespace ZYN::Tool
