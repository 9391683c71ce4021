#pragma once

#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ZYN {
class TestResultSet;
class UUTTest;
} // namespace ZYN

namespace ZYN::Tool {

struct Input;

/// One program executed on one unit once: a result set of a test, or a unit that has a verdict only.
struct LotRun {
    QStringList
        unit; ///< product, lot and serial number, else the ident; a unit without both is one of its own
    QStringList key = {}; ///< the unit, and what tells its runs apart
    bool ofPanel = false; ///< a run of the panel itself, which is no unit
    QString program = {};
    QString version = {};
    QString start = {}; ///< as it is written
    qint64 time = 0;    ///< milliseconds since 1970 UTC; behind all others when the start cannot be read
    int index = 0;      ///< among the runs of its test
    long testIndex = 0;
    EN_ZYN_RESULT code = ZYN_RESULT_NOT_TESTED;
    QString failedIdent = {};           ///< of the first failure
    QString failedPath = {};            ///< empty when nothing failed
    const TestResultSet* set = nullptr; ///< null without values; as long as the report lives
    qsizetype input = 0;                ///< index of the report
};

/// The runs of a report. Any thread.
QList<LotRun> RunsOf(const UUTTest* report, const QString& path);

/// The runs of all reports of a lot, each counted once. Of reports that hold the same run with different
/// contents the last one counts.
class LotRuns {
public:
    /// How the units did in one program.
    struct Yield {
        int units = 0;
        int passed = 0;      ///< with their last run
        int passedFirst = 0; ///< with their first run
    };
    struct Failure {
        QString ident;
        QString path;
        int runs = 0; ///< in which it was what failed first
    };

    explicit LotRuns(const QList<Input>& inputs)
        : m_inputs(inputs)
    {
    }

    /// Takes the runs of the next report over.
    void Add(const QList<LotRun>& runs, qsizetype input);
    /// Whether a report turned out to hold newer contents of runs that were taken before.
    bool HasRevisions() const { return m_hasRevisions; }
    /// Those of a report's runs that another report has as well, and that count there.
    QSet<const TestResultSet*> CountedElsewhere(const QList<LotRun>& runs, qsizetype input) const;

    /// Names of the programs in the order in which they were met; empty for units without runs of a program.
    QStringList GetPrograms() const;
    Yield GetYield(const QString& program) const;
    /// What failed first in how many runs, most first.
    QList<Failure> GetFirstFailures(const QString& program) const;
    /// Number of runs with values.
    int GetRunCount(const QString& program) const;
    /// What is odd about the runs: met twice, serials in several lots, starts that cannot be read, versions.
    QStringList GetRemarks() const;

private:
    /// What a report shares with one before it.
    struct Repetition {
        int runs = 0;
        bool isCopy = false;
    };

    bool SameContent(qsizetype left, qsizetype right);
    QStringList RemarksOnSerials() const;
    QStringList RemarksOnVersions() const;

    const QList<Input>& m_inputs;
    QList<LotRun> m_runs;
    QHash<QStringList, qsizetype> m_indices;                         // of the runs, by key
    QMap<std::pair<qsizetype, qsizetype>, Repetition> m_repetitions; // by report and earlier report
    QStringList m_unreadableStarts;
    bool m_hasRevisions = false;
};

} // namespace ZYN::Tool
