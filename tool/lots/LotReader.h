#pragma once

#include "files/Inputs.h"
#include "lots/LotRuns.h"
#include "terminal/Problem.h"
#include "terminal/Progress.h"

#include <ZYNCommon/StatisticsCollector.h>

#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN::Tool {

/// Reads the reports of a lot on all cores and collects their statistics.
///
/// Reports are parsed side by side but taken over in input order, one at a time, and freed at once: the
/// outcome does not depend on the number of cores, and what stays in memory is the measured values.
class LotReader {
public:
    /// \param inputs must outlive this object
    explicit LotReader(const QList<Input>& inputs)
        : m_inputs(inputs)
        , m_runs(inputs)
    {
    }

    /// Reads all inputs; what cannot be read becomes a problem, the rest is collected.
    void Read(Progress& progress);

    const QList<Problem>& GetProblems() const { return m_problems; }
    /// Number of reports taken over.
    qsizetype GetReportCount() const { return m_reports; }
    const LotRuns& GetRuns() const { return m_runs; }
    /// The statistics; owned by this object.
    StatisticsDataReport* GetReport() const { return m_collector.GetReport(); }
    /// What is odd about the lot and does not show in the figures: what the runs tell, components that only
    /// some runs have, limits that changed. \param all false sums up what concerns many components
    QStringList GetRemarks(bool all) const;

private:
    QStringList RemarksOnPresence(bool all) const;
    QStringList RemarksOnLimits() const;
    QStringList RemarksOnPresence(const QString& program, bool all) const;
    template <typename Take>
    void ForEachReport(const Take& take);

    const QList<Input>& m_inputs;
    StatisticsCollector m_collector;
    LotRuns m_runs;
    QList<Problem> m_problems;
    qsizetype m_reports = 0;
};

} // namespace ZYN::Tool
