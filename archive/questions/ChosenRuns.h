#pragma once

#include "archive/Questions.h"

#include <QtCore/QVariant>
#include <QtSql/QSqlQuery>

namespace ZYN {

/// The runs that a filter chooses, as SQL: each question puts its own columns in front.
///
/// In a statement `r` is a current run. `r.unit` and `r.first` are those of the unit that the question is
/// about, which with lots joined stands in several lots; `r.home` is the run's own row in `unit`.
class ChosenRuns {
public:
    /// Which of the runs.
    enum class Of {
        Units, ///< without those of panels
        All
    };

    ChosenRuns(const Archive& archive, const RunFilter& filter, Of of);

    /// "WITH ... SELECT columns FROM runs r joins WHERE chosen AND condition rest", run. \param condition may
    /// be empty \return none where it failed; the archive then says why
    std::optional<QSqlQuery> Select(const QString& columns, const QString& joins = {},
                                    const QString& condition = {}, const QString& rest = {}) const;

    /// Joins: what a run holds of values (`v`), and what failed first in it (`f`), if anything.
    QString JoinValues() const;
    QString JoinFailures() const;
    QString JoinFirstFailure() const;
    QString JoinHome() const;
    /// Milliseconds since 1970 on the tester's clock. Spelt so that a server which asks others sends it to
    /// them: they count, instead of sending their rows.
    static QString TesterClock()
    {
        return QStringLiteral(
            "(r.start + CASE WHEN r.utc_offset IS NULL THEN 0 ELSE r.utc_offset END * 60000)");
    }
    /// Rows in the order of runs.
    static QString InOrder() { return QStringLiteral("r.start, r.run_index, r.test_index, r.id"); }
    /// To be put behind what is grouped by: with the product in it, each of several servers counts its own.
    QString AlsoGroupBy() const;
    /// Conditions for a unit as a whole, whatever runs of it are chosen.
    QString HasRetest() const { return HasRun(QStringLiteral("first = 0")); }
    QString HasRunThatDidNotPass() const { return HasRun(QStringLiteral("code <= 0")); }

private:
    QString HasRun(const QString& condition) const;
    QString IsOneOf(const QString& column, const QString& ids) const;
    void Choose(const RunFilter& filter, Of of);
    void Add(const QString& condition, const QVariantList& values);
    void AddTime(const std::optional<TimeBound>& bound, bool isSince);

    const Archive& m_archive;
    bool m_isPostgreSql;
    QString m_with; // makes the runs of joined units
    QString m_runs;
    QString m_ofProduct; // of a server, a condition where a product is chosen
    QStringList m_conditions;
    QVariantList m_values;
};

/// Runs a statement with what is bound to it; none where it failed, and the archive then says why.
std::optional<QSqlQuery> Ask(const Archive& archive, const QString& sql, const QVariantList& values = {});
/// Whether the rows of a query ended because there are no more; else the archive says why.
bool IsComplete(const Archive& archive, const QSqlQuery& query);

} // namespace ZYN
