#pragma once

#include <QtCore/QHash>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace ZYN {
class StatisticsDataReport;
class UUTTest;
} // namespace ZYN

namespace ZYN::Tool {

/// Yield of a lot: how many units passed in the end, and how many with their first test.
///
/// A unit is what stands at the end of the line: an item of a panel, or a single board. It is known by its
/// serial number, else by its ident; a unit that has neither counts for itself. Tests of one unit are ordered
/// by their start, those without one as they come.
class LotSummary {
public:
    void AddReport(const UUTTest* test);

    int GetUnitCount() const;
    int GetPassed() const;
    int GetPassedFirst() const;

private:
    struct Unit {
        QString firstStart; // UTC, sortable; empty when unknown
        QString lastStart;
        bool passedFirst = false;
        bool passedLast = false;
    };

    void AddUnit(const UUTTest* unit, const UUTTest* report);

    QHash<QString, Unit> m_known; // by identity
};

/// The summary as text for people: yields, the five steps that failed most, the five smallest CPK.
QString DescribeLot(const LotSummary& summary, const StatisticsDataReport* report);
/// The same for programs.
QJsonObject LotToJson(const LotSummary& summary, const StatisticsDataReport* report);

} // namespace ZYN::Tool
