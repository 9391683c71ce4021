#include "kinds/ReportFile.h"

#include "files/PlainFile.h"
#include "kinds/FileKind.h"
#include "terminal/Texts.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QFile>

#include <utility>

namespace ZYN::Tool {

namespace {

// Why the file that was read is no complete report, and in which line.
std::optional<std::pair<qint64, QString>> FirstError(const PlainFile& file,
                                                     const CImportServiceReport& service)
{
    if (!file.GetProblem().isEmpty())
        return std::pair(qint64(0), file.GetProblem());
    for (const ImportFinding& finding : service.GetFindings())
        if (finding.isError)
            return std::pair(finding.line, finding.text);
    return std::nullopt;
}

} // namespace

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
    const PlainFile file(path);
    service.SetInputFileName(file.GetPath());
    if (!service.Import(test.get())) {
        *problem = Problem{name, 0, Texts::tr("cannot be read"), Texts::tr("check its permissions")};
        return nullptr;
    }
    if (const auto error = FirstError(file, service)) {
        const auto& [line, text] = *error;
        *problem =
            Problem{name, line,
                    Texts::tr("is no complete report: %1").arg(text.chopped(text.endsWith(QLatin1Char('.')))),
                    Texts::tr("zyn check lists everything that is wrong with it")};
    }
    return test;
}

bool LooksLikeReport(const QByteArray& head)
{
    return head.contains("<TestReport");
}

} // namespace ZYN::Tool
