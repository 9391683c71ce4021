#include "lots/LotRuns.h"

#include "files/Inputs.h"
#include "kinds/FirstFailure.h"
#include "terminal/Texts.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QDateTime>
#include <QtCore/QFile>

#include <algorithm>
#include <limits>
#include <tuple>

namespace ZYN::Tool {

namespace {

constexpr int ProductOfUnit = 0;
constexpr int LotOfUnit = 1;
constexpr int SerialOfUnit = 2; // empty without one; the ident follows

QString ContentHash(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const bool read = file.open(QIODevice::ReadOnly) && hash.addData(&file);
    return read ? QString::fromLatin1(hash.result().toHex()) : QString();
}

// What an item takes from its panel unless it has its own.
struct Surroundings {
    QString product;
    QString lot;
    QString start; // as it is written
    QDateTime time;
    QString position; // on the panel, which may lie on another one

    Surroundings Of(const UUTTest* test) const
    {
        Surroundings own = *this;
        const auto replace = [](QString* text, const QString& by) { *text = by.isEmpty() ? *text : by; };
        if (const auto type = test->GetProductType())
            replace(&own.product, type->GetName());
        if (const auto productionLot = test->GetProductionLot())
            replace(&own.lot, productionLot->GetName());
        if (!test->GetStartTimeString().isEmpty()) {
            own.start = test->GetStartTimeString();
            own.time = test->GetStartTime();
        }
        return own;
    }
};

class RunCollector {
public:
    explicit RunCollector(const QString& path)
        : m_path(path)
    {
    }

    QList<LotRun> Collect(const UUTTest* report)
    {
        AddTest(report, {});
        return m_runs;
    }

private:
    void AddTest(const UUTTest* test, const Surroundings& above)
    {
        const Surroundings own = above.Of(test);
        const QList<QSharedPointer<UUTTest>> items = test->GetUUTTests();
        LotRun run{.unit = UnitOf(test, own), .ofPanel = !items.isEmpty(), .start = own.start};
        run.time = own.time.isValid() ? own.time.toMSecsSinceEpoch() : std::numeric_limits<qint64>::max();
        const QList<TestResultSet*> sets = test->GetResultSets();
        for (run.index = 0; run.index < sets.size(); ++run.index)
            AddRun(run, test, sets.at(run.index), own.position);
        if (sets.isEmpty() && items.isEmpty())
            AddRun(run, test, nullptr, own.position);

        for (qsizetype i = 0; i < items.size(); ++i) {
            Surroundings item = own;
            item.position += QStringLiteral(".%1").arg(i);
            AddTest(items.at(i).get(), item);
        }
    }

    QStringList UnitOf(const UUTTest* test, const Surroundings& own)
    {
        const auto unit = test->GetUnitUnderTest();
        const QString serial = unit ? unit->GetSerialNo() : QString();
        const QString ident = unit ? unit->GetIdentString() : QString();
        if (!serial.isEmpty())
            return {own.product, own.lot, serial};
        if (!ident.isEmpty())
            return {own.product, own.lot, QString(), ident};
        // Nothing tells it from another one but the report that it stands in.
        if (m_hash.isEmpty())
            m_hash = ContentHash(m_path);
        return {own.product, own.lot, QString(), QString(), m_hash, own.position};
    }

    void AddRun(LotRun run, const UUTTest* test, const TestResultSet* set, const QString& position)
    {
        const auto program = set ? set->GetTestProgram() : nullptr;
        const TestResult* const verdict = program ? set->GetResult(program.get()) : nullptr;
        run.code = verdict ? verdict->GetResult() : test->GetResult();
        if (program) {
            run.set = set;
            run.program = program->GetName();
            run.version = program->GetVersion();
            run.testIndex = set->GetTestIndex();
            const FirstFailure failure = FirstFailureOf(set);
            if (failure.component) {
                run.failedIdent = failure.component->GetIdentString();
                run.failedPath = failure.path;
            }
        }
        run.key = run.unit + QStringList{run.program, run.start, QString::number(run.index), position};
        m_runs.append(run);
    }

