#pragma once

#include "files/Inputs.h"
#include "lots/CountedSets.h"
#include "terminal/Problem.h"
#include "terminal/Progress.h"

#include <ZYNCommon/StatisticsCollector.h>

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>

namespace ZYN::Tool {

/// Reads reports and STDF lots on all cores and collects their statistics.
///
/// Reports are parsed side by side but taken over in input order, one at a time, and freed at once: the
/// outcome does not depend on the number of cores, and what stays in memory is the measured values.
class LotReader {
public:
    /// \param inputs must outlive this object \param counted which of their result sets are collected
    LotReader(const QList<Input>& inputs, const CountedSets& counted)
        : m_inputs(inputs)
        , m_counted(counted)
    {
    }

    /// Reads all inputs; what cannot be read becomes a problem, the rest is collected.
    void Read(Progress& progress);

    const QList<Problem>& GetProblems() const { return m_problems; }
    /// Number of reports taken over.
    qsizetype GetReportCount() const { return m_reports; }
    /// The statistics; owned by this object.
    StatisticsDataReport* GetReport() const { return m_collector.GetReport(); }
    /// What is odd about the lot and does not show in the figures: versions of programs, components that only
    /// some runs have, limits that changed. \param all false sums up what concerns many components
    QStringList GetRemarks(bool all) const;

private:
    struct Report;
    void Collect(const Report& report);
    QStringList RemarksOnVersions() const;
    QStringList RemarksOnPresence(const QString& program, int runs, bool all) const;
    QStringList RemarksOnLimits() const;
    template <typename Take>
    void ForEachReport(const Take& take, Progress& progress);
    template <typename Take>
    void TakeLot(const Input& input, const Take& take);

    const QList<Input>& m_inputs;
    const CountedSets& m_counted;
    StatisticsCollector m_collector;
    QMap<QString, QMap<QString, int>> m_runs; // number of those collected, by program and version
    QSet<QString> m_sources;
    QList<Problem> m_problems;
    qsizetype m_reports = 0;
};

} // namespace ZYN::Tool
