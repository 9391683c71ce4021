#pragma once

#include "archive/Database.h"
#include "archive/SummaryCell.h"

#include <map>
#include <set>

namespace ZYN {

/// Keeps the summaries true while runs come, are replaced and go.
///
/// What is told to it is written by `Write`, in the transaction that writes the runs: each row of a summary
/// is locked, in one order for all who write, so that others wait for each other and none is lost.
class SummaryWriter {
public:
    explicit SummaryWriter(Database& database);

    void Forget();
    /// A run that came. \param layout, limits their ids
    void Add(const Run& run, qint64 layout, qint64 limits);
    /// Runs of this row were replaced or removed: it is made anew from those that are left.
    void Renew(const SummaryKey& key) { m_renewed.insert(key); }
    /// The row that a run belongs to which the archive holds. \return false where it cannot be read
    bool RenewFor(std::int64_t start, std::int64_t run);
    bool Write();
    /// Makes all of them, of an archive that has none.
    bool MakeAll();

private:
    bool WriteCell(const SummaryKey& key, const SummaryCell& cell);
    /// Its id, locked; 0 where there is none, -1 where that is not known.
    qint64 Find(const SummaryKey& key, SummaryCell* cell);
    /// Whether it was written: another may have made it in the meantime.
    bool Insert(const SummaryKey& key, const SummaryCell& cell, bool* isWritten);
    bool Replace(qint64 id, const SummaryCell& cell);
    /// Adds what a statement gives. \return how many rows
    std::optional<int> AddAll(const QString& sql);
    bool ReadRuns(const SummaryKey& key, SummaryCell* cell);

    Database& m_database;
    const ArrayStyle m_style;
    QSqlQuery m_find, m_insert, m_update, m_remove, m_runs, m_keyOfRun;
    std::map<SummaryKey, SummaryCell> m_cells;
    std::set<SummaryKey> m_renewed;
};

} // namespace ZYN
