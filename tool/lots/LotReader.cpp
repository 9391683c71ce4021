#include "lots/LotReader.h"

#include "files/Parallel.h"
#include "kinds/ReportFile.h"
#include "lots/LotUnits.h"
#include "terminal/Texts.h"

#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <numeric>

namespace ZYN::Tool {

namespace {

constexpr qsizetype presenceShown = 5;

QString NameOf(const StatisticsData* entry)
{
    const QString path = entry->GetPath().isEmpty() ? entry->GetProgramName() : entry->GetPath();
    return QStringLiteral("%1 %2").arg(entry->GetComponent()->GetIdentString(), path);
}

} // namespace

struct LotReader::Report {
    QString source;
    QSharedPointer<UUTTest> test = {};
    QSet<const TestResultSet*> elsewhere = {}; // result sets that count in another report
    std::optional<Problem> problem = {};
};

// Calls `take` for one report after the other, in their order. Waiting for the turn bounds the memory: no
// thread is further ahead than one report.
template <typename Take>
void LotReader::ForEachReport(const Take& take, Progress& progress)
{
    std::mutex mutex;
    std::condition_variable turnTaken;
    qsizetype next = 0; // index of the input whose turn it is
    ForEachIndex(m_inputs.size(), AllCores(), [&](qsizetype index) {
        const Input& input = m_inputs.at(index);
        const bool isLot = IsLot(input);
        Report report{.source = input.name};
        if (!isLot)
            report.test.reset(ReadReport(input.path, input.name, &report.problem).release());
        if (report.test)
            report.elsewhere = m_counted.CountedElsewhere(*report.test, input.name);
        std::unique_lock lock(mutex);
        turnTaken.wait(lock, [&] { return next == index; });
        if (m_sources.contains(input.name)) // the same file, named twice
            ++m_reports;
        else if (isLot)
            TakeLot(input, take);
        else
            take(report);
        m_sources.insert(input.name);
        progress.Step();
        ++next;
        turnTaken.notify_all();
    });
}

// The parts of an STDF lot, each as a report.
template <typename Take>
void LotReader::TakeLot(const Input& input, const Take& take)
{
    Report last{.source = input.name};
    last.problem = ForEachUnits(input, [&](const std::vector<LotUnit>& units) {
        for (const LotUnit& unit : units)
            take({.source = input.name, .test = unit.test});
    });
    take(last);
}

void LotReader::Read(Progress& progress)
{
    ForEachReport([&](const Report& report) { Collect(report); }, progress);
}

void LotReader::Collect(const Report& report)
{
    if (report.problem)
        m_problems.append(*report.problem);
    if (!report.test)
        return;
    ++m_reports;
    m_collector.AddUnit(report.test.get(), report.elsewhere);
    const auto count = [&](const UUTTest& test) {
        for (const TestResultSet* const set : test.GetResultSets())
            if (const auto program = set->GetTestProgram(); program && !report.elsewhere.contains(set))
                ++m_runs[program->GetName()][program->GetVersion()];
    };
    count(*report.test);
    for (const auto& item : report.test->GetUUTTests())
        count(*item);
}

QStringList LotReader::GetRemarks(bool all) const
{
    QStringList remarks = RemarksOnVersions();
    for (const auto& [program, versions] : m_runs.asKeyValueRange())
        remarks += RemarksOnPresence(program, std::accumulate(versions.cbegin(), versions.cend(), 0), all);
    return remarks + RemarksOnLimits();
}

QStringList LotReader::RemarksOnVersions() const
{
    QStringList remarks;
    for (const auto& [program, versions] : m_runs.asKeyValueRange())
        for (const auto& [version, runs] : versions.asKeyValueRange())
            if (m_runs.size() > 1 || versions.size() > 1)
                remarks +=
                    Texts::tr("program '%1' version '%2' in %n runs", nullptr, runs).arg(program, version);
    return remarks;
}

QStringList LotReader::RemarksOnPresence(const QString& program, int runCount, bool all) const
{
    QList<const StatisticsData*> partial;
    for (const StatisticsData* const entry : GetReport()->GetTestData()) {
        if (entry->GetProgramName() == program && entry->Size() < runCount)
            partial.append(entry);
    }
    const QString runs = QString::number(runCount);
    if (!all && partial.size() > presenceShown) {
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
