#pragma once

#include "Inputs.h"
#include "LotSummary.h"
#include "Problem.h"
#include "Progress.h"

#include <ZYNCommon/StatisticsCollector.h>

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>

#include <condition_variable>
#include <mutex>

namespace ZYN::Tool {

/// Reads the reports of a lot on all cores and collects their statistics.
///
/// Reports are parsed side by side but taken over in input order, one at a time, and freed at once: the
/// outcome does not depend on the number of cores, and what stays in memory is the measured values.
class LotReader {
public:
    /// Reads all inputs; what cannot be read becomes a problem, the rest is collected.
    void Read(const QList<Input>& inputs, Progress& progress);

    const QList<Problem>& GetProblems() const { return m_problems; }
    /// Number of reports taken over.
    qsizetype GetReportCount() const { return m_reports; }
    const LotSummary& GetSummary() const { return m_summary; }
    /// The statistics; owned by this object.
    StatisticsDataReport* GetReport() const { return m_collector.GetReport(); }
    /// What is odd about the lot and does not show in the figures: components that only some runs have,
    /// limits that changed, different versions of the program.
    /// \param all false sums up what concerns many components
    QStringList GetRemarks(bool all) const;

private:
    QStringList RemarksOnPrograms() const;
    QStringList RemarksOnPresence(bool all) const;
    QStringList RemarksOnLimits() const;
    void TakeOver(qsizetype index, UUTTest* test, const std::optional<Problem>& problem);
    void CountVersions(const UUTTest* test);

    std::mutex m_mutex;
    std::condition_variable m_turnTaken;
    qsizetype m_next = 0; // index of the input whose turn it is
    StatisticsCollector m_collector;
    LotSummary m_summary;
    QMap<QString, int> m_runsOfProgram; // by name and version
    QList<Problem> m_problems;
    qsizetype m_reports = 0;
};

} // namespace ZYN::Tool
