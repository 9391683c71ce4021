#include <ZYNPersistence/CExportServiceReport.h>

#include "CExportDirectorReport.h"
#include "CExportServicePrivate.h"
#include "FormatRegistry.h"
#include "IExportBuilder.h"

#include <ZYNCommon/ZYNTools.h>

#include <QtCore/QDir>
#include <QtCore/QFileDevice>

namespace ZYN {

class CExportServiceReport_Private : public CExportServicePrivate {
public:
    void FindDefaultLogo();

    template <class Model>
    bool Export(Model* model, bool (CExportDirectorBase::*walk)(Model*, IExportBuilder*))
    {
        return Run([&] {
            CExportDirectorReport director;
            director.ignoreReportFlag = ignoreReportFlag;
            HandOverSettings();
            return (director.*walk)(model, builder);
        });
    }

    bool ignoreReportFlag = false;
    QString reportLogo;
    QString xmlStyle;

private:
    void HandOverSettings();
};

void CExportServiceReport_Private::FindDefaultLogo()
{
    const QDir media = ZYNTools::GetMediaDir();
    // Where both exist the JPEG is meant: it comes last and replaces the other.
    for (const QString& name : {QStringLiteral("ReportLogo.png"), QStringLiteral("ReportLogo.jpg")}) {
        if (media.exists(name))
            reportLogo = media.absoluteFilePath(name);
    }
}

void CExportServiceReport_Private::HandOverSettings()
{
    if (!reportLogo.isEmpty())
        builder->SetProperty(QStringLiteral("ReportLogo"), reportLogo);
    if (!xmlStyle.isEmpty())
        builder->SetProperty(QStringLiteral("XMLStyle"), xmlStyle);
}

CExportServiceReport::CExportServiceReport()
    : d(new CExportServiceReport_Private)
{
    d->FindDefaultLogo();
}

CExportServiceReport::~CExportServiceReport()
{
    delete d;
}

bool CExportServiceReport::SetFormat(const QString& format)
{
    return d->SetBuilder([&] { return FormatRegistry::CreateReportBuilder(format); });
}

void CExportServiceReport::SetOutputFileName(const QString& fileName)
{
    d->fileName = fileName;
}

void CExportServiceReport::SetReportLogoImage(const QString& path)
{
    d->reportLogo = path;
}

void CExportServiceReport::SetIgnoreReportFlag(bool flag)
{
    d->ignoreReportFlag = flag;
}

void CExportServiceReport::SetXMLStyle(const QString& path)
{
    d->xmlStyle = path;
}

bool CExportServiceReport::Export(TestResultSet* resultSet)
{
    return d->Export(resultSet, &CExportDirectorBase::ExportTestResultSet);
}

bool CExportServiceReport::Export(UUTTest* uutTest)
{
    return d->Export(uutTest, &CExportDirectorBase::ExportUUTTest);
}

bool CExportServiceReport::FormatOk() const
{
    return d->builder != nullptr;
}

QString CExportServiceReport::GetErrorText() const
{
    return d->errorText;
}

bool CExportServiceReport::OutputComplete() const
{
    return d->OutputComplete();
}

QString CExportServiceReport::GetOutputError() const
{
    return d->OutputError();
}

QString CExportServiceReport::GetWrittenFileName() const
{
    const auto* const file = d->builder ? qobject_cast<QFileDevice*>(d->builder->GetDevice()) : nullptr;
    return file ? file->fileName() : d->fileName;
}

QString CExportServiceReport::FileNameFilter()
{
    return FormatRegistry::FileNameFilter();
}

QList<ReportFormat> CExportServiceReport::Formats()
{
    return FormatRegistry::Formats();
}

QString CExportServiceReport::ExtensionForFormat(const QString& format)
{
    return FormatRegistry::ExtensionForFormat(format);
}

QString CExportServiceReport::FormatForExtension(const QString& fileName)
{
    return FormatRegistry::FormatForExtension(fileName);
}

bool CExportServiceReport::ValidFormat(const QString& format)
{
    return FormatRegistry::ValidFormat(format);
}

} // namespace ZYN
