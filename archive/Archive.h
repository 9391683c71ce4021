#pragma once

#include "archive/ArchiveGlobal.h"
#include "runs/Run.h"

#include <QtCore/QString>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

class QSqlDatabase;

namespace ZYN {

struct TimeBound;

/// What became of a run that was handed to an archive.
enum class AddedAs : std::uint8_t {
    New,
    Present, ///< there already, with the same content
    Revision ///< there already with another content, which is kept but no longer current
};

/// What became of runs that were handed to an archive.
struct AddedRuns {
    std::int64_t added = 0;   ///< new
    std::int64_t present = 0; ///< there already
    std::int64_t revised = 0;
    std::vector<AddedAs> each; ///< of each run, in their order

    void Count(AddedAs as)
    {
        ++(as == AddedAs::New ? added : as == AddedAs::Present ? present : revised);
        each.push_back(as);
    }
};

/// A database of runs: a SQLite file, a PostgreSQL server, or one that lives as long as the object.
///
/// An object belongs to the thread that opened it. Operations answer false and keep an error text that says
/// what is wrong and what to do; what was committed before stays.
class ZYNARCHIVE_EXPORT Archive {
public:
    enum class Mode { ReadOnly, ReadWrite };

    Archive();
    ~Archive();
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;

    /// Whether the text names an archive: a file name that ends in ".zya", or "postgresql://...".
    static bool IsArchive(const QString& url);

    /// Makes a new, empty archive and opens it. An existing one is left alone: false.
    bool Create(const QString& url);
    bool Open(const QString& url, Mode mode);
    /// An archive without a name, gone with the object; it spills to disk by itself.
    /// \param keepValues false for questions that need no measured values
    bool OpenTemporary(bool keepValues);
    /// Brings an older archive to this version, in one transaction.
    bool Upgrade(const QString& url);

    /// Whether the names of operators are kept of runs that are added from now on: yes, if it is not said.
    void SetKeepsOperators(bool keeps);

    /// Adds runs in one transaction: all of them or, with an error, none.
    /// \param counts set to what became of them; may be null
    bool Add(std::span<const Run> runs, AddedRuns* counts);

    /// Adds what lots call their bins, in one transaction. Names that are there already change nothing; where
    /// a lot calls a bin by several, all are kept.
    bool AddBins(std::span<const LotBin> bins);

    /// Removes runs that started before a time, in one transaction, and units that have none left. What is
    /// left keeps its place: a retest does not become a first run. \param removed set to the number of runs;
    /// may be null
    bool RemoveBefore(const TimeBound& time, std::int64_t* removed);

    /// What is wrong and what to do, in one sentence; never holds a password.
    QString GetErrorText() const;
    /// Whether the last `Add` or `AddBins` failed because of what stands in it: others may well be added.
    bool IsFaultOfRuns() const;

    /// What the archive is called in messages; never holds a password.
    QString GetShownUrl() const;
    /// For the questions: the open connection.
    QSqlDatabase GetDatabase() const;
    bool IsPostgreSql() const;
    /// Whether it keeps figures by day; one without a name does not.
    bool HasSummaries() const;
    /// Keeps an error text; for the questions.
    void SetErrorText(const QString& text) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace ZYN
