#pragma once

#include "archive/ArchiveGlobal.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/// \file
/// The questions that an archive answers, as plain records. Each asks an open archive on its thread; where it
/// cannot be answered there is no answer and `Archive::GetErrorText` says why.

namespace ZYN {

class Archive;

/// A point in time that runs are chosen by.
struct TimeBound {
    std::int64_t at = 0; ///< ms since 1970
    /// Compared with what the tester's clock showed, as days and hours are: the time stands without an
    /// offset. Else in UTC.
    bool byTesterClock = false;
};

/// Which runs a question is about; an empty text or list means all.
struct RunFilter {
    QString product, lot, station, program;
    QString serial;                 ///< that of the unit or panel, else its ident
    std::optional<TimeBound> since; ///< runs that start then or later
    std::optional<TimeBound> until; ///< runs that start before
    bool acrossLots = false;        ///< a serial of one product in several lots is one unit
    bool ofOneLot = false;          ///< product and lot choose runs where they are empty, too
};

enum class GroupBy { Product, Lot, Station, Program, Position, Site, Wafer, Bin, Hour, Day, Week, Month };

/// What groups are called in answers, in the order of `GroupBy`: "product", ...
ZYNARCHIVE_EXPORT QStringList GroupNames();

/// The text of a result's code, as reports write it: "PASS", "FAIL", "CODE 42".
ZYNARCHIVE_EXPORT QString VerdictOf(int code);

/// Names and values of a group, in the order that they were asked for; the program first where the chosen
/// runs are of several programs.
using AnswerGroup = std::vector<std::pair<QString, QString>>;

struct YieldRow {
    AnswerGroup group;
    std::int64_t units = 0;     ///< with a run among the chosen
    std::int64_t firstRuns = 0; ///< units whose first run is among the chosen
    std::int64_t firstPass = 0; ///< of these, passed
    std::int64_t passed = 0;    ///< units whose last chosen run passed
    std::int64_t runs = 0, runsPassed = 0, failed = 0, aborted = 0, errors = 0, notTested = 0; ///< of runs
};

struct FailureRow {
    AnswerGroup group; ///< the program, where the chosen runs are of several
    QString ident, path;
    std::int64_t first = 0; ///< runs whose first failure it is
    std::int64_t all = 0;   ///< runs in which it failed
    double share = 0;       ///< of all first failures
};

/// Where a run stands in what it was read from.
struct SourcePlace {
    QString source; ///< name of the file
    bool isPanel = false;
    std::optional<int> position; ///< on the panel
    int runIndex = 0;            ///< number among the runs of its unit there, from 0
};

/// Where something began.
struct RunPlace {
    QString serial, lot, start;
};

struct Drift {
    QString kind;      ///< "trend" or "step"
    double p = 1;      ///< corrected (Holm)
    double sigmas = 0; ///< its size, signed
    RunPlace since;
    std::size_t index = 0; ///< number of the value where it began, in order of time
};

struct RuleHit {
    int rule = 0; ///< of Nelson: 1, 2 or 3
    RunPlace since;
    std::size_t index = 0; ///< number of the value where it began, in order of time
};

struct MeasuredValue {
    QString serial, lot, start;
    double value = 0;
    QString verdict;
    int code = 0;
};

/// What people need beside a number to read it.
struct NumberStyle {
    int factor = 0;   ///< power of ten of the prefix that people see it with
    int unitCode = 0; ///< code of the unit; 25 hexadecimal, 26 binary
    /// What the lower limit is compared with: "==" is the one good value, "!=" the one bad one.
    QString lowerOperator;
};

/// Figures of one measurement under one set of limits. Those that do not exist are empty.
struct MeasureRow {
    AnswerGroup group; ///< the program, where the chosen runs are of several
    QString ident, path, unit;
    std::optional<double> lower, upper;
    std::int64_t count = 0; ///< finite numbers
    std::optional<double> mean, sigma, min, max, cpk, cpkPassed;
    std::int64_t failed = 0;
    std::int64_t notNumbers = 0; ///< not-a-number and infinities
    std::optional<Drift> drift;
    std::vector<RuleHit> rules;
    NumberStyle style;
    std::vector<MeasuredValue> values; ///< finite ones, in order of time; only where asked for
};

struct UnitRow {
    AnswerGroup group; ///< the program, where the chosen runs are of several
    QString product, lot;
    QString serial; ///< else the ident
    QString program;
    std::int64_t runs = 0;
    int firstCode = 0, code = 0;
    QString firstFailure;              ///< path; empty where its last failed run has none
    std::optional<double> failedValue; ///< what was measured there
    QString failedUnit;                ///< of the value
    NumberStyle failedStyle;
};

/// When the first and the last of the chosen runs began, as reports write it; empty where there are none.
struct RunSpan {
    QString first, last;
};

/// A unit with a place on a wafer, and what its last chosen run came to.
struct DieRow {
    QString wafer;
    int x = 0, y = 0;
    int code = 0;
    std::optional<int> hardBin;
};

struct FirstFailure {
    QString path;
    std::optional<double> value;
    QString unit;
    std::optional<double> lower, upper;
    NumberStyle style;
};

struct HistoryRow {
    QString product, serial, lot, station, start, program, verdict;
    int code = 0;
    std::int64_t run = 0; ///< number of this program's run among the chosen ones of the unit, from 1
    std::optional<FirstFailure> firstFailure;
};

/// Whether a measurement is meant by a name: its own, its ident, its path or the end of that.
ZYNARCHIVE_EXPORT bool FitsMeasurement(const QString& name, const QString& ident, const QString& path);

/// A run that something was measured in.
struct MeasuredRun {
    RunPlace place;
    std::optional<std::int64_t> start = {}; ///< ms since 1970, UTC; none if it cannot be read
};

/// What was measured of one component under one set of limits, as arrays: what stands at one index of them
/// belongs together, in order of time.
struct ValueSeries {
    AnswerGroup group; ///< the program, where the chosen runs are of several
    QString ident, path, unit;
    std::optional<double> lower, upper;
    std::vector<double> values; ///< finite ones, in the unit
    std::vector<std::int16_t> codes;
    std::vector<std::uint32_t> runs; ///< index in `ValueArrays::runs`
};

struct ValueArrays {
    std::vector<ValueSeries> series; ///< in the order that they first appear
    std::vector<MeasuredRun> runs;   ///< all the chosen ones, in order of time
};

struct MeasureOptions {
    QStringList names; ///< names, idents or paths; empty: all, lowest CPK first
    bool values = false;
    /// A row for each group, by path and group: figures only, without values, drift and rules.
    std::vector<GroupBy> by = {};
};

struct UnitOptions {
    bool failed = false;
    bool retested = false;
};

ZYNARCHIVE_EXPORT std::optional<std::vector<YieldRow>>
AskYield(const Archive& archive, const RunFilter& filter, const std::vector<GroupBy>& by);
ZYNARCHIVE_EXPORT std::optional<std::vector<FailureRow>> AskFailures(const Archive& archive,
                                                                     const RunFilter& filter, bool all);
ZYNARCHIVE_EXPORT std::optional<std::vector<MeasureRow>>
AskMeasures(const Archive& archive, const RunFilter& filter, const MeasureOptions& options);

/// What was measured of one row, in order of time: finite numbers and the codes of their verdicts.
struct MeasuredNumbers {
    std::span<const double> values;
    std::span<const std::int16_t> codes; ///< as many
};

/// All measurements, lowest CPK first, with what was measured as numbers: as records of `AskMeasures` these
/// take ten times the memory.
class ZYNARCHIVE_EXPORT MeasureAnswer {
public:
    MeasureAnswer();
    ~MeasureAnswer();
    MeasureAnswer(const MeasureAnswer&) = delete;
    MeasureAnswer& operator=(const MeasureAnswer&) = delete;

