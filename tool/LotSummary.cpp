#include "LotSummary.h"

#include "Terminal.h"
#include "Texts.h"

#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>

#include <QtCore/QDateTime>
#include <QtCore/QJsonArray>

#include <algorithm>
#include <cmath>

namespace ZYN::Tool {

namespace {

constexpr qsizetype ListLength = 5;

// A text that sorts by time whatever the offset it was written with.
QString SortableStart(const UUTTest* unit, const UUTTest* report)
{
    QDateTime start = unit->GetStartTime();
    if (!start.isValid())
        start = report->GetStartTime();
    return start.isValid() ? start.toUTC().toString(Qt::ISODateWithMs) : QString();
}

QString IdentityOf(const UUTTest* test)
{
    const auto unit = test->GetUnitUnderTest();
    if (!unit)
        return {};
    if (!unit->GetSerialNo().isEmpty())
        return QStringLiteral("serial ") + unit->GetSerialNo();
    return unit->GetIdentString().isEmpty() ? QString() : QStringLiteral("ident ") + unit->GetIdentString();
}

// The verdict of the first run: a unit may be tested again within one report.
bool PassedFirstRun(const UUTTest* unit)
{
    const QList<TestResultSet*> runs = unit->GetResultSets();
    if (runs.size() < 2)
        return unit->GetResult() == ZYN_RESULT_PASSED;
    const TestResultSet* const first =
        *std::min_element(runs.begin(), runs.end(), [](const TestResultSet* a, const TestResultSet* b) {
            return a->GetTestIndex() < b->GetTestIndex();
        });
    const TestResult* const verdict = first->GetResult(first->GetTestProgram().get());
    return verdict && verdict->GetResult() == ZYN_RESULT_PASSED;
}

QString Percent(int part, int whole)
{
    const double share = whole > 0 ? 100.0 * part / whole : 0.0;
    return Texts::tr("%1 % (%2 of %3)")
        .arg(QString::number(share, 'f', 1), QString::number(part), QString::number(whole));
}

QString NameOf(const StatisticsData* entry)
{
    const TestComponent* const component = entry->GetComponent();
    return Harmless(component->GetIdentString() + QLatin1Char(' ') + component->GetName());
}

// The entries that a list shows, in its order: the first ones of `before`.
template <typename Wanted, typename Before>
QList<const StatisticsData*> Ranked(const StatisticsDataReport* report, Wanted wanted, Before before)
{
    QList<const StatisticsData*> entries;
    for (const StatisticsData* const entry : report->GetTestData()) {
        if (entry->GetComponent() && wanted(entry))
            entries.append(entry);
    }
    std::stable_sort(entries.begin(), entries.end(), before);
    return entries.mid(0, ListLength);
}

QList<const StatisticsData*> FailedMost(const StatisticsDataReport* report)
{
    return Ranked(
        report,
        [](const StatisticsData* entry) {
            return entry->GetNrFail() > 0 && qobject_cast<TestStep*>(entry->GetComponent());
        },
        [](const StatisticsData* a, const StatisticsData* b) { return a->GetNrFail() > b->GetNrFail(); });
}

QList<const StatisticsData*> SmallestCpk(const StatisticsDataReport* report)
{
    return Ranked(
        report, [](const StatisticsData* entry) { return std::isfinite(entry->GetCpk()); },
        [](const StatisticsData* a, const StatisticsData* b) { return a->GetCpk() < b->GetCpk(); });
}

} // namespace

void LotSummary::AddReport(const UUTTest* test)
{
    const QList<QSharedPointer<UUTTest>> items = test->GetUUTTests();
    if (items.isEmpty())
        AddUnit(test, test);
    for (const auto& item : items)
        AddUnit(item.get(), test);
}

void LotSummary::AddUnit(const UUTTest* unit, const UUTTest* report)
{
    const bool passed = unit->GetResult() == ZYN_RESULT_PASSED;
    const bool passedFirst = PassedFirstRun(unit);
    const QString start = SortableStart(unit, report);
    const QString identity = IdentityOf(unit);
    const QString key = identity.isEmpty() ? QStringLiteral("unknown %1").arg(m_known.size()) : identity;
    const auto known = m_known.find(key);
    if (known == m_known.end()) {
        m_known.insert(key, {start, start, passedFirst, passed});
        return;
    }
    if (start < known->firstStart) {
        known->firstStart = start;
        known->passedFirst = passedFirst;
    }
    if (start >= known->lastStart) {
        known->lastStart = start;
        known->passedLast = passed;
    }
}

int LotSummary::GetUnitCount() const
{
    return int(m_known.size());
}

int LotSummary::GetPassed() const
{
    return int(
        std::count_if(m_known.begin(), m_known.end(), [](const Unit& unit) { return unit.passedLast; }));
}

int LotSummary::GetPassedFirst() const
{
    return int(
        std::count_if(m_known.begin(), m_known.end(), [](const Unit& unit) { return unit.passedFirst; }));
}

QString DescribeLot(const LotSummary& summary, const StatisticsDataReport* report)
{
    const QString yield = Texts::tr("Yield");
    const QString firstPass = Texts::tr("First-pass yield");
    const int width = qMax(Columns(yield), Columns(firstPass));
    QString text =
        QStringLiteral("%1  %2\n%3  %4\n")
            .arg(PadRight(yield, width), Percent(summary.GetPassed(), summary.GetUnitCount()),
                 PadRight(firstPass, width), Percent(summary.GetPassedFirst(), summary.GetUnitCount()));

    const auto failed = FailedMost(report);
    if (!failed.isEmpty())
        text += QLatin1Char('\n') + Texts::tr("Steps that failed most") + QLatin1Char('\n');
    for (const StatisticsData* const entry : failed)
        text +=
            QStringLiteral("  %1  %2\n").arg(PadLeft(QString::number(entry->GetNrFail()), 8), NameOf(entry));

    const auto worst = SmallestCpk(report);
    if (!worst.isEmpty())
        text += QLatin1Char('\n') + Texts::tr("Smallest CPK") + QLatin1Char('\n');
    for (const StatisticsData* const entry : worst)
        text += QStringLiteral("  %1  %2\n")
                    .arg(PadLeft(QString::number(entry->GetCpk(), 'f', 2), 8), NameOf(entry));
    return text;
}

QJsonObject LotToJson(const LotSummary& summary, const StatisticsDataReport* report)
{
    const auto entryToJson = [](const StatisticsData* entry, const QString& key, const QJsonValue& value) {
        return QJsonObject{{QStringLiteral("ident"), entry->GetComponent()->GetIdentString()},
                           {QStringLiteral("name"), entry->GetComponent()->GetName()},
                           {key, value}};
    };
    QJsonArray failed;
    for (const StatisticsData* const entry : FailedMost(report))
        failed.append(entryToJson(entry, QStringLiteral("failed"), qint64(entry->GetNrFail())));
    QJsonArray worst;
    for (const StatisticsData* const entry : SmallestCpk(report))
        worst.append(entryToJson(entry, QStringLiteral("cpk"), entry->GetCpk()));
    return {{QStringLiteral("units"), summary.GetUnitCount()},
            {QStringLiteral("passed"), summary.GetPassed()},
            {QStringLiteral("passedFirst"), summary.GetPassedFirst()},
            {QStringLiteral("failedMost"), failed},
            {QStringLiteral("smallestCpk"), worst}};
}

} // namespace ZYN::Tool
