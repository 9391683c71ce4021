#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QSet>
#include <QtCore/QString>

#include <memory>

namespace ZYN {

class StatisticsData;
class StatisticsDataReport;
class TestComponent;
class TestResultSet;
class UUTTest;

/// Collects the result sets of many units into a statistics report.
///
/// Every component with a result gets an entry, programs, groups and steps among them: they have no values,
/// but their counts tell the yield and which steps fail most.
///
/// Components of different runs are the same when their path of ids and names from the program down is
/// the same. Where several components of one run have the same path, the first is taken for the first, the
/// second for the second of another run; each has an entry of its own, so that nothing is counted twice.
/// Entries stand in the order in which components were met first. A run that lacks a component adds nothing
/// to its entry: its `Size` is then smaller than `GetRunCount`.
///
/// Only what the report needs is kept: entries and the report have copies of the components (without
/// children; with the newest validation), result sets can be freed after they were added.
class ZYNCOMMON_EXPORT StatisticsCollector {
public:
    StatisticsCollector();
    ~StatisticsCollector();
    StatisticsCollector(const StatisticsCollector&) = delete;
    StatisticsCollector& operator=(const StatisticsCollector&) = delete;

    /// Adds a unit's result sets and those of its panel items. The first unit gives the report its
    /// session, product type, unit and program. Null is ignored.
    void AddUnit(const UUTTest* unit);
    /// The same without some of the result sets: those that were added already.
    void AddUnit(const UUTTest* unit, const QSet<const TestResultSet*>& without);
    /// Adds one run; null and a set without a program are ignored.
    void AddResultSet(const TestResultSet* resultSet);
    /// Number of result sets added, panel items' ones included.
    int GetRunCount() const;
    /// The report; owned by the collector until `TakeReport`.
    StatisticsDataReport* GetReport() const;
    /// Hands the report over and starts anew.
    std::unique_ptr<StatisticsDataReport> TakeReport();

private:
    /// The entries of the components with one path, and how many of them the newest run had.
    struct Place {
        QString key; ///< stands for the path in the keys of the places below
        QList<StatisticsData*> entries;
        int run = 0;
        int met = 0;
    };

    struct Branch;

    void AddComponent(const TestResultSet* resultSet, const Branch& branch);
    StatisticsData* EntryFor(const Branch& branch);

    std::unique_ptr<StatisticsDataReport> m_report;
    QHash<QString, Place> m_places; ///< by the key of the place above, id and name
    int m_runs = 0;
};

} // namespace ZYN