    /// \return false where the archive cannot answer
    bool Ask(const Archive& archive, const RunFilter& filter);
    /// Without values.
    const std::vector<MeasureRow>& GetRows() const;
    /// Borrowed: valid as long as this answer.
    MeasuredNumbers NumbersOf(std::size_t row) const;
    /// Of which unit a number of a row is, and when it was measured.
    const RunPlace& PlaceOf(std::size_t row, std::size_t number) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// The values of measurements, for programs that compute with them.
/// \param names names, idents or paths; empty: all
ZYNARCHIVE_EXPORT std::optional<ValueArrays> AskValues(const Archive& archive, const RunFilter& filter,
                                                       const QStringList& names);

ZYNARCHIVE_EXPORT std::optional<RunSpan> AskSpan(const Archive& archive, const RunFilter& filter);
/// Units with a place on a wafer, by wafer, y and x.
ZYNARCHIVE_EXPORT std::optional<std::vector<DieRow>> AskDies(const Archive& archive, const RunFilter& filter);
ZYNARCHIVE_EXPORT std::optional<std::vector<UnitRow>>
AskUnits(const Archive& archive, const RunFilter& filter, const UnitOptions& options);
ZYNARCHIVE_EXPORT std::optional<std::vector<HistoryRow>> AskHistory(const Archive& archive,
                                                                    const RunFilter& filter);
/// Names, idents and paths of the measurements that the archive knows, sorted; for suggestions.
ZYNARCHIVE_EXPORT std::optional<QStringList> AskMeasurementNames(const Archive& archive);
/// Serials, else idents, of all units and panels; for suggestions.
ZYNARCHIVE_EXPORT std::optional<QStringList> AskSerials(const Archive& archive);
/// Where the runs stand that count; those that another account replaced, and copies, are left out.
ZYNARCHIVE_EXPORT std::optional<std::vector<SourcePlace>> AskPlaces(const Archive& archive);
/// Sentences about what is odd with the chosen runs: a serial in two lots, starts that cannot be read.
ZYNARCHIVE_EXPORT std::optional<QStringList> AskNotes(const Archive& archive, const RunFilter& filter);

} // namespace ZYN