    const QString m_path;
    QString m_hash;
    QList<LotRun> m_runs;
};

bool Before(const LotRun* left, const LotRun* right)
{
    return std::tie(left->time, left->index, left->testIndex) <
           std::tie(right->time, right->index, right->testIndex);
}

} // namespace

QList<LotRun> RunsOf(const UUTTest* report, const QString& path)
{
    return RunCollector(path).Collect(report);
}

void LotRuns::Add(const QList<LotRun>& runs, qsizetype input)
{
    for (LotRun run : runs) {
        run.input = input;
        if (run.time == std::numeric_limits<qint64>::max() && !run.start.isEmpty())
            m_unreadableStarts.append(Texts::tr("%1: the start '%2' cannot be read; the run comes last")
                                          .arg(m_inputs.at(input).name, run.start));
        const auto known = m_indices.constFind(run.key);
        if (known == m_indices.cend()) {
            m_indices.insert(run.key, m_runs.size());
            m_runs.append(run);
            continue;
        }
        LotRun& earlier = m_runs[*known];
        Repetition& repetition = m_repetitions[{input, earlier.input}];
        if (++repetition.runs == 1)
            repetition.isCopy = SameContent(input, earlier.input);
        if (!repetition.isCopy) {
            m_hasRevisions = true;
            earlier = run;
        }
    }
    m_unreadableStarts.removeDuplicates();
}

bool LotRuns::SameContent(qsizetype left, qsizetype right)
{
    const QString hash = ContentHash(m_inputs.at(left).path);
    return !hash.isEmpty() && hash == ContentHash(m_inputs.at(right).path);
}

QSet<const TestResultSet*> LotRuns::CountedElsewhere(const QList<LotRun>& runs, qsizetype input) const
{
    QSet<const TestResultSet*> sets;
    for (const LotRun& run : runs)
        if (m_runs.at(m_indices.value(run.key)).input != input)
            sets.insert(run.set);
    return sets;
}

QStringList LotRuns::GetPrograms() const
{
    QStringList programs;
    for (const LotRun& run : m_runs)
        if (!programs.contains(run.program))
            programs.append(run.program);
    return programs;
}

LotRuns::Yield LotRuns::GetYield(const QString& program) const
{
    struct Ends {
        const LotRun* first;
        const LotRun* last;
    };
    QHash<QStringList, Ends> units;
    for (const LotRun& run : m_runs) {
        if (run.ofPanel || run.program != program)
            continue;
        const auto unit = units.find(run.unit);
        if (unit == units.end()) {
            units.insert(run.unit, {&run, &run});
            continue;
        }
        if (Before(&run, unit->first))
            unit->first = &run;
        if (!Before(&run, unit->last))
            unit->last = &run;
    }
    Yield yield{.units = int(units.size())};
    for (const Ends& ends : std::as_const(units)) {
        yield.passed += ends.last->code > 0;
        yield.passedFirst += ends.first->code > 0;
    }
    return yield;
}

QList<LotRuns::Failure> LotRuns::GetFirstFailures(const QString& program) const
{
    QList<Failure> failures;
    QHash<QStringList, qsizetype> indices;
    for (const LotRun& run : m_runs) {
        if (run.failedPath.isEmpty() || run.program != program)
            continue;
        const QStringList key{run.failedIdent, run.failedPath};
        if (!indices.contains(key)) {
            indices.insert(key, failures.size());
            failures.append({run.failedIdent, run.failedPath, 0});
        }
        ++failures[indices.value(key)].runs;
    }
    std::stable_sort(failures.begin(), failures.end(),
                     [](const Failure& a, const Failure& b) { return a.runs > b.runs; });
    return failures;
}

int LotRuns::GetRunCount(const QString& program) const
{
    return int(std::count_if(m_runs.cbegin(), m_runs.cend(),
                             [&](const LotRun& run) { return run.set && run.program == program; }));
}

QStringList LotRuns::GetRemarks() const
{
    QStringList remarks;
    for (auto it = m_repetitions.cbegin(); it != m_repetitions.cend(); ++it) {
        const QString name = m_inputs.at(it.key().first).name;
        const QString earlier = m_inputs.at(it.key().second).name;
        remarks += it->isCopy ? Texts::tr("%1: is a copy of %2; its runs are counted once").arg(name, earlier)
                              : Texts::tr("%1: has %n runs of %2 with other contents; these count", nullptr,
                                          it->runs)
                                    .arg(name, earlier);
    }
    return remarks + m_unreadableStarts + RemarksOnSerials() + RemarksOnVersions();
}

QStringList LotRuns::RemarksOnSerials() const
{
    QMap<std::pair<QString, QString>, QStringList> lots; // by product and serial
    for (const LotRun& run : m_runs) {
        const QString serial = run.unit.at(SerialOfUnit);
        if (run.ofPanel || serial.isEmpty())
            continue;
        QStringList& seen = lots[{run.unit.at(ProductOfUnit), serial}];
        if (const QString lot = QLatin1Char('\'') + run.unit.at(LotOfUnit) + QLatin1Char('\'');
            !seen.contains(lot))
            seen.append(lot);
    }
    QStringList remarks;
    for (auto it = lots.cbegin(); it != lots.cend(); ++it)
        if (it->size() > 1)
            remarks += Texts::tr("serial number %1 of '%2' is in the lots %3: a unit of each")
                           .arg(it.key().second, it.key().first, it->join(QLatin1String(", ")));
    return remarks;
}

QStringList LotRuns::RemarksOnVersions() const
{
    QMap<std::pair<QString, QString>, int> runs; // by name and version
    for (const LotRun& run : m_runs)
        if (run.set)
            ++runs[{run.program, run.version}];
    QStringList remarks;
    for (auto it = runs.cbegin(); runs.size() > 1 && it != runs.cend(); ++it)
        remarks += Texts::tr("program '%1' version '%2' in %n runs", nullptr, it.value())
                       .arg(it.key().first, it.key().second);
    return remarks;
}

} // namespace ZYN::Tool
