#pragma once

#include "archive/Dictionary.h"
#include "archive/RunDigest.h"
#include "archive/SummaryWriter.h"
#include "archive/UnitOfRun.h"

#include <map>
#include <set>

namespace ZYN {

/// Puts runs into an archive. Knows what a run is the same as, which one is current and which the first.
class RunWriter {
public:
    struct Keep {
        bool values = true;    ///< else the arrays stay empty
        bool operators = true; ///< their names
        bool summaries = true; ///< of an archive that lives for one question there are none
    };
    RunWriter(Database& database, Keep keep);

    bool Add(std::span<const Run> runs, AddedRuns* counts);

private:
    bool AddAll(std::span<const Run> runs, AddedRuns* counts);
    struct Row;                                          // of a run, while it is added
    using UnitIds = std::map<std::string, std::int64_t>; // by what makes them the same

    bool MakeMonths(std::span<const Run> runs);
    bool LockUnits(std::span<const Run> runs, const std::vector<RunDigest>& digests, UnitIds* ids);
    std::int64_t LockUnit(const UnitOfRun& unit, const std::string& own, const std::string& seenIdent);
    bool AddRun(Row& row, AddedAs* as);
    bool FindKnown(Row& row);
    bool Replace(Row& row);
    bool DecideFirst(Row& row);
    bool InsertRun(Row& row);
    bool InsertValues(const Row& row);
    bool InsertFailures(const Row& row);
    /// The tables of a server are divided by month, so that a row is found by its start and id.
    void BindStart(QSqlQuery& query, const Row& row) const;
    bool Execute(QSqlQuery& query, const Row& row, std::int64_t id);

    Database& m_database;
    const Keep m_keep;
    const ArrayStyle m_style;
    Dictionary m_dictionary;
    RunDigester m_digester;
    SummaryWriter m_summaries;
    QSqlQuery m_findUnit, m_insertUnit, m_findKnown, m_replace, m_dropFailures, m_findEarliest, m_unmark,
        m_insertRun, m_insertValues, m_insertFailure, m_makeMonth;
    std::set<int> m_months; // of which there are tables: year * 12 + month
};

} // namespace ZYN
