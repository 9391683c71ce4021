#pragma once

#include "archive/Questions.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

#include <set>
#include <tuple>

namespace ZYN {
class TestResultSet;
class UUTTest;
} // namespace ZYN

namespace ZYN::Tool {

/// Which result sets of reports count, as the archive that their runs were put into has it: copies count
/// once, and of several accounts of a run the last.
class CountedSets {
public:
    explicit CountedSets(const std::vector<SourcePlace>& places);

    /// Those of a report that count in another one. Any thread. \param source name of its input
    QSet<const TestResultSet*> CountedElsewhere(const UUTTest& report, const QString& source) const;

private:
    using Place = std::tuple<bool, int, int>; // of a panel, position on it or -1, number of the run

    QHash<QString, std::set<Place>> m_places; // by source
};

} // namespace ZYN::Tool
