#include "lots/LotSummary.h"

#include "kinds/ReportParts.h"
#include "lots/LotRuns.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/ValidationInterface.h>

#include <QtCore/QJsonArray>

#include <algorithm>
#include <cmath>

namespace ZYN::Tool {

namespace {

constexpr qsizetype ListLength = 5;

// A component with one set of limits.
struct Capability {
    const StatisticsData* entry;
    StatisticsData::Capability figures;
    bool isOneOfSeveral; // the limits changed within the lot
};

QList<Capability> SmallestCpk(const StatisticsDataReport* report, const QString& program)
{
    QList<Capability> found;
    for (const StatisticsData* const entry : report->GetTestData()) {
        if (!entry->GetComponent() || entry->GetProgramName() != program)
            continue;
        const QList<StatisticsData::Capability> capabilities = entry->GetCapabilities();
        for (const StatisticsData::Capability& figures : capabilities)
            if (std::isfinite(figures.cpk))
                found.append({entry, figures, capabilities.size() > 1});
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const Capability& a, const Capability& b) { return a.figures.cpk < b.figures.cpk; });
    return found.mid(0, ListLength);
}

QString Percent(int part, int whole)
{
    const double share = whole > 0 ? 100.0 * part / whole : 0.0;
    return Texts::tr("%1 % (%2 of %3)")
        .arg(QString::number(share, 'f', 1), QString::number(part), QString::number(whole));
}

QString CpkText(double cpk)
{
    return PadLeft(std::isfinite(cpk) ? QString::number(cpk, 'f', 2) : QStringLiteral("-"), 8);
}

QString DescribeYield(const LotRuns::Yield& figures)
{
    if (figures.units == 0) // a program for panels, which are no units
        return {};
    const QString yield = Texts::tr("Yield");
    const QString firstPass = Texts::tr("First-pass yield");
    const int width = qMax(Columns(yield), Columns(firstPass));
    return QStringLiteral("%1  %2\n%3  %4\n")
        .arg(PadRight(yield, width), Percent(figures.passed, figures.units), PadRight(firstPass, width),
             Percent(figures.passedFirst, figures.units));
}

QString DescribeFailures(const QList<LotRuns::Failure>& failures)
{
    if (failures.isEmpty())
        return {};
    QString text = QLatin1Char('\n') + Texts::tr("First failures, and in how many runs") + QLatin1Char('\n');
    for (const LotRuns::Failure& failure : failures)
        text += QStringLiteral("%1  %2\n")
                    .arg(PadLeft(QString::number(failure.runs), 8),
                         Harmless(failure.ident + QLatin1Char(' ') + failure.path));
    return text;
}

QString DescribeCapabilities(const QList<Capability>& capabilities)
{
    if (capabilities.isEmpty())
        return {};
    QString text = QLatin1Char('\n') + Texts::tr("Smallest CPK: of all values, of those that passed") +
                   QLatin1Char('\n');
    for (const Capability& capability : capabilities) {
        const QString limits = capability.isOneOfSeveral
                                   ? QStringLiteral("  [%1]").arg(LimitsText(capability.figures.limits.get()))
                                   : QString();
        text += QStringLiteral("%1%2  %3\n")
                    .arg(CpkText(capability.figures.cpk), CpkText(capability.figures.cpkPassed),
                         Harmless(capability.entry->GetComponent()->GetIdentString() + QLatin1Char(' ') +
                                  capability.entry->GetPath() + limits));
    }
    return text;
}

QJsonObject ToJson(const Capability& capability)
{
    const auto limit = [](const QVariant& value) {
        const QJsonValue json = QJsonValue::fromVariant(value);
        return json.isDouble() ? json : QJsonValue();
    };
    const auto& [limits, cpk, cpkPassed] = capability.figures;
    return {{QStringLiteral("ident"), capability.entry->GetComponent()->GetIdentString()},
            {QStringLiteral("path"), capability.entry->GetPath()},
            {QStringLiteral("lower"), limit(limits->GetLowerLimit())},
            {QStringLiteral("upper"), limit(limits->GetUpperLimit())},
            {QStringLiteral("cpk"), cpk},
            {QStringLiteral("cpkPassed"), std::isfinite(cpkPassed) ? QJsonValue(cpkPassed) : QJsonValue()}};
}

} // namespace

QString DescribeLot(const LotRuns& runs, const StatisticsDataReport* report)
{
    const QStringList programs = runs.GetPrograms();
    QStringList texts;
    for (const QString& program : programs) {
        const QString title =
            program.isEmpty() ? Texts::tr("Without a program") : Texts::tr("Program %1").arg(program);
        texts += (programs.size() > 1 ? Paint(Harmless(title), Style::Bold) + QLatin1Char('\n') : QString()) +
                 DescribeYield(runs.GetYield(program)) +
                 DescribeFailures(runs.GetFirstFailures(program).mid(0, ListLength)) +
                 DescribeCapabilities(SmallestCpk(report, program));
    }
    return texts.join(QLatin1Char('\n'));
}

QList<QJsonObject> LotToJson(const LotRuns& runs, const StatisticsDataReport* report)
{
    QList<QJsonObject> objects;
    for (const QString& program : runs.GetPrograms()) {
        const LotRuns::Yield yield = runs.GetYield(program);
        QJsonArray failures;
        for (const LotRuns::Failure& failure : runs.GetFirstFailures(program).mid(0, ListLength))
            failures.append(QJsonObject{{QStringLiteral("ident"), failure.ident},
                                        {QStringLiteral("path"), failure.path},
                                        {QStringLiteral("runs"), failure.runs}});
        QJsonArray capabilities;
        for (const Capability& capability : SmallestCpk(report, program))
            capabilities.append(ToJson(capability));
        objects.append(QJsonObject{{QStringLiteral("program"), program},
                                   {QStringLiteral("units"), yield.units},
                                   {QStringLiteral("passed"), yield.passed},
                                   {QStringLiteral("passedFirst"), yield.passedFirst},
                                   {QStringLiteral("firstFailures"), failures},
                                   {QStringLiteral("smallestCpk"), capabilities}});
    }
    return objects;
}

} // namespace ZYN::Tool
