#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QHash>
#include <QtCore/QSharedPointer>
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
/// Components of different runs are the same when their path of ids and names from the program down is
/// the same. Entries stand in the order in which components were met first. Only what the report needs
/// is kept: result sets can be freed after they were added.
class ZYNCOMMON_EXPORT StatisticsCollector {
public:
    StatisticsCollector();
    ~StatisticsCollector();
    StatisticsCollector(const StatisticsCollector&) = delete;
    StatisticsCollector& operator=(const StatisticsCollector&) = delete;

    /// Adds a unit's result sets and those of its panel items. The first unit gives the report its
    /// session, product type, unit and program. Null is ignored.
    void AddUnit(const UUTTest* unit);
    /// Adds one run; a set without a program is ignored.
    void AddResultSet(const TestResultSet* resultSet);
    /// Number of result sets added.
    int GetRunCount() const;
    /// The report; owned by the collector until `TakeReport`.
    StatisticsDataReport* GetReport() const;
    /// Hands the report over and starts anew.
    std::unique_ptr<StatisticsDataReport> TakeReport();

private:
    void AddComponent(const TestResultSet* resultSet, const QSharedPointer<TestComponent>& component,
                      const QString& path);

    std::unique_ptr<StatisticsDataReport> m_report;
    QHash<QString, StatisticsData*> m_entryForPath;
    int m_runs = 0;
};

} // namespace ZYN
