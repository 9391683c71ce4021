#include "archive/RunWriter.h"

#include "archive/FailedComponents.h"
#include "archive/RunStatements.h"
#include "archive/SqlValue.h"
#include "archive/StartOfRun.h"

#include <chrono>
#include <cmath>
#include <tuple>

namespace ZYN {

struct RunWriter::Row {
    const Run& run;
    const RunDigest& digest;
    std::int64_t unit = 0;
    std::int64_t start = 0;
    bool isPresent = false;
    int revision = 1;
    std::int64_t replaces = 0; // id of the revision that was current
    bool isFirst = false;
    std::int64_t id = 0;
};

namespace {

// What makes two runs of one unit; the same text for the same unit.
std::string NameOf(const UnitOfRun& unit, const std::string& own)
{
    std::string name;
    for (const std::string& part : {*unit.product, *unit.lot, *unit.serial, *unit.ident, *unit.wafer, own})
        name += std::to_string(part.size()) + ':' + part;
    return name + (unit.isPanel ? '1' : '0');
}

std::string OwnOf(const UnitOfRun& unit, const RunDigest& digest)
{
    return unit.IsAnonymous() ? digest.key.toHex().toStdString() : std::string();
}

} // namespace

RunWriter::RunWriter(Database& database, Keep keep)
    : m_database(database)
    , m_keep(keep)
    , m_style(database.IsPostgreSql() ? ArrayStyle::PostgreSql : ArrayStyle::Json)
    , m_dictionary(database, keep.values)
    , m_summaries(database)
{
    const RunStatements& sql = StatementsFor(database.GetKind());
    m_findUnit = database.Prepare(sql.findUnit);
    m_insertUnit = database.Prepare(sql.insertUnit);
    m_findKnown = database.Prepare(sql.findKnown);
    m_replace = database.Prepare(sql.replace);
    m_dropFailures = database.Prepare(sql.dropFailures);
    m_findEarliest = database.Prepare(sql.findEarliest);
    m_unmark = database.Prepare(sql.unmark);
    m_insertRun = database.Prepare(sql.insertRun);
    m_insertValues = database.Prepare(sql.insertValues);
    m_insertFailure = database.Prepare(sql.insertFailure);
    if (database.IsPostgreSql())
        m_makeMonth = database.Prepare(sql.makeMonth);
}

bool RunWriter::Add(std::span<const Run> runs, AddedRuns* counts)
{
    if (m_keep.operators)
        return AddAll(runs, counts);
    std::vector<Run> nameless(runs.begin(), runs.end());
    for (Run& run : nameless)
        run.operatorName.clear();
    return AddAll(nameless, counts);
}

bool RunWriter::AddAll(std::span<const Run> runs, AddedRuns* counts)
{
    std::vector<RunDigest> digests;
    for (const Run& run : runs)
        digests.push_back(m_digester.Digest(run));
    if (!m_dictionary.Learn(runs) || !MakeMonths(runs))
        return false;
    AddedRuns added;
    const bool isWritten = m_database.InTransaction([&] {
        added = {};
        m_summaries.Forget();
        UnitIds units;
        if (!LockUnits(runs, digests, &units))
            return false;
        for (size_t i = 0; i < runs.size(); ++i) {
            const UnitOfRun unit(runs[i]);
            Row row{.run = runs[i], .digest = digests[i]};
            row.unit = units.at(NameOf(unit, OwnOf(unit, digests[i])));
            row.start = StartOf(runs[i]);
            AddedAs as = AddedAs::New;
            if (!AddRun(row, &as))
                return false;
            added.Count(as);
        }
        return m_summaries.Write();
    });
    if (isWritten && counts)
        *counts = std::move(added);
    return isWritten;
}

// The tables of a server are divided by month.
bool RunWriter::MakeMonths(std::span<const Run> runs)
{
    if (!m_database.IsPostgreSql())
        return true;
    for (const Run& run : runs) {
        if (!run.start)
            continue;
        using namespace std::chrono;
        const year_month_day day(floor<days>(sys_time<milliseconds>(milliseconds(*run.start))));
        const int month = int(day.year()) * 12 + int(unsigned(day.month()));
        if (m_months.contains(month))
            continue;
        const bool isMade = m_database.InTransaction([&] {
            m_makeMonth.addBindValue(qint64(*run.start));
            return m_database.Run(m_makeMonth);
        });
        if (!isMade)
            return false;
        m_months.insert(month);
    }
    return true;
}

// In the same order by whoever adds, so that two that add runs of the same units do not wait for each other.
bool RunWriter::LockUnits(std::span<const Run> runs, const std::vector<RunDigest>& digests, UnitIds* ids)
{
    std::map<std::string, size_t> sorted;
    for (size_t i = 0; i < runs.size(); ++i) {
        const UnitOfRun unit(runs[i]);
        sorted.emplace(NameOf(unit, OwnOf(unit, digests[i])), i);
    }
    for (const auto& [name, i] : sorted) {
        const UnitOfRun unit(runs[i]);
        const std::int64_t id = LockUnit(unit, OwnOf(unit, digests[i]), runs[i].ident);
        if (id == 0)
            return false;
        ids->emplace(name, id);
    }
    return true;
}

std::int64_t RunWriter::LockUnit(const UnitOfRun& unit, const std::string& own, const std::string& seenIdent)
{
    // Found, or made; or found now, as another has made it in between.
    for (QSqlQuery* const query : {&m_findUnit, &m_insertUnit, &m_findUnit}) {
        for (const std::string* text : {unit.product, unit.lot, unit.serial, unit.ident, unit.wafer})
            query->addBindValue(SqlText(*text));
        query->addBindValue(int(unit.isPanel));
        query->addBindValue(SqlText(own));
        if (query == &m_insertUnit)
            query->addBindValue(SqlText(seenIdent));
        if (!m_database.Run(*query))
            return 0;
        const std::int64_t id = query->next() ? query->value(0).toLongLong() : 0;
        query->finish();
        if (id != 0)
            return id;
    }
    return 0;
}

bool RunWriter::AddRun(Row& row, AddedAs* as)
{
    if (!FindKnown(row))
        return false;
    if (row.isPresent) {
        *as = AddedAs::Present;
        return true;
    }
    *as = row.replaces == 0 ? AddedAs::New : AddedAs::Revision;
    if ((row.replaces != 0 && !Replace(row)) || !DecideFirst(row) || !InsertRun(row) || !InsertValues(row) ||
        !InsertFailures(row))
        return false;
    if (m_keep.summaries)
        m_summaries.Add(row.run, m_dictionary.LayoutOf(row.run), m_dictionary.LimitsOf(row.run).toLongLong());
    return true;
}

bool RunWriter::FindKnown(Row& row)
{
    m_findKnown.addBindValue(qint64(row.start));
    m_findKnown.addBindValue(row.digest.key);
    if (!m_database.Run(m_findKnown))
        return false;
    while (m_findKnown.next()) {
        row.isPresent |= m_findKnown.value(1).toByteArray() == row.digest.content;
        row.revision = m_findKnown.value(2).toInt() + 1;
        row.replaces = m_findKnown.value(0).toLongLong(); // the last one is current
        row.isFirst = m_findKnown.value(3).toBool();
    }
    m_findKnown.finish();
    return true;
}

bool RunWriter::Replace(Row& row)
{
    return (!m_keep.summaries || m_summaries.RenewFor(row.start, row.replaces)) &&
           Execute(m_replace, row, row.replaces) && Execute(m_dropFailures, row, row.replaces);
}

bool RunWriter::DecideFirst(Row& row)
{
    if (row.replaces != 0)
        return true; // takes the place of the one that it replaces
    m_findEarliest.addBindValue(qint64(row.unit));
    m_findEarliest.addBindValue(SqlText(row.run.layout->program));
    if (!m_database.Run(m_findEarliest))
        return false;
    if (!m_findEarliest.next()) {
        row.isFirst = true;
    } else {
        const std::tuple earliest(m_findEarliest.value(1).toLongLong(), m_findEarliest.value(2).toInt(),
                                  m_findEarliest.value(3).toInt());
        // Where the first one was removed, those that are left are retests, and so is one that comes late.
        row.isFirst =
            m_findEarliest.value(4).toBool() &&
            std::tuple<qlonglong, int, int>(row.start, row.run.runIndex, row.run.testIndex) < earliest;
    }
    Row other{.run = row.run, .digest = row.digest};
    if (m_findEarliest.isValid()) {
        other.id = m_findEarliest.value(0).toLongLong();
        other.start = m_findEarliest.value(1).toLongLong();
    }
    m_findEarliest.finish();
    return !row.isFirst || other.id == 0 || Execute(m_unmark, other, other.id);
}

bool RunWriter::InsertRun(Row& row)
{
    const Run& run = row.run;
    QSqlQuery& insert = m_insertRun;
    if (m_database.IsPostgreSql())
        insert.addBindValue(SqlText(run.product));
    insert.addBindValue(qint64(row.unit));
    insert.addBindValue(SqlText(run.layout->program));
    insert.addBindValue(qint64(row.start));
    insert.addBindValue(SqlNumber(run.utcOffset));
    insert.addBindValue(run.runIndex);
    insert.addBindValue(run.testIndex);
    insert.addBindValue(run.code);
    insert.addBindValue(int(row.isFirst));
    insert.addBindValue(int(run.isPanel));
    insert.addBindValue(SqlText(run.station));
    for (const std::optional<int>& number : {run.position, run.site, run.x, run.y, run.hardBin, run.softBin})
        insert.addBindValue(SqlNumber(number));
    insert.addBindValue(qint64(m_dictionary.LayoutOf(run)));
    insert.addBindValue(m_dictionary.LimitsOf(run));
    if (!m_database.Run(insert) || !insert.next())
        return false;
    row.id = insert.value(0).toLongLong();
    insert.finish();
    return true;
}

bool RunWriter::InsertValues(const Row& row)
{
    const Run& run = row.run;
    QSqlQuery& insert = m_insertValues;
    if (m_database.IsPostgreSql())
        insert.addBindValue(SqlText(run.product));
    insert.addBindValue(qint64(row.start));
    insert.addBindValue(qint64(row.id));
    insert.addBindValue(row.digest.key);
    insert.addBindValue(row.revision);
    insert.addBindValue(row.digest.content);
    insert.addBindValue(SqlText(run.startText));
    insert.addBindValue(SqlNumber(run.duration));
    for (const std::string* text : {&run.operatorName, &run.panel, &run.source, &run.comment})
        insert.addBindValue(SqlTextOrNull(*text));
    if (m_keep.values) {
        const auto isKnown = [](float seconds) { return std::isfinite(seconds); };
        insert.addBindValue(ArrayOf(run.values, m_style));
        insert.addBindValue(ArrayOf(run.codes, m_style));
        insert.addBindValue(std::any_of(run.seconds.begin(), run.seconds.end(), isKnown)
                                ? ArrayOf(run.seconds, m_style)
                                : QVariant());
        for (const Run::Texts* texts : {&run.texts, &run.comments})
            insert.addBindValue(ObjectOf(*texts));
        insert.addBindValue(m_dictionary.AttributesOf(run));
    } else {
        for (int i = 0; i < 2; ++i)
            insert.addBindValue(ArrayOf(std::vector<double>(), m_style));
        for (int i = 0; i < 4; ++i)
            insert.addBindValue(QVariant());
    }
    return m_database.Run(insert);
}

bool RunWriter::InsertFailures(const Row& row)
{
    const std::vector<FailedComponent> failed = FailedComponents(row.run);
    for (const FailedComponent& component : failed) {
        const double number = row.run.values[component.position];
        BindStart(m_insertFailure, row);
        if (m_database.IsPostgreSql())
            m_insertFailure.addBindValue(SqlText(row.run.product));
        m_insertFailure.addBindValue(qint64(row.id));
        m_insertFailure.addBindValue(int(row.run.codes[component.position]));
        m_insertFailure.addBindValue(std::isfinite(number) ? QVariant(number) : QVariant());
        m_insertFailure.addBindValue(int(component.isFirst));
        m_insertFailure.addBindValue(qint64(m_dictionary.LayoutOf(row.run)));
        m_insertFailure.addBindValue(component.position);
        if (!m_database.Run(m_insertFailure))
            return false;
    }
    return true;
}

void RunWriter::BindStart(QSqlQuery& query, const Row& row) const
{
    if (m_database.IsPostgreSql())
        query.addBindValue(qint64(row.start));
}

bool RunWriter::Execute(QSqlQuery& query, const Row& row, std::int64_t id)
{
    BindStart(query, row);
    query.addBindValue(qint64(id));
    return m_database.Run(query);
}

} // namespace ZYN
