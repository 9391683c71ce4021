#include "ReportFile.h"

#include "FileKind.h"
#include "Texts.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QFile>

#include <algorithm>

namespace ZYN::Tool {

std::unique_ptr<UUTTest> ReadReport(const QString& path, const QString& name, std::optional<Problem>* problem)
{
    std::unique_ptr<UUTTest> test = ReadDamagedReport(path, name, problem);
    if (!*problem)
        return test;
    // Another kind of file is no damaged report.
    QFile file(path);
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(4096) : QByteArray();
    for (const FileKind& kind : FileKinds())
        if (!LooksLikeReport(head) && kind.recognises(head))
            *problem = Problem{
                name, 0, Texts::tr("is no XML report but another kind of file: %1").arg(Texts::tr(kind.name)),
                Texts::tr("give XML reports (.zyr); zyn show and zyn check read this one")};
    return nullptr;
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
