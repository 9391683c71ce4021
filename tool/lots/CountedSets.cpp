#include "lots/CountedSets.h"

#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>

namespace ZYN::Tool {

CountedSets::CountedSets(const std::vector<SourcePlace>& places)
{
    for (const SourcePlace& place : places)
        m_places[place.source].insert({place.isPanel, place.position.value_or(-1), place.runIndex});
}

QSet<const TestResultSet*> CountedSets::CountedElsewhere(const UUTTest& report, const QString& source) const
{
    const std::set<Place> places = m_places.value(source);
    QSet<const TestResultSet*> sets;
    // As runs have it: an item without a position of its own has that of its order.
    const auto look = [&](const UUTTest& test, bool isPanel, int position) {
        const auto unit = test.GetUnitUnderTest();
        if (unit && unit->GetPanelIndex() > 0)
            position = int(unit->GetPanelIndex());
        const QList<TestResultSet*> own = test.GetResultSets();
        for (int index = 0; index < own.size(); ++index)
            if (!places.contains({isPanel, position, index}))
                sets.insert(own.at(index));
    };
    const auto items = report.GetUUTTests();
    look(report, !items.isEmpty(), -1);
    for (int index = 0; index < items.size(); ++index)
        look(*items.at(index), false, index + 1);
    return sets;
}

} // namespace ZYN::Tool
