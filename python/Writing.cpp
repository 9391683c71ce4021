#include "Application.h"
#include "Errors.h"
#include "Recorder.h"

#include "lotfile/LotWriter.h"

#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace ZYN::Python {

namespace {

QString NameOf(const std::filesystem::path& path)
{
    return QFile::decodeName(path.c_str());
}

[[noreturn]] void Refuse(const std::filesystem::path& path, const QString& why)
{
    Raise(Errors::Write, NameOf(path) + QStringLiteral(": ") + why);
}

QString ErrorText()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// \return why it could not be written in full; empty when it was
QString Export(CExportServiceReport& service, UUTTest& test, bool all)
{
    const py::gil_scoped_release others;
    service.SetIgnoreReportFlag(all);
    if (service.Export(&test) && service.OutputComplete())
        return {};
    const QString why = service.GetErrorText() + service.GetOutputError();
    return why.isEmpty() ? QStringLiteral("not everything could be written") : why;
}

ReportFormat FormatOf(const std::filesystem::path& path, const QString& format)
{
    const QString extension = QFileInfo(NameOf(path)).suffix().toLower();
    const QString wanted =
        (format.isEmpty() ? CExportServiceReport::FormatForExtension(QLatin1Char('.') + extension) : format)
            .toLower();
    QStringList known;
    for (const ReportFormat& one : CExportServiceReport::Formats()) {
        if (one.name.toLower() == wanted || one.otherNames.contains(wanted))
            return one;
        known.append(QLatin1Char('.') + one.extension);
    }
    throw py::value_error(NameOf(path).toStdString() + ": the format is not clear; known are " +
                          known.join(QStringLiteral(", ")).toStdString());
}

} // namespace

void Save(UUTTest& test, const std::filesystem::path& path, const QString& format, bool all)
{
    CExportServiceReport service;
    const QString name = FormatOf(path, format).name;
    service.SetFormat(name);
    if (name == QLatin1String("PDF"))
        NeedApplication();
    std::error_code error;
    const std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    if (error || (std::filesystem::exists(target, error) && !std::filesystem::is_regular_file(target, error)))
        Refuse(path, QStringLiteral("is no file"));
    // In the same folder, so that it gets its name in one step.
    const QTemporaryDir folder(NameOf(target.parent_path() / ".zyn-XXXXXX"));
    if (!folder.isValid())
        Refuse(path, folder.errorString());
    const QString written = folder.filePath(NameOf(target.filename()));
    service.SetOutputFileName(written);
    const QString why = Export(service, test, all);
    if (!why.isEmpty())
        Refuse(path, why);
    if (std::rename(QFile::encodeName(written), target.c_str()) != 0)
        Refuse(path, ErrorText());
}

std::string Append(UUTTest& test, const std::filesystem::path& path, bool all)
{
    const ReportFormat format = FormatOf(path, QString());
    if (!format.takesManyReports)
        throw py::value_error(NameOf(path).toStdString() + ": takes one report; save() writes it");
    Problem problem;
    QString written;
    {
        const py::gil_scoped_release others; // while it waits for the lot, too
        const QString name = NameOf(path);
        const std::optional<LotParts> parts = MakeLotParts(&test, all);
        LotWriter lot(name, true);
        if (!parts) {
            problem = NotAdded(QString(), name, true);
        } else if (parts->parts.isEmpty()) {
            problem = lot.Refusal().value_or(Problem());
            lot.AddNone(*parts);
            written = name;
        } else {
            const LotEntry entry = lot.Add(*parts, parts->ident);
            problem = entry.problem.value_or(Problem());
            written = entry.file;
        }
    }
    if (!problem.what.isEmpty())
        Raise(Errors::Write, TextOf(problem));
    return QFile::encodeName(written).toStdString();
}

} // namespace ZYN::Python
