#include "ReportFile.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

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
        *problem =
            Problem{name, 0, QStringLiteral("cannot be read"), QStringLiteral("check its permissions")};
        return nullptr;
    }
    if (const QList<ImportFinding> findings = service.GetFindings(); !findings.isEmpty()) {
        *problem =
            Problem{name, findings.first().line,
                    QStringLiteral("is no complete report: ") +
                        findings.first().text.chopped(findings.first().text.endsWith(QLatin1Char('.'))),
                    QStringLiteral("zyn check lists everything that is wrong with it")};
    }
    return test;
}

bool LooksLikeReport(const QByteArray& head)
{
    return head.contains("<TestReport");
}

} // namespace ZYN::Tool
