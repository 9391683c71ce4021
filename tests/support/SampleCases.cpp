#include "SampleModels.h"

namespace ZYN::SampleModels {

namespace {

struct CaseRow {
    const char* name;
    QSharedPointer<UUTTest> (*make)();
    bool withLogo = false;
    bool ignoreReportFlag = false;
    std::optional<bool> useScaledData = std::nullopt;
    /// What it shows is in HTML only.
    bool htmlOnly = false;
};

constexpr CaseRow caseRows[] = {
    {"passed-unit", PassedUnit},
    {"failed-unit", FailedUnit},
    {"failed-unit-unscaled", FailedUnit, false, false, false, true},
    {"panel", Panel},
    {"panel-logo", Panel, true, false, std::nullopt, true},
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
        if (!row.htmlOnly)
            names.append(row.name);
    return names;
}

std::optional<ReportCase> MakeReportCase(const QString& name)
{
    for (const CaseRow& row : caseRows) {
        if (name == row.name)
            return ReportCase{name, row.make(), row.withLogo, row.ignoreReportFlag, row.useScaledData};
    }
    return std::nullopt;
}

} // namespace ZYN::SampleModels
