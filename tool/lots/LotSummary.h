#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN {
class StatisticsDataReport;
}

namespace ZYN::Tool {

class LotRuns;

/// A lot as text for people, for each of its programs: yields, the five most frequent first failures, the
/// five smallest CPK.
QString DescribeLot(const LotRuns& runs, const StatisticsDataReport* report);
/// The same for programs, an object for each.
QList<QJsonObject> LotToJson(const LotRuns& runs, const StatisticsDataReport* report);

} // namespace ZYN::Tool
