#include "ReportFile.h"

#include "Texts.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <algorithm>

namespace ZYN::Tool {

std::unique_ptr<UUTTest> ReadReport(const QString& path, const QString& name, std::optional<Problem>* problem)
{
    std::unique_ptr<UUTTest> test = ReadDamagedReport(path, name, problem);
    return *problem ? nullptr : std::move(test);
}

std::unique_ptr<UUTTest> ReadDamagedReport(const QString& path, const QString& name,
                                           std::optional<Problem>* problem)
{
    auto test = std::make_unique<UUTTest>(0, QString());
    CImportServiceReport service;
    service.SetInputFileName(path);
    if (!service.Import(test.get())) {
        *problem = Problem{name, 0, Texts::tr("cannot be read"), Texts::tr("check its permissions")};
        return nullptr;
    }
    const QList<ImportFinding> findings = service.GetFindings();
    const auto error = std::find_if(findings.begin(), findings.end(),
                                    [](const ImportFinding& finding) { return finding.isError; });
    if (error != findings.end()) {
        *problem = Problem{name, error->line,
                           Texts::tr("is no complete report: %1")
                               .arg(error->text.chopped(error->text.endsWith(QLatin1Char('.')))),
                           Texts::tr("zyn check lists everything that is wrong with it")};
    }
    return test;
}

bool LooksLikeReport(const QByteArray& head)
{
    return head.contains("<TestReport");
}

} // namespace ZYN::Tool
