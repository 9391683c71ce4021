#include "SampleModels.h"

namespace ZYN::SampleModels {

namespace {

struct CaseRow {
    const char* name;
    QSharedPointer<UUTTest> (*make)();
    bool withLogo = false;
    bool ignoreReportFlag = false;
    std::optional<bool> useScaledData = std::nullopt;
};

constexpr CaseRow caseRows[] = {
    {"passed-unit", PassedUnit},
    {"failed-unit", FailedUnit},
    {"failed-unit-unscaled", FailedUnit, false, false, false},
    {"panel", Panel},
    {"panel-logo", Panel, true},
    {"bare-unit", BareUnit},
    {"hostile-names", HostileNames},
    {"excluded", ExcludedComponents},
    {"excluded-ignored", ExcludedComponents, false, true},
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
    for (const auto& [rowName, make, withLogo, ignoreReportFlag, useScaledData] : caseRows) {
        if (name == rowName)
            return ReportCase{name, make(), withLogo, ignoreReportFlag, useScaledData};
    }
    return std::nullopt;
}

} // namespace ZYN::SampleModels
