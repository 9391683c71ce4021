#include "SampleModels.h"

#include <algorithm>
#include <iterator>

namespace ZYN::SampleModels {

using namespace Qt::StringLiterals;

namespace {

struct CaseRow {
    QLatin1StringView name;
    QSharedPointer<UUTTest> (*make)();
    bool withLogo = false;
    bool ignoreReportFlag = false;
    std::optional<bool> useScaledData = std::nullopt;
};

constexpr CaseRow caseRows[] = {
    {"passed-unit"_L1, PassedUnit},
    {"failed-unit"_L1, FailedUnit},
    {"failed-unit-unscaled"_L1, FailedUnit, false, false, false},
    {"panel"_L1, Panel},
    {"panel-logo"_L1, Panel, true},
    {"bare-unit"_L1, BareUnit},
    {"hostile-names"_L1, HostileNames},
    {"excluded"_L1, ExcludedComponents},
    {"excluded-ignored"_L1, ExcludedComponents, false, true},
};

} // namespace

QStringList ReportCaseNames()
{
    QStringList names;
    for (const CaseRow& row : caseRows)
        names.append(row.name);
    return names;
}

std::optional<ReportCase> MakeReportCase(const QString& name)
{
    const auto* const row = std::find_if(std::begin(caseRows), std::end(caseRows),
                                         [&](const CaseRow& candidate) { return candidate.name == name; });
    if (row == std::end(caseRows))
        return std::nullopt;
    return ReportCase{name, row->make(), row->withLogo, row->ignoreReportFlag, row->useScaledData};
}

} // namespace ZYN::SampleModels
